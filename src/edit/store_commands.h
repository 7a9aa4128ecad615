#pragma once

#include <functional>
#include <string>

#include "overview/thumb_record.h"
#include "overview/thumbnail_grid.h"
#include "overview/thumbnail_store.h"
#include "ui/event_loop.h"

namespace edit {

/// Keeps the thumbnails of a folder in its store, and removes them.
class StoreCommands {
  public:
    struct Parts {
        ui::EventLoop& loop;
        overview::ThumbRecords& records;
        overview::ThumbnailGrid& grid;
        overview::ThumbnailStore& store;
    };
    explicit StoreCommands(const Parts& parts) : parts_(parts) {}

    /// How the keeping of the thumbnails ended.
    struct End {
        bool all = false;    ///< every thumbnail was made anew
        std::wstring fault;  ///< why one, or none at all, can be kept: a sentence for the user; else empty
    };
    /// Makes every thumbnail anew from its file and keeps it, in the order of the items; events run before
    /// each of them. One that cannot be kept ends it, as stop() does, and leaves those kept so far. Throws
    /// Leaving.
    End save();
    /// Ends save() before its next thumbnail.
    void stop() { stopped_ = true; }
    bool saving() const { return saving_; }
    /// Removes the kept thumbnails and their folder.
    void remove() { parts_.store.removeAll(); }

    /// So many thumbnails of all have been made.
    std::function<void(int done, int all)> onProgress;

  private:
    void progress(int done) const;
    std::wstring keep(int index);

    Parts parts_;
    bool saving_ = false;
    bool stopped_ = false;
};

}  // namespace edit
