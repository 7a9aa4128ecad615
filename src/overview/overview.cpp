#include "overview/overview.h"

#include <commctrl.h>

#include <utility>

#include "overview/thumb_folder.h"
#include "ui/message_box.h"

namespace overview {

namespace {

constexpr int kTipWidth = 240;
/// How long a tip stays up.
constexpr int kTipMs = 10000;
constexpr const wchar_t* kMusicTitle = L"  Musik";
constexpr const wchar_t* kTooManyTitle = L"  Übersicht";

std::wstring tooManyText(int leftOut) {
    return L"Die Übersicht zeigt nur die ersten " + std::to_wstring(kMostThumbnails) +
           L" Bilder und Filme dieses Ordners; " + std::to_wstring(leftOut) + L" fehlen.";
}

}  // namespace

Overview::Overview(const Parts& parts)
    : loop_(parts.loop),
      musicNames_(parts.musicFiles),
      form_(parts.loop, parts.beside),
      view_(parts.loop, form_.Grid),
      grid_({parts.loop, parts.control, records_, store_, view_, form_.Pic2,
             [this, colours = parts.colours] { return colours(form_.hwnd()); },
             [this](HWND box, const std::wstring& text) { setTip(box, text); }}),
      selection_({records_, form_.Grid, view_}),
      drag_({parts.loop, records_, form_.Grid, view_, grid_}),
      enlarged_({parts.loop,
                 parts.control,
                 {form_.Pic3,
                  {&form_.Command[0], &form_.Command[1], &form_.Command[2], &form_.Command[3],
                   &form_.Command[4], &form_.Command[5]},
                  form_.Ton,
                  form_.Timer1},
                 records_,
                 [this] { return form_.places().grid; },
                 [this, colours = parts.colours] { return colours(form_.hwnd()); },
                 // Hidden as well, so that nothing distracts from the picture.
                 [this](bool on) {
                     form_.Grid.setEnabled(on);
                     form_.Grid.setVisible(on);
                 }}),
      musicFiles_(parts.loop, parts.fileSystem),
      music_({form_.List1, form_.List1Caption, form_.OK, form_.CAN, form_.Timer2, parts.control, parts.music,
              [this](const std::wstring& folder, const std::vector<MusicEntry>& order) {
                  return musicFiles_.rename(folder, order);
              },
              [this] { form_.layOut(); }, [this] { takeFocus(); },
              [this](const std::wstring& sentence) {
                  ui::messageBox(&form_, sentence, kMusicTitle, ui::MessageIcon::Exclamation);
              }}) {
    tips_.Create(form_.hwnd());
    tips_.setMaxTipWidth(kTipWidth);
    tips_.setDelayTime(TTDT_AUTOPOP, kTipMs);
    wire();
    wireEnlarged();
}

// The window ends after the engines, and must not tell them.
Overview::~Overview() {
    form_.Grid.disconnect();
    form_.onDpi = nullptr;
    form_.onLaidOut = nullptr;
}

void Overview::setTip(HWND box, const std::wstring& text) {
    const bool attached = !tips_.ToolText(box).empty();
    if (!attached) {
        tips_.AddTool(box, text);
    } else if (text.empty()) {
        tips_.RemoveTool(box);
    } else {
        tips_.setToolText(box, text);
    }
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
    selection_.onEnlarge = [this](int index) { enlarged_.enlarge(index); };
    selection_.onMenu = [this](int index, POINT screen) {
        drag_.cancel();
        if (onMenu) {
            onMenu(index, screen);
        }
    };
    drag_.onDropped = [this](int, int target) {
        selection_.select(target);
        if (onChanged) {
            onChanged();
        }
    };
    form_.onDpi = [this] { view_.layOut(); };
}

// One film is open at a time: none for a thumbnail while an item is enlarged.
void Overview::wireEnlarged() {
    enlarged_.onShown = [this](int index) {
        grid_.pauseFilms(index >= 0);
        if (index >= 0) {
            drag_.cancel();
            selection_.select(index);
        } else if (!music_.hasFocus()) {
            takeFocus();
        }
    };
    enlarged_.onPlaced = [this](const ui::TwipsRect& row) { form_.setRow(row); };
    form_.onKey = [this](int key, bool) { return enlarged_.isOpen() && keyWhileEnlarged(key); };
    form_.onLaidOut = [this] { enlarged_.layOut(); };
}

void Overview::takeFocus() {
    if (enlarged_.isOpen()) {
        enlarged_.takeFocus();
    } else {
        form_.Grid.setFocus();
    }
}

// The music list may stand beside the item, and its rows need the arrows too.
bool Overview::keyWhileEnlarged(int key) {
    if (key != VK_ESCAPE && music_.hasFocus()) {
        return false;
    }
    switch (key) {
        case VK_ESCAPE:
            enlarged_.close();
            return true;
        case VK_LEFT:
        case VK_UP:
            enlarged_.step(-1);
            return true;
        case VK_RIGHT:
        case VK_DOWN:
            enlarged_.step(1);
            return true;
        default:
            return false;
    }
}

void Overview::open(const std::wstring& folder, const std::wstring& pattern) {
    form_.show();
    form_.Grid.setFocus();
    loop_.doEvents();
    pattern_ = pattern;
    const int leftOut = load(folder);
    if (leftOut > 0) {
        ui::messageBox(&form_, tooManyText(leftOut), kTooManyTitle, ui::MessageIcon::Information);
    }
}

void Overview::reload() {
    load(std::wstring(records_.folder));
}

void Overview::filesRenamed() {
    store_ = ThumbnailStore(records_.folder, records_.folderNames, records_.folderWritable);
}

int Overview::load(const std::wstring& folder) {
    if (onLoad) {
        onLoad();
    }
    ThumbFolder read = readThumbFolder(folder, pattern_);
    records_ = std::move(read.records);
    store_ = std::move(read.store);
    musicFiles_.load(folder);
    music_.load(musicNames_(), records_.folderWritable);
    grid_.load();
    return read.leftOut;
}

}  // namespace overview
