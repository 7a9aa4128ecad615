#include "overview/grid_selection.h"

#include <optional>
#include <utility>

namespace overview {

namespace {

bool controlDown() {
    return GetKeyState(VK_CONTROL) < 0;
}

std::optional<Step> stepOf(int key) {
    switch (key) {
        case VK_LEFT:
            return Step::Left;
        case VK_RIGHT:
            return Step::Right;
        case VK_UP:
            return Step::Up;
        case VK_DOWN:
            return Step::Down;
        case VK_PRIOR:
            return Step::PageUp;
        case VK_NEXT:
            return Step::PageDown;
        case VK_HOME:
            return controlDown() ? Step::First : Step::RowStart;
        case VK_END:
            return controlDown() ? Step::Last : Step::RowEnd;
        default:
            return std::nullopt;
    }
}

}  // namespace

GridSelection::GridSelection(const Parts& parts) : parts_(parts) {
    BoxEvents& events = parts_.view.events;
    events.onEntered = [this](int index) { enter(index); };
    events.onLeft = [this](int index) { leave(index); };
    events.onDoubleClicked = [this](int index) {
        pressed(index);
        onEnlarge(index);
    };
    events.onMenu = [this](int index, POINT screen) {
        pressed(index);
        onMenu(index, screen);
    };
    parts_.panel.onMenuKey = [this] { menuAtSelection(); };
    parts_.panel.onWheelTurned = [this](int notches, bool control) {
        if (control) {
            parts_.view.zoom(notches, hot_);
        } else {
            parts_.view.scrollBy(-notches, 0);
        }
    };
}

void GridSelection::mark(int index, bool selected) {
    if (ThumbnailBox* box = parts_.view.box(index)) {
        box->setSelected(selected);
    }
}

void GridSelection::select(int index) {
    mark(std::exchange(parts_.records.pressedIndex, index), false);
    mark(index, true);
    parts_.view.bringIntoView(index);
}

void GridSelection::pressed(int index) {
    parts_.panel.setFocus();
    mark(std::exchange(parts_.records.pressedIndex, index), false);
    mark(index, true);
}

void GridSelection::enter(int index) {
    leave(hot_);
    hot_ = index;
    if (ThumbnailBox* box = parts_.view.box(index)) {
        box->setHot(true);
    }
}

void GridSelection::leave(int index) {
    if (ThumbnailBox* box = parts_.view.box(index)) {
        box->setHot(false);
    }
    if (index == hot_) {
        hot_ = -1;
    }
}

void GridSelection::menuAtSelection() {
    const int index = parts_.records.pressedIndex;
    if (index < 0 || index >= parts_.records.thumbCount()) {
        return;
    }
    parts_.view.bringIntoView(index);
    const RECT place = parts_.view.onScreen(index);
    onMenu(index, {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

bool GridSelection::zoomKey(int key) {
    if (!controlDown()) {
        return false;
    }
    const int selected = parts_.records.pressedIndex;
    switch (key) {
        case VK_OEM_PLUS:
        case VK_ADD:
            parts_.view.zoom(+1, selected);
            return true;
        case VK_OEM_MINUS:
        case VK_SUBTRACT:
            parts_.view.zoom(-1, selected);
            return true;
        case '0':
        case VK_NUMPAD0:
            parts_.view.zoom(0, selected);
            return true;
        default:
            return false;
    }
}

bool GridSelection::key(int key) {
    if (zoomKey(key)) {
        return true;
    }
    const int selected = parts_.records.pressedIndex;
    if (key == VK_RETURN && selected >= 0 && selected < parts_.records.thumbCount()) {
        onEnlarge(selected);
        return true;
    }
    if (const auto step = stepOf(key)) {
        select(stepped(parts_.view.layout(), selected, *step));
        return true;
    }
    return false;
}

}  // namespace overview
