#include "platform/system_message.h"

#include <windows.h>

#include <cstddef>

namespace platform {

namespace {

std::wstring messageIn(DWORD language, unsigned long code) {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        code, language, reinterpret_cast<LPWSTR>(&text), 0, nullptr);
    std::wstring message(text != nullptr ? text : L"", length);
    LocalFree(text);
    while (!message.empty() &&
           (message.back() == L'\n' || message.back() == L'\r' || message.back() == L' ')) {
        message.pop_back();
    }
    return message;
}

}  // namespace

std::wstring systemMessage(unsigned long code, const std::wstring& subject) {
    std::wstring message = messageIn(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), code);
    if (message.empty()) {
        message = messageIn(0, code);
    }
    const std::wstring placeholder = L"%1";
    if (const std::size_t at = message.find(placeholder); at != std::wstring::npos && !subject.empty()) {
        message.replace(at, placeholder.size(), subject);
    }
    return message.empty() ? L"Fehler " + std::to_wstring(code) : message;
}

}  // namespace platform
