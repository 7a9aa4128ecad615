#include "platform/short_path.h"

#include <windows.h>

#include "platform/code_page.h"

namespace platform {

namespace {

// The wide form, since the narrow one cannot name a file outside the code page; empty where there is none.
std::wstring shortForm(const std::wstring& path) {
    constexpr DWORD kBufferSize = 255;
    std::wstring buffer(kBufferSize, L' ');
    const DWORD length = GetShortPathNameW(path.c_str(), buffer.data(), kBufferSize);
    if (length == 0 || length >= kBufferSize) {
        return {};
    }
    buffer.resize(length);
    return buffer;
}

}  // namespace

std::string shortPath(const std::wstring& path) {
    const std::string narrow = toCodePageExactly(shortForm(path)).value_or(std::string());
    return narrow.find(' ') == std::string::npos ? narrow : '"' + narrow + '"';
}

std::wstring longPath(const std::wstring& path) {
    // Every short name has one; a drive that is slow or gone is not asked in vain.
    if (path.find(L'~') == std::wstring::npos) {
        return path;
    }
    const DWORD size = GetLongPathNameW(path.c_str(), nullptr, 0);
    std::wstring buffer(size, L'\0');
    const DWORD length = GetLongPathNameW(path.c_str(), buffer.data(), size);
    if (length == 0 || length >= size) {
        return path;
    }
    buffer.resize(length);
    return buffer;
}

std::wstring storablePath(const std::wstring& path) {
    if (toCodePageExactly(path)) {
        return path;
    }
    const std::wstring form = shortForm(path);
    return !form.empty() && toCodePageExactly(form) ? form : path;
}

}  // namespace platform
