#include "platform/short_path.h"

#include <windows.h>

#include "platform/code_page.h"
#include "platform/directory.h"

namespace platform {

// The wide call, since the narrow one cannot name a file outside the code page. What makes a path one of any
// length comes back with it, and other programs do not know that.
std::wstring wideShortPath(const std::wstring& path) {
    constexpr DWORD kBufferSize = 255;
    const std::wstring asked = unlimitedPath(path);
    const std::size_t mark = asked.size() - path.size();
    std::wstring buffer(kBufferSize + mark, L' ');
    const DWORD length = GetShortPathNameW(asked.c_str(), buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length <= mark || length >= buffer.size()) {
        return {};
    }
    return buffer.substr(mark, length - mark);
}

std::string shortPath(const std::wstring& path) {
    const std::string narrow = toCodePageExactly(wideShortPath(path)).value_or(std::string());
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

std::wstring storablePath(const std::wstring& path, std::size_t longest) {
    const auto storable = [longest](const std::wstring& form) {
        return form.size() <= longest && toCodePageExactly(form);
    };
    if (storable(path)) {
        return path;
    }
    const std::wstring form = wideShortPath(path);
    return !form.empty() && storable(form) ? form : path;
}

}  // namespace platform
