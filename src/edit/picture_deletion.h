#pragma once

#include "overview/grid_view.h"
#include "overview/thumb_record.h"
#include "overview/thumbnail_grid.h"
#include "ui/event_loop.h"

namespace edit {

/// Marks items for deletion by the next save. Nothing changes on the disk, and the entry stays with the
/// record, so that it is there again when the mark is taken back.
class PictureDeletion {
  public:
    struct Parts {
        ui::EventLoop& loop;
        overview::ThumbRecords& records;
        overview::GridView& view;
        overview::ThumbnailGrid& grid;
    };
    explicit PictureDeletion(const Parts& parts) : parts_(parts) {}

    /// Wipes the thumbnail row by row, in less than half a second, and marks the item; nothing where it is
    /// marked already, where no other item would be left, or where a show would have none. `index` is valid.
    /// Throws Leaving.
    void mark(int index);
    /// Takes the mark back; the thumbnail comes again, with the mark of its lock where it is locked.
    void takeBack(int index);

  private:
    void wipe(int index);

    Parts parts_;
};

}  // namespace edit
