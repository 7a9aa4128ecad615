#include "platform/program_dir.h"

#include <windows.h>

namespace platform {

std::wstring programDir() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    while (length == path.size()) {
        path.resize(path.size() * 2);
        length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    }
    path.resize(length);
    constexpr std::size_t kRootLength = 3;
    const std::size_t end = path.rfind(L'\\');
    return path.substr(0, end < kRootLength ? end + 1 : end);
}

}  // namespace platform
