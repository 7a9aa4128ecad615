#include "overview/overview.h"

#include <utility>

#include "overview/thumb_folder.h"
#include "ui/tooltip.h"

namespace overview {

Overview::Overview(const Parts& parts)
    : loop_(parts.loop),
      form_(parts.loop, parts.beside),
      view_(parts.loop, form_.Grid),
      grid_({parts.loop, parts.control, records_, store_, view_, form_.Pic2,
             [this, colours = parts.colours] { return colours(form_.hwnd()); },
             [this](HWND box, const std::wstring& text) { ui::Tooltip::of(form_.hwnd()).set(box, text); }}),
      selection_({records_, form_.Grid, view_}),
      drag_({parts.loop, records_, form_.Grid, view_, grid_}) {
    wire();
}

// The window ends after the engines, and must not tell them.
Overview::~Overview() {
    form_.Grid.disconnect();
    form_.onDpi = nullptr;
}

void Overview::wire() {
    grid_.onProgress = [this](int done, int all) { form_.showProgress(done, all); };
    view_.events.onPressed = [this](int index, const ui::MouseEvent& event) {
        selection_.pressed(index);
        if (event.button == ui::MouseButton::Left) {
            POINT pointer{event.x, event.y};
            ClientToScreen(view_.box(index)->hwnd(), &pointer);
            drag_.pressed(index, pointer);
        }
    };
    form_.Grid.onGroundPressed = [this](const ui::MouseEvent&) { form_.Grid.setFocus(); };
    form_.Grid.onKey = [this](int key) {
        return (key == VK_ESCAPE && drag_.cancel()) || selection_.key(key);
    };
    selection_.onEnlarge = [this](int index) {
        if (onEnlarge) {
            onEnlarge(index);
        }
    };
    selection_.onMenu = [this](int index, POINT screen) {
        drag_.cancel();
        if (onMenu) {
            onMenu(index, screen);
        }
    };
    drag_.onDropped = [this](int, int target) { selection_.select(target); };
    form_.onDpi = [this] { view_.layOut(); };
}

void Overview::open(const std::wstring& folder, const std::wstring& pattern) {
    form_.show();
    form_.Grid.setFocus();
    loop_.doEvents();
    ThumbFolder read = readThumbFolder(folder, pattern);
    records_ = std::move(read.records);
    store_ = std::move(read.store);
    grid_.load();
}

}  // namespace overview
