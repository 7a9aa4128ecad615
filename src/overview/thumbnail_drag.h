#pragma once

#include <functional>
#include <memory>

#include "overview/grid_panel.h"
#include "overview/grid_view.h"
#include "overview/thumb_record.h"
#include "overview/thumbnail_grid.h"
#include "ui/drag_image.h"
#include "ui/event_loop.h"
#include "ui/timer.h"

namespace overview {

/// Puts an item of the grid in another one's place by dragging it there with the mouse. A mark tells where it
/// will land; a drop beside all items or on itself changes nothing, and so does whatever ends the dragging
/// before.
class ThumbnailDrag {
  public:
    struct Parts {
        ui::EventLoop& loop;
        ThumbRecords& records;
        GridPanel& panel;
        GridView& view;
        ThumbnailGrid& grid;
    };
    explicit ThumbnailDrag(const Parts& parts);
    /// Cleans up what is on the screen, when the window goes in the middle of it.
    ~ThumbnailDrag();
    ThumbnailDrag(const ThumbnailDrag&) = delete;
    ThumbnailDrag& operator=(const ThumbnailDrag&) = delete;

    /// The left button went down on an item: moved further than the system's drag distance it is dragged.
    void pressed(int index, POINT screen);
    /// Ends the dragging without a drop; false when there is none.
    bool cancel();
    bool dragging() const { return image_ != nullptr; }

    /// An item was put in another one's place.
    std::function<void(int source, int target)> onDropped;

  private:
    void moved(POINT screen);
    void released(POINT screen);
    void begin(POINT screen);
    void aim(POINT screen);
    void mark(int target);
    void scroll();
    void end();

    Parts parts_;
    ui::Timer scrolling_;
    int dragSource_ = -1;  ///< the item that is held; -1 for none
    int dropTarget_ = -1;
    POINT origin_{};
    std::unique_ptr<ui::DragImage> image_;
};

}  // namespace overview
