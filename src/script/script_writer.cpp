#include "script/script_writer.h"

#include <utility>

#include "text/utf8.h"

namespace script {

namespace {

void appendLine(std::wstring& text, std::wstring_view line) {
    for (const wchar_t c : line) {
        text += c == L'\r' || c == L'\n' ? L' ' : c;
    }
    text += L"\r\n";
}

}  // namespace

std::wstring scriptText(const std::vector<ScriptLine>& lines, const std::vector<std::wstring>& kept) {
    std::wstring text;
    for (const ScriptLine& line : lines) {
        if (!line.entry.empty()) {
            appendLine(text, line.key + L' ' + line.entry);
        }
    }
    for (const std::wstring& line : kept) {
        appendLine(text, line);
    }
    return text;
}

std::string scriptBytes(std::wstring_view text, const ToCodePage& toCodePage) {
    std::optional<std::string> bytes = toCodePage(text);
    return bytes && !text::hasUtf8Mark(*bytes) ? *std::move(bytes) : text::encodeUtf8File(text);
}

}  // namespace script
