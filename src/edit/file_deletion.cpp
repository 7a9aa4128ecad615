#include "edit/file_deletion.h"

#include "files/cache_file.h"
#include "files/file_stamp.h"
#include "overview/store_rule.h"
#include "platform/directory.h"

namespace edit {

namespace {

/// Lifts the write protection of a file until it is gone; one that stays gets it back. A lock stays: the
/// attribute of a locked picture hinders nothing, and it must not come into the show when all ends here.
class Unprotected {
  public:
    Unprotected(files::FileSystem& fileSystem, const std::wstring& path, std::uint32_t attributes)
        : fileSystem_(fileSystem),
          path_(path),
          attributes_(attributes),
          lifted_((attributes & files::kReadOnly) != 0 &&
                  fileSystem.setAttributes(path, attributes & ~files::kReadOnly) == files::Failure::None) {}
    ~Unprotected() {
        if (lifted_) {
            fileSystem_.setAttributes(path_, attributes_);
        }
    }
    Unprotected(const Unprotected&) = delete;
    Unprotected& operator=(const Unprotected&) = delete;

  private:
    files::FileSystem& fileSystem_;
    const std::wstring& path_;
    std::uint32_t attributes_;
    bool lifted_;
};

}  // namespace

FileDeletion::Result FileDeletion::remove(const std::wstring& folder, const overview::ThumbRecord& record,
                                          bool forever) {
    const std::wstring path = platform::joinPath(folder, record.fileName);
    const auto now = fileSystem_.stat(path);
    files::Failure failure = now.failure;
    bool inBin = false;
    if (failure == files::Failure::None) {
        if (now.value.folder || !files::sameFile(now.value.stamp, record.stamp)) {
            return {files::Obstacle::Changed, false};
        }
        failure = removeFile(path, now.value.attributes, forever);
        inBin = failure == files::Failure::None && !forever;
    }
    // Someone else may have been quicker; what was wanted is so.
    if (failure == files::Failure::None || failure == files::Failure::Missing) {
        removeThumbnail(folder, record.fileName);
        return {files::Obstacle::None, inBin};
    }
    return {files::obstacleOf(failure), false};
}

files::Failure FileDeletion::removeFile(const std::wstring& path, std::uint32_t attributes, bool forever) {
    const Unprotected unprotected(fileSystem_, path, attributes);
    files::Patience patience(waiting_);
    return patience.until([&] { return forever ? fileSystem_.remove(path) : bin_.put(path); });
}

// A thumbnail that other files share is not theirs either way, and made again when it is missing.
void FileDeletion::removeThumbnail(const std::wstring& folder, const std::wstring& fileName) {
    const std::wstring store = platform::joinPath(folder, overview::kStoreFolder);
    files::removeCacheFile(fileSystem_, platform::joinPath(store, overview::thumbnailName(fileName)));
}

}  // namespace edit
