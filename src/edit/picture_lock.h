#pragma once

#include <windows.h>

#include <string>

#include "overview/thumb_record.h"
#include "overview/thumbnail_grid.h"
#include "overview/thumbnail_store.h"

namespace edit {

/// Locks items out of the show and frees them again. Only the file tells that it is locked: it is hidden.
class PictureLock {
  public:
    struct Parts {
        overview::ThumbRecords& records;
        overview::ThumbnailGrid& grid;
        overview::ThumbnailStore& store;
    };
    explicit PictureLock(const Parts& parts) : parts_(parts) {}

    /// Hides the file, whose other attributes stay, and marks its thumbnail. `index` is valid. An item that
    /// is locked already, and the last one that a show has, stay as they are; so does one whose file cannot
    /// be changed. The answer is one sentence for the user where the file is not the one that the record was
    /// read from; else empty.
    std::wstring lock(int index);
    /// Draws the thumbnail anew without the mark, also into the store's folder where there is one, and gives
    /// the file normal attributes. Else as lock().
    std::wstring unlock(int index);

  private:
    overview::ThumbRecord& record(int index) {
        return parts_.records.thumbRecords[static_cast<std::size_t>(index)];
    }
    bool setAttributes(int index, DWORD attributes, bool locked);

    Parts parts_;
};

}  // namespace edit
