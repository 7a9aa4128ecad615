#include "platform/system_message.h"

#include <windows.h>

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

std::wstring systemMessage(unsigned long code) {
    std::wstring message = messageIn(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), code);
    if (message.empty()) {
        message = messageIn(0, code);
    }
    return message.empty() ? L"Fehler " + std::to_wstring(code) : message;
}

}  // namespace platform
