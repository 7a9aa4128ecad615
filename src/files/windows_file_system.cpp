#include "files/windows_file_system.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "platform/directory.h"
#include "platform/error.h"
#include "platform/file_bytes.h"
#include "platform/handles.h"

namespace files {

namespace {

using platform::unlimitedPath;

Failure failureOf(DWORD code) {
    switch (code) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return Failure::Missing;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return Failure::Exists;
        case ERROR_ACCESS_DENIED:
            return Failure::Denied;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return Failure::InUse;
        case ERROR_WRITE_PROTECT:
            return Failure::WriteProtected;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return Failure::Full;
        default:
            return Failure::Other;
    }
}

Failure outcome(BOOL succeeded) {
    return succeeded != FALSE ? Failure::None : failureOf(GetLastError());
}

FolderEntry entryOf(std::wstring name, DWORD attributes, const FileStamp& stamp) {
    return {std::move(name), (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0, attributes & kKeptAttributes,
            stamp};
}

Failure writeAndFlush(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        constexpr std::size_t kPortion = std::size_t{1} << 20;
        DWORD written = 0;
        const auto wanted = static_cast<DWORD>(std::min(kPortion, bytes.size()));
        if (WriteFile(file, bytes.data(), wanted, &written, nullptr) == FALSE) {
            return failureOf(GetLastError());
        }
        bytes.remove_prefix(written);
    }
    return outcome(FlushFileBuffers(file));
}

Failure removeHeld(HANDLE file) {
    FILE_DISPOSITION_INFO gone{};
    gone.DeleteFile = TRUE;
    return outcome(SetFileInformationByHandle(file, FileDispositionInfo, &gone, sizeof(gone)));
}

constexpr DWORD kHeldAccess = GENERIC_READ | GENERIC_WRITE | DELETE;

class HeldWindowsFile : public HeldFile {
  public:
    explicit HeldWindowsFile(platform::File file) : file_(std::move(file)) {}

    Answer<std::string> read() override {
        Answer<std::string> answer;
        LARGE_INTEGER size{};
        if (SetFilePointerEx(file_.get(), {}, nullptr, FILE_BEGIN) == FALSE ||
            GetFileSizeEx(file_.get(), &size) == FALSE || size.QuadPart > kLargest) {
            answer.failure = Failure::Other;
            return answer;
        }
        answer.value.resize(static_cast<std::size_t>(size.QuadPart));
        DWORD got = 0;
        answer.failure = outcome(ReadFile(file_.get(), answer.value.data(),
                                          static_cast<DWORD>(answer.value.size()), &got, nullptr));
        answer.value.resize(got);
        return answer;
    }

    Failure append(std::string_view bytes) override {
        if (SetFilePointerEx(file_.get(), {}, nullptr, FILE_END) == FALSE) {
            return failureOf(GetLastError());
        }
        return writeAndFlush(file_.get(), bytes);
    }

    Failure remove() override {
        const Failure result = removeHeld(file_.get());
        if (result == Failure::None) {
            // The name goes with the last handle.
            file_.reset();
        }
        return result;
    }

  private:
    // A journal of many thousands of files is a few megabytes.
    static constexpr LONGLONG kLargest = LONGLONG{1} << 28;

