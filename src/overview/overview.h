#pragma once

#include <functional>
#include <string>

#include "media/media_control.h"
#include "overview/form2.h"
#include "overview/grid_selection.h"
#include "overview/grid_view.h"
#include "overview/thumb_record.h"
#include "overview/thumbnail_drag.h"
#include "overview/thumbnail_grid.h"
#include "overview/thumbnail_store.h"
#include "picture/picture_decoder.h"
#include "ui/event_loop.h"

namespace overview {

/// The overview of one folder: its window, its engines, and which event of the one calls the other.
class Overview {
  public:
    struct Parts {
        ui::EventLoop& loop;
        media::MediaControl& control;
        /// The window in whose place the overview comes.
        const ui::Window& beside;
        /// The colours of the monitor that a window lies on.
        std::function<picture::ColourTarget(HWND)> colours;
    };
    explicit Overview(const Parts& parts);
    ~Overview();
    Overview(const Overview&) = delete;
    Overview& operator=(const Overview&) = delete;

    /// Shows the window and begins to load the files of a folder that match a pattern. Throws Leaving.
    void open(const std::wstring& folder, const std::wstring& pattern);

    Form2& form() { return form_; }
    ThumbRecords& records() { return records_; }
    ThumbnailStore& store() { return store_; }
    ThumbnailGrid& grid() { return grid_; }
    GridView& view() { return view_; }
    GridSelection& selection() { return selection_; }
    ThumbnailDrag& drag() { return drag_; }

    /// An item is to be looked at large: double click or return key.
    std::function<void(int index)> onEnlarge;
    /// The menu of an item is wanted; records().pressedIndex is that item already.
    std::function<void(int index, POINT screen)> onMenu;

  private:
    void wire();

    ui::EventLoop& loop_;
    ThumbRecords records_;
    ThumbnailStore store_;
    Form2 form_;
    GridView view_;
    ThumbnailGrid grid_;
    GridSelection selection_;
    ThumbnailDrag drag_;
};

}  // namespace overview
