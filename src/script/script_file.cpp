#include "script/script_file.h"

#include <windows.h>

#include <limits>
#include <string_view>

#include "platform/code_page.h"
#include "platform/error.h"
#include "platform/file_bytes.h"
#include "script/script_writer.h"
#include "script/show_script.h"
#include "text/utf8.h"

namespace script {

std::optional<std::wstring> readScriptFile(const std::wstring& folder) {
    const std::wstring path = scriptPath(folder);
    const DWORD attributes = GetFileAttributesW(path.c_str());
    constexpr DWORD kNotNormal = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & kNotNormal) != 0) {
        return std::nullopt;
    }
    std::string bytes;
    try {
        const auto content = platform::readFileBytes(path, std::numeric_limits<std::size_t>::max());
        bytes.assign(content.begin(), content.end());
    } catch (const platform::Error&) {
        return std::nullopt;
    }
    if (text::hasUtf8Mark(bytes)) {
        if (auto text = text::decodeUtf8(std::string_view(bytes).substr(text::kUtf8Mark.size()))) {
            return text;
        }
    }
    return platform::fromCodePage(bytes);
}

std::string scriptFileBytes(std::wstring_view text) {
    return scriptBytes(text, platform::toCodePageExactly);
}

}  // namespace script
