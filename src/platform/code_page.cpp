#include "platform/code_page.h"

#include <windows.h>

namespace platform {

std::wstring fromCodePage(std::string_view bytes) {
    const auto length = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    const int made = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text.data(), length);
    text.resize(static_cast<std::size_t>(made));
    return text;
}

std::string toCodePage(std::wstring_view text) {
    const auto length = static_cast<int>(text.size());
    const int room = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(room), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(), room, nullptr, nullptr);
    return bytes;
}

// Reading back is the test: it also finds letters that were replaced by similar ones.
std::optional<std::string> toCodePageExactly(std::wstring_view text) {
    std::string bytes = toCodePage(text);
    if (fromCodePage(bytes) != text) {
        return std::nullopt;
    }
    return bytes;
}

}  // namespace platform