    platform::File file_;
};

struct NewFile {
    Failure failure = Failure::None;
    platform::File file;
};

// Unshared: nobody else opens it before it is complete.
NewFile createWith(const std::wstring& path, std::string_view bytes) {
    platform::File file(CreateFileW(unlimitedPath(path).c_str(), kHeldAccess, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        return {failureOf(GetLastError()), platform::File()};
    }
    const Failure result = writeAndFlush(file.get(), bytes);
    if (result != Failure::None) {
        removeHeld(file.get());
        file.reset();
    }
    return {result, std::move(file)};
}

}  // namespace

Answer<std::vector<FolderEntry>> WindowsFileSystem::list(const std::wstring& folder) const {
    Answer<std::vector<FolderEntry>> answer;
    try {
        for (platform::DirectoryEntry& entry : platform::listDirectoryWithNumbers(folder)) {
            answer.value.push_back(
                entryOf(std::move(entry.name), entry.attributes, {entry.size, entry.written, entry.number}));
        }
    } catch (const platform::Error& error) {
        answer.failure = failureOf(error.code());
    }
    return answer;
}

Answer<FolderEntry> WindowsFileSystem::stat(const std::wstring& path) const {
    // One reading of the folder tells the number as every other one does, and the name as it is written.
    const std::size_t slash = path.rfind(L'\\');
    Answer<FolderEntry> answer{Failure::Missing, {}};
    if (slash == std::wstring::npos) {
        return answer;
    }
    const auto entries = list(path.substr(0, slash + 1));
    const std::wstring wanted = folded(path.substr(slash + 1));
    for (const FolderEntry& entry : entries.value) {
        if (folded(entry.name) == wanted) {
            return {Failure::None, entry};
        }
    }
    return {entries.failure == Failure::None ? Failure::Missing : entries.failure, {}};
}

Failure WindowsFileSystem::rename(const std::wstring& from, const std::wstring& to) {
    if (folded(from) == folded(to)) {
        return Failure::Exists;
    }
    return outcome(MoveFileExW(unlimitedPath(from).c_str(), unlimitedPath(to).c_str(), 0));
}

Failure WindowsFileSystem::remove(const std::wstring& path) {
    return outcome(DeleteFileW(unlimitedPath(path).c_str()));
}

Failure WindowsFileSystem::writeNew(const std::wstring& path, std::string_view bytes) {
    return createWith(path, bytes).failure;
}

Answer<std::string> WindowsFileSystem::read(const std::wstring& path) const {
    Answer<std::string> answer;
    try {
        const auto bytes = platform::readFileBytes(path, std::size_t{1} << 28);
        answer.value.assign(bytes.begin(), bytes.end());
    } catch (const platform::Error& error) {
        answer.failure = failureOf(error.code());
    }
    return answer;
}

Failure WindowsFileSystem::replace(const std::wstring& from, const std::wstring& to) {
    return outcome(MoveFileExW(unlimitedPath(from).c_str(), unlimitedPath(to).c_str(),
                               MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

Failure WindowsFileSystem::setAttributes(const std::wstring& path, std::uint32_t attributes) {
    const std::wstring file = unlimitedPath(path);
    const DWORD now = GetFileAttributesW(file.c_str());
    if (now == INVALID_FILE_ATTRIBUTES) {
        return failureOf(GetLastError());
    }
    const DWORD wanted = (now & ~kKeptAttributes) | attributes;
    return outcome(SetFileAttributesW(file.c_str(), wanted != 0 ? wanted : FILE_ATTRIBUTE_NORMAL));
}

Failure WindowsFileSystem::flushFolder(const std::wstring& folder) {
    const platform::File handle(CreateFileW(unlimitedPath(folder).c_str(), GENERIC_WRITE,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                            OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return handle ? outcome(FlushFileBuffers(handle.get())) : failureOf(GetLastError());
}

FileSystem::Held WindowsFileSystem::createHeld(const std::wstring& path, std::string_view bytes) {
    NewFile created = createWith(path, bytes);
    if (created.failure != Failure::None) {
        return {created.failure, nullptr};
    }
    return {Failure::None, std::make_unique<HeldWindowsFile>(std::move(created.file))};
}

FileSystem::Held WindowsFileSystem::openHeld(const std::wstring& path) {
    platform::File file(
        CreateFileW(unlimitedPath(path).c_str(), kHeldAccess, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) {
        return {failureOf(GetLastError()), nullptr};
    }
    return {Failure::None, std::make_unique<HeldWindowsFile>(std::move(file))};
}

std::wstring WindowsFileSystem::folded(std::wstring_view name) const {
    std::wstring upper(name);
    if (!upper.empty()) {
        LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, name.data(), static_cast<int>(name.size()),
                      upper.data(), static_cast<int>(upper.size()), nullptr, nullptr, 0);
    }
    return upper;
}

}  // namespace files
