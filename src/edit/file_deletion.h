#pragma once

#include <string>

#include "edit/bin.h"
#include "files/file_system.h"
#include "files/patience.h"
#include "files/plan_check.h"
#include "overview/thumb_record.h"

namespace edit {

/// Deletes the files of items together with their stored thumbnails.
class FileDeletion {
  public:
    struct Result {
        files::Obstacle obstacle = files::Obstacle::None;  ///< None: the file is gone
        bool inBin = false;                                ///< and can be had back
    };

    /// All outlive this.
    FileDeletion(files::FileSystem& fileSystem, Bin& bin, const files::Waiting& waiting)
        : fileSystem_(fileSystem), bin_(bin), waiting_(waiting) {}

    /// Puts the file of a record into the bin, or destroys it where `forever`. Tries again for three seconds
    /// where another program is in the way. A file that is gone already counts as deleted; one that is not
    /// the record's own is Changed and stays. What stays keeps attributes and thumbnail, also when waiting
    /// throws.
    Result remove(const std::wstring& folder, const overview::ThumbRecord& record, bool forever);

  private:
    files::Failure removeFile(const std::wstring& path, std::uint32_t attributes, bool forever);
    void removeThumbnail(const std::wstring& folder, const std::wstring& fileName);

    files::FileSystem& fileSystem_;
    Bin& bin_;
    const files::Waiting& waiting_;
};

}  // namespace edit
