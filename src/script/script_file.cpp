#include "script/script_file.h"

#include <windows.h>

#include <limits>
#include <string_view>
#include <utility>

#include "platform/code_page.h"
#include "platform/directory.h"
#include "platform/error.h"
#include "platform/file_bytes.h"
#include "script/script_writer.h"
#include "script/show_script.h"
#include "text/utf8.h"

namespace script {

namespace {

std::wstring decoded(const std::string& bytes) {
    if (text::hasUtf8Mark(bytes)) {
        if (auto text = text::decodeUtf8(std::string_view(bytes).substr(text::kUtf8Mark.size()))) {
            return *text;
        }
    }
    return platform::fromCodePage(bytes);
}

}  // namespace

ScriptReading readScript(const std::wstring& folder) {
    ScriptReading reading;
    const std::wstring path = scriptPath(folder);
    const DWORD attributes = GetFileAttributesW(platform::unlimitedPath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        // A folder that cannot be reached may well hold one.
        const DWORD code = GetLastError();
        const bool missing = code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
        reading.state = missing ? ScriptReading::State::Missing : ScriptReading::State::Unreadable;
        return reading;
    }
    reading.state = ScriptReading::State::Unreadable;
    constexpr DWORD kNotNormal = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    if ((attributes & kNotNormal) != 0) {
        return reading;
    }
    try {
        const auto content = platform::readFileBytes(path, std::numeric_limits<std::size_t>::max());
        reading.bytes.assign(content.begin(), content.end());
    } catch (const platform::Error&) {
        return reading;
    }
    reading.text = decoded(reading.bytes);
    const bool writable = (attributes & FILE_ATTRIBUTE_READONLY) == 0;
    reading.state = writable ? ScriptReading::State::Whole : ScriptReading::State::WriteProtected;
    return reading;
}

std::optional<std::wstring> readScriptFile(const std::wstring& folder) {
    ScriptReading reading = readScript(folder);
    if (reading.state == ScriptReading::State::Missing || reading.state == ScriptReading::State::Unreadable) {
        return std::nullopt;
    }
    return std::move(reading.text);
}

std::string scriptFileBytes(std::wstring_view text) {
    return scriptBytes(text, platform::toCodePageExactly);
}

}  // namespace script
