#include "overview/thumbnail_store.h"

#include <windows.h>

#include <exception>

#include "files/file_filter.h"
#include "overview/bitmap_file.h"
#include "overview/store_rule.h"
#include "picture/picture_decoder.h"
#include "platform/error.h"
#include "platform/file_bytes.h"
#include "platform/handles.h"

namespace overview {

namespace {

constexpr std::size_t kMostBytes = std::size_t{64} << 20;
constexpr int kLongestSide = 4096;
constexpr wchar_t kHalfWritten[] = L"~";  // behind the name of a file that is not complete yet

bool writeFile(const std::wstring& path, const std::vector<std::uint8_t>& bytes) {
    const platform::File file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    return file &&
           WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) !=
               FALSE &&
           written == bytes.size();
}

}  // namespace

ThumbnailStore::ThumbnailStore(const std::wstring& folder, const std::vector<std::wstring>& fileNames,
                               bool writable)
    : folder_(platform::joinPath(folder, kStoreFolder)),
      shared_(sharedThumbnails(fileNames)),
      writable_(writable) {
    try {
        for (const platform::DirectoryEntry& entry : platform::listDirectory(folder_)) {
            if (!entry.folder && files::matchesPattern(entry.name, kStorePattern)) {
                names_.insert(foldedName(entry.name));
            }
        }
    } catch (const platform::Error&) {
        // No store.
    }
    present_ = !names_.empty();
}

std::wstring ThumbnailStore::pathOf(std::wstring_view fileName) const {
    const std::wstring name = thumbnailName(fileName);
    const std::wstring folded = foldedName(name);
    return names_.contains(folded) && !shared_.contains(folded) ? platform::joinPath(folder_, name)
                                                                : std::wstring();
}

bool ThumbnailStore::save(std::wstring_view fileName, const picture::Pixels& pixels) {
    const std::wstring name = thumbnailName(fileName);
    const std::wstring folded = foldedName(name);
    if (!present_ || !writable_ || pixels.empty() || shared_.contains(folded)) {
        return false;
    }
    const std::wstring path = platform::joinPath(folder_, name);
    const std::wstring half = path + kHalfWritten;
    if (!writeFile(half, encodeBitmap(pixels)) ||
        MoveFileExW(half.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING) == FALSE) {
        DeleteFileW(half.c_str());
        return false;
    }
    names_.insert(folded);
    return true;
}

void ThumbnailStore::remove(std::wstring_view fileName) {
    const std::wstring path = pathOf(fileName);
    if (!path.empty() && DeleteFileW(path.c_str()) != FALSE) {
        names_.erase(foldedName(thumbnailName(fileName)));
    }
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
