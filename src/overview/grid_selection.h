#pragma once

#include <functional>

#include "overview/grid_panel.h"
#include "overview/grid_view.h"
#include "overview/thumb_record.h"

namespace overview {

/// Which item of the grid is selected, and which is under the pointer; what the keyboard and the buttons do
/// with it. The selected item is the one last pressed.
class GridSelection {
  public:
    struct Parts {
        ThumbRecords& records;
        GridPanel& panel;
        GridView& view;
    };
    explicit GridSelection(const Parts& parts);

    /// Selects an item and brings it into view; -1 selects none.
    void select(int index);
    /// A mouse button went down on an item.
    void pressed(int index);
    /// A key went down; true uses it up.
    bool key(int key);

    /// The item is to be looked at large.
    std::function<void(int index)> onEnlarge;
    /// The menu of the item is wanted at a place on the screen.
    std::function<void(int index, POINT screen)> onMenu;

  private:
    void mark(int index, bool selected);
    void enter(int index);
    void leave(int index);
    void menuAtSelection();
    bool zoomKey(int key);

    Parts parts_;
    int hot_ = -1;
};

}  // namespace overview
