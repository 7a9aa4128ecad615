#include "platform/file_facts.h"

#include <windows.h>

#include "platform/directory.h"
#include "platform/file_time.h"
#include "platform/handles.h"
#include "platform/wine.h"

namespace platform {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

File openFor(const std::wstring& path, DWORD access) {
    return File(
        CreateFileW(unlimitedPath(path).c_str(), access, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
}

// FAT makes up the number of a file from the place of its name, which every rename changes. Wine's volumes do
// not tell, and hand out the numbers of the host's file system.
bool keepsNumbers(HANDLE file) {
    DWORD flags = 0;
    return runsUnderWine() ||
           (GetVolumeInformationByHandleW(file, nullptr, 0, nullptr, nullptr, &flags, nullptr, 0) != FALSE &&
            (flags & FILE_SUPPORTS_OPEN_BY_FILE_ID) != 0);
}

std::uint64_t whole(DWORD high, DWORD low) {
    return (std::uint64_t{high} << 32U) | low;
}

}  // namespace

std::optional<FileFacts> readFileFacts(const std::wstring& path) {
    const File file = openFor(path, FILE_READ_ATTRIBUTES);
    BY_HANDLE_FILE_INFORMATION told{};
    if (!file || GetFileInformationByHandle(file.get(), &told) == FALSE) {
        return std::nullopt;
    }
    FileFacts facts;
    facts.size = whole(told.nFileSizeHigh, told.nFileSizeLow);
    facts.number = keepsNumbers(file.get()) ? whole(told.nFileIndexHigh, told.nFileIndexLow) : 0;
    facts.times = {fileTimeNumber(told.ftCreationTime), fileTimeNumber(told.ftLastAccessTime),
                   fileTimeNumber(told.ftLastWriteTime)};
    facts.hidden = (told.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    return facts;
}

unsigned long writeFileTimes(const std::wstring& path, const FileTimes& times) {
    const File file = openFor(path, FILE_WRITE_ATTRIBUTES);
    const FILETIME created = toFileTime(times.created);
    const FILETIME accessed = toFileTime(times.accessed);
    const FILETIME written = toFileTime(times.written);
    const bool done = file && SetFileTime(file.get(), &created, &accessed, &written) != FALSE;
    return done ? 0 : GetLastError();
}

bool setFileHidden(const std::wstring& path, bool hidden) {
    const std::wstring file = unlimitedPath(path);
    const DWORD former = GetFileAttributesW(file.c_str());
    const DWORD others = former & ~static_cast<DWORD>(FILE_ATTRIBUTE_HIDDEN);
    return former != INVALID_FILE_ATTRIBUTES &&
           SetFileAttributesW(file.c_str(), hidden ? others | FILE_ATTRIBUTE_HIDDEN : others) != FALSE;
}

}  // namespace platform
