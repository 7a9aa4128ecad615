#include "platform/directory.h"

#include <windows.h>

#include <shlwapi.h>

#include "platform/error.h"
#include "platform/handles.h"
#include "text/numbered_names.h"

namespace platform {

namespace {

// A drive without a medium gives an error instead of the system's box.
class QuietDrives {
  public:
    QuietDrives() { SetThreadErrorMode(SEM_FAILCRITICALERRORS, &former_); }
    ~QuietDrives() { SetThreadErrorMode(former_, nullptr); }
    QuietDrives(const QuietDrives&) = delete;
    QuietDrives& operator=(const QuietDrives&) = delete;

  private:
    DWORD former_ = 0;
};

// The form of a path that may be longer than 260 characters, also where the system does not allow it.
std::wstring unlimited(const std::wstring& path) {
    const bool onDrive = path.size() > 2 && path[1] == L':' && path[2] == L'\\';
    return onDrive && path.size() >= MAX_PATH - 12 ? L"\\\\?\\" + path : path;
}

// A number that the system hands out in two halves.
std::uint64_t whole(DWORD high, DWORD low) {
    return (std::uint64_t{high} << 32U) | low;
}

bool isDots(const wchar_t* name) {
    return name[0] == L'.' && (name[1] == 0 || (name[1] == L'.' && name[2] == 0));
}

}  // namespace

std::vector<DirectoryEntry> listDirectory(const std::wstring& folder) {
    const QuietDrives quiet;
    std::vector<DirectoryEntry> entries;
    WIN32_FIND_DATAW data{};
    const std::wstring wanted = unlimited(joinPath(folder, L"*"));
    const FindHandle find(FindFirstFileExW(wanted.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch,
                                           nullptr, FIND_FIRST_EX_LARGE_FETCH));
    if (!find) {
        const DWORD code = GetLastError();
        // The root of a drive has no "." that would be found when it is empty.
        if (code == ERROR_FILE_NOT_FOUND && folderExists(folder)) {
            return entries;
        }
        throw Error("FindFirstFileExW", code);
    }
    do {
        if (!isDots(data.cFileName)) {
            entries.push_back(
                {data.cFileName, (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
                 (data.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0,
                 whole(data.nFileSizeHigh, data.nFileSizeLow),
                 whole(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime)});
        }
    } while (FindNextFileW(find.get(), &data) != FALSE);
    return entries;
}

bool folderExists(const std::wstring& folder) {
    const QuietDrives quiet;
    const DWORD attributes = GetFileAttributesW(unlimited(folder).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool fileExists(const std::wstring& path) {
    const QuietDrives quiet;
    const DWORD attributes = GetFileAttributesW(unlimited(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::wstring joinPath(std::wstring_view folder, std::wstring_view name) {
    std::wstring path(folder);
    if (path.empty() || path.back() != L'\\') {
        path += L'\\';
    }
    return path.append(name);
}

std::wstring fullPath(const std::wstring& path, const std::wstring& current) {
    const bool onDrive = path.size() >= 2 && path[1] == L':';
    const bool onServer = path.starts_with(L"\\\\");
    std::wstring whole = path;
    if (onDrive && (path.size() == 2 || path[2] != L'\\')) {
        whole = path.substr(0, 2) + L"\\" + path.substr(2);
    } else if (!onDrive && !onServer) {
        const bool fromRoot = path.starts_with(L"\\");
        whole = fromRoot ? current.substr(0, 2) + path : joinPath(current, path);
    }
    const DWORD room = GetFullPathNameW(whole.c_str(), 0, nullptr, nullptr);
    std::wstring full(room, L'\0');
    full.resize(GetFullPathNameW(whole.c_str(), room, full.data(), nullptr));
    constexpr std::size_t kRootLength = 3;
    while (full.size() > kRootLength && full.back() == L'\\') {
        full.pop_back();
    }
    return full;
}

void sortNames(std::vector<std::wstring>& names) {
    text::sortNumberedNames(names, [](const std::wstring& a, const std::wstring& b) {
        const int order = StrCmpLogicalW(a.c_str(), b.c_str());
        return order != 0 ? order < 0 : a < b;
    });
}

}  // namespace platform
