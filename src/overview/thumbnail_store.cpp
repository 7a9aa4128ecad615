#include "overview/thumbnail_store.h"

#include <windows.h>

#include <exception>
#include <utility>

#include "files/file_filter.h"
#include "overview/bitmap_file.h"
#include "overview/store_rule.h"
#include "picture/picture_decoder.h"
#include "platform/directory.h"
#include "platform/error.h"
#include "platform/file_bytes.h"
#include "platform/handles.h"

namespace overview {

namespace {

constexpr std::size_t kMostBytes = std::size_t{64} << 20;
constexpr int kLongestSide = 4096;
constexpr wchar_t kHalfWritten[] = L"~";  // behind the name of a file that is not complete yet
constexpr wchar_t kOwnFiles[] = L"*.bmp;*.bmp~";

/// The names of the files in a folder that match patterns; none where there is no such folder.
std::vector<std::wstring> filesIn(const std::wstring& folder, std::wstring_view patterns) {
    std::vector<std::wstring> names;
    try {
        for (platform::DirectoryEntry& entry : platform::listDirectory(folder)) {
            if (!entry.folder && files::matchesPattern(entry.name, patterns)) {
                names.push_back(std::move(entry.name));
            }
        }
    } catch (const platform::Error&) {
        names.clear();
    }
    return names;
}

/// 0, or the system's error code.
DWORD writeFile(const std::wstring& path, const std::vector<std::uint8_t>& bytes) {
    const platform::File file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    if (!file ||
        WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == FALSE) {
        return GetLastError();
    }
    return written == bytes.size() ? 0 : ERROR_DISK_FULL;
}

/// Gives a complete file the name of the former one. 0, or the system's error code.
DWORD takePlace(const std::wstring& half, const std::wstring& path) {
    // A folder copied from a CD holds files that are write-protected.
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    return MoveFileExW(half.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING) != FALSE ? 0 : GetLastError();
}

}  // namespace

ThumbnailStore::ThumbnailStore(const std::wstring& folder, const std::vector<std::wstring>& fileNames,
                               bool writable)
    : folder_(platform::joinPath(folder, kStoreFolder)),
      shared_(sharedThumbnails(fileNames)),
      writable_(writable) {
    for (const std::wstring& name : filesIn(folder_, kStorePattern)) {
        names_.insert(foldedName(name));
    }
    keeps_ = present();
}

std::wstring ThumbnailStore::pathOf(std::wstring_view fileName) const {
    const std::wstring name = thumbnailName(fileName);
    const std::wstring folded = foldedName(name);
    return names_.contains(folded) && !shared_.contains(folded) ? platform::joinPath(folder_, name)
                                                                : std::wstring();
}

unsigned long ThumbnailStore::save(std::wstring_view fileName, const picture::Pixels& pixels) {
    const std::wstring name = thumbnailName(fileName);
    const std::wstring folded = foldedName(name);
    if (!keeps_ || !writable_ || pixels.empty() || shared_.contains(folded)) {
        return 0;
    }
    const std::wstring path = platform::unlimitedPath(platform::joinPath(folder_, name));
    const std::wstring half = path + kHalfWritten;
    DWORD code = writeFile(half, encodeBitmap(pixels));
    if (code == 0) {
        code = takePlace(half, path);
    }
    if (code != 0) {
        DeleteFileW(half.c_str());
        return code;
    }
    names_.insert(folded);
    return 0;
}

void ThumbnailStore::remove(std::wstring_view fileName) {
    const std::wstring path = pathOf(fileName);
    if (!path.empty() && DeleteFileW(platform::unlimitedPath(path).c_str()) != FALSE) {
        names_.erase(foldedName(thumbnailName(fileName)));
    }
}

bool ThumbnailStore::folderThere() const {
    return platform::folderExists(folder_);
}

unsigned long ThumbnailStore::create() {
    DWORD code = writable_ ? 0 : ERROR_ACCESS_DENIED;
    if (code == 0 && !folderThere() &&
        CreateDirectoryW(platform::unlimitedPath(folder_).c_str(), nullptr) == FALSE) {
        code = GetLastError();
    }
    keeps_ = code == 0;
    return code;
}

void ThumbnailStore::removeAll() {
    for (const std::wstring& name : filesIn(folder_, kOwnFiles)) {
        const std::wstring path = platform::unlimitedPath(platform::joinPath(folder_, name));
        // A folder copied from a CD holds files that are write-protected.
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (DeleteFileW(path.c_str()) != FALSE) {
            names_.erase(foldedName(name));
        }
    }
    RemoveDirectoryW(platform::unlimitedPath(folder_).c_str());
    keeps_ = present();
}

std::optional<picture::Pixels> readThumbnail(const std::wstring& path) {
    try {
        const auto bytes = platform::readFileBytes(path, kMostBytes);
        if (auto pixels = decodeBitmap(bytes)) {
            return pixels;
        }
        // Other programs write other kinds of bitmaps.
        return picture::decodeScaledToFit(path, kLongestSide, kLongestSide).pixels;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace overview
