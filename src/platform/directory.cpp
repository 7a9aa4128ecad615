#include "platform/directory.h"

#include <windows.h>

#include <shlwapi.h>

#include <optional>
#include <utility>

#include "platform/error.h"
#include "platform/handles.h"
#include "platform/wine.h"
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

// A number that the system hands out in two halves.
std::uint64_t whole(DWORD high, DWORD low) {
    return (std::uint64_t{high} << 32U) | low;
}

bool isDots(const wchar_t* name) {
    return name[0] == L'.' && (name[1] == 0 || (name[1] == L'.' && name[2] == 0));
}

// Where the medium keeps the number of a file for good. FAT makes it up from the place of the name, which
// every rename changes.
bool keepsNumbers(HANDLE folder) {
    // Wine's volumes do not tell, and hand out the numbers of the host's file system.
    if (runsUnderWine()) {
        return true;
    }
    DWORD flags = 0;
    return GetVolumeInformationByHandleW(folder, nullptr, 0, nullptr, nullptr, &flags, nullptr, 0) != FALSE &&
           (flags & FILE_SUPPORTS_OPEN_BY_FILE_ID) != 0;
}

DirectoryEntry entryOf(std::wstring name, DWORD attributes, std::uint64_t size, std::uint64_t written) {
    DirectoryEntry entry;
    entry.name = std::move(name);
    entry.folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    entry.hidden = (attributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    entry.size = size;
    entry.written = written;
    entry.attributes = attributes;
    return entry;
}

// With the files' numbers; nothing where the file system does not answer so.
std::optional<std::vector<DirectoryEntry>> readWithNumbers(const std::wstring& folder) {
    const File handle(CreateFileW(unlimitedPath(folder).c_str(), FILE_LIST_DIRECTORY,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!handle) {
        return std::nullopt;
    }
    const bool numbers = keepsNumbers(handle.get());
    constexpr std::size_t kPortion = std::size_t{64} << 10;
    // Of 64-bit units, since the records are aligned so.
    std::vector<std::uint64_t> buffer(kPortion / sizeof(std::uint64_t));
    std::vector<DirectoryEntry> entries;
    while (GetFileInformationByHandleEx(handle.get(), FileIdBothDirectoryInfo, buffer.data(), kPortion) !=
           FALSE) {
        const auto* at = reinterpret_cast<const std::uint8_t*>(buffer.data());
        for (bool more = true; more;) {
            const auto* record = reinterpret_cast<const FILE_ID_BOTH_DIR_INFO*>(at);
            const std::wstring name(record->FileName, record->FileNameLength / sizeof(wchar_t));
            if (!isDots(name.c_str())) {
                entries.push_back(entryOf(name, record->FileAttributes,
                                          static_cast<std::uint64_t>(record->EndOfFile.QuadPart),
                                          static_cast<std::uint64_t>(record->LastWriteTime.QuadPart)));
                entries.back().number = numbers ? static_cast<std::uint64_t>(record->FileId.QuadPart) : 0;
            }
            more = record->NextEntryOffset != 0;
            at += record->NextEntryOffset;
        }
    }
    return GetLastError() == ERROR_NO_MORE_FILES ? std::optional(std::move(entries)) : std::nullopt;
}

}  // namespace

std::wstring unlimitedPath(const std::wstring& path) {
    const bool onDrive = path.size() > 2 && path[1] == L':' && path[2] == L'\\';
    return onDrive && path.size() >= MAX_PATH - 12 ? L"\\\\?\\" + path : path;
}

std::vector<DirectoryEntry> listDirectory(const std::wstring& folder) {
    const QuietDrives quiet;
    std::vector<DirectoryEntry> entries;
    WIN32_FIND_DATAW data{};
    const std::wstring wanted = unlimitedPath(joinPath(folder, L"*"));
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
                entryOf(data.cFileName, data.dwFileAttributes, whole(data.nFileSizeHigh, data.nFileSizeLow),
                        whole(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime)));
        }
    } while (FindNextFileW(find.get(), &data) != FALSE);
    return entries;
}

std::vector<DirectoryEntry> listDirectoryWithNumbers(const std::wstring& folder) {
    const QuietDrives quiet;
    std::optional<std::vector<DirectoryEntry>> listed = readWithNumbers(folder);
    return listed ? std::move(*listed) : listDirectory(folder);
}

bool folderExists(const std::wstring& folder) {
    const QuietDrives quiet;
    const DWORD attributes = GetFileAttributesW(unlimitedPath(folder).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool fileExists(const std::wstring& path) {
    const QuietDrives quiet;
    const DWORD attributes = GetFileAttributesW(unlimitedPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
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
