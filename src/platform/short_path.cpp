#include "platform/short_path.h"

#include <windows.h>

#include "platform/code_page.h"

namespace platform {

std::string shortPath(const std::wstring& path) {
    constexpr DWORD kBufferSize = 255;
    std::wstring buffer(kBufferSize, L' ');
    // The wide form, since the narrow one cannot name a file outside the code page.
    const DWORD length = GetShortPathNameW(path.c_str(), buffer.data(), kBufferSize);
    if (length == 0 || length >= kBufferSize) {
        return {};
    }
    buffer.resize(length);
    const std::string narrow = toCodePageExactly(buffer).value_or(std::string());
    return narrow.find(' ') == std::string::npos ? narrow : '"' + narrow + '"';
}

}  // namespace platform
