#include "overview/form2.h"

#include <algorithm>
#include <vector>

#include "overview/box_picture.h"
#include "platform/monitors.h"
#include "ui/control_ids.h"
#include "ui/theme.h"

namespace overview {

namespace {

using ui::CreateArgs;

constexpr wchar_t kCaption[] = L"Reihenfolge ändern: Ziehen\r\nTitel sperren: Klick\r\nAnhören: Doppelklick";
constexpr ui::Twips kRowHeight = 420;
constexpr ui::Twips kNoticeHeight = 420;
constexpr float kNoticePoints = 13.0F;
constexpr int kFreeOfMonitor = 40;  // a fortieth of the work area is left at each side

CreateArgs shown(ui::Window& form, int id, const wchar_t* text = L"") {
    return {.parent = form, .id = id, .text = text, .tabStop = true};
}

CreateArgs hidden(ui::Window& form, int id, const wchar_t* text = L"") {
    return {.parent = form, .id = id, .text = text, .visible = false, .tabStop = true};
}

CreateArgs passive(ui::Window& form, int id, const wchar_t* text = L"") {
    return {.parent = form, .id = id, .text = text, .visible = false};
}

CreateArgs noticeArgs(ui::Window& form) {
    CreateArgs args = passive(form, ui::id::kNotice);
    args.font.points = kNoticePoints;
    return args;
}

/// In the row below the enlarged view, which places it; only its size counts.
CreateArgs ofRow(ui::Window& form, int id, const wchar_t* text, ui::Twips width) {
    CreateArgs args = hidden(form, id, text);
    args.place = {0, 0, width, kRowHeight};
    return args;
}

}  // namespace

Form2::Form2(ui::EventLoop& loop, const ui::Window& beside)
    : Form({.className = L"Form2",
            .title = L"   Übersicht",
            .width = kForm2SmallestWidth,
            .height = kForm2SmallestHeight}),
      Grid(shown(*this, ui::id::kGrid)),
      List1Caption(passive(*this, ui::id::kList1Caption, kCaption)),
      List1(hidden(*this, ui::id::kList1), ui::ListBox::Selection::Multiple),
      OK(hidden(*this, ui::id::kOK, L"OK")),
      CAN(hidden(*this, ui::id::kCAN, L"Abbruch")),
      Pic3(passive(*this, ui::id::kOverviewPic3)),
      Ton(ofRow(*this, ui::id::kTon, L"Ton ein", kTonWidth)),
      Command{ui::PushButton(ofRow(*this, ui::id::kCommand, L"X", kCommandWidth)),
              ui::PushButton(ofRow(*this, ui::id::kCommand + 1, L"<<", kCommandWidth)),
              ui::PushButton(ofRow(*this, ui::id::kCommand + 2, L"| |", kCommandWidth)),
              ui::PushButton(ofRow(*this, ui::id::kCommand + 3, L">", kCommandWidth)),
              ui::PushButton(ofRow(*this, ui::id::kCommand + 4, L"", kCommandWidth)),
              ui::PushButton(ofRow(*this, ui::id::kCommand + 5, L"", kInfoWidth))},
      Pic2(passive(*this, ui::id::kOverviewPic2)),
      Notice(noticeArgs(*this), ui::Alignment::Centre),
      Progress(passive(*this, ui::id::kProgress)),
      Timer1(loop),
      Timer2(loop) {
    setBackground(kGroundColour);
    Notice.setGround(ui::theme::kCard);
    // It shows the title of an entry.
    Command[5].setVerbatim(true);
    Command[0].setToolTip(L"SCHLIESSEN");
    Command[1].setToolTip(L"ZURÜCK");
    Command[2].setToolTip(L"PAUSE");
    Command[3].setToolTip(L"START");
    made_ = true;
    const RECT work = platform::Monitors::current().workAreaOf(beside.hwnd());
    const int across = static_cast<int>(work.right - work.left);
    const int down = static_cast<int>(work.bottom - work.top);
    SetWindowPos(hwnd(), nullptr, work.left + across / kFreeOfMonitor, work.top + down / kFreeOfMonitor,
                 across - 2 * (across / kFreeOfMonitor), down - 2 * (down / kFreeOfMonitor),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    layOut();
}

void Form2::layOut() {
    if (!made_) {
        return;
    }
    const SIZE size = clientSize();
    const bool music = List1.visible();
    places_ = layOutForm2(ui::toTwips(size.cx, dpi()), ui::toTwips(size.cy, dpi()), music);
    setGrounds();
    Grid.move(places_.grid);
    List1Caption.move(places_.caption);
    List1.move(places_.List1);
    OK.move(places_.OK);
    CAN.move(places_.CAN);
    Pic2.move(places_.grid);
    Notice.move({places_.grid.left + places_.grid.width / 4,
                 places_.grid.top + places_.grid.height / 2 - kNoticeHeight / 2, places_.grid.width / 2,
                 kNoticeHeight});
    Progress.move(places_.progress);
    if (onLaidOut) {
        onLaidOut();
    }
}

void Form2::setRow(const ui::TwipsRect& row) {
    row_ = row;
    setGrounds();
}

void Form2::setGrounds() {
    std::vector<ui::TwipsRect> cards;
    if (List1.visible()) {
        cards.push_back(places_.card);
    }
    if (row_.width > 0) {
        cards.push_back(row_);
    }
    setCards(cards);
}

void Form2::showNotice(const std::wstring& text) {
    const bool comes = !text.empty() && !Notice.visible();
    Notice.setText(text);
    Notice.setVisible(!text.empty());
    if (comes) {
        Notice.toFront();
        paintNow();
    }
}

void Form2::showProgress(int done, int all) {
    // Each of them paints the bar anew.
    if (Progress.visible() != (done < all)) {
        Progress.setVisible(done < all);
    }
    if (Progress.maximum() != std::max(1, all)) {
        Progress.setMaximum(std::max(1, all));
    }
    if (Progress.value() != done) {
        Progress.setValue(done);
    }
}

// The monitor may have less room than that.
POINT Form2::smallestSize() const {
    RECT size{0, 0, ui::toPixels(kForm2SmallestWidth, dpi()), ui::toPixels(kForm2SmallestHeight, dpi())};
    AdjustWindowRectExForDpi(&size, static_cast<DWORD>(GetWindowLongPtrW(hwnd(), GWL_STYLE)), FALSE,
                             static_cast<DWORD>(GetWindowLongPtrW(hwnd(), GWL_EXSTYLE)),
                             static_cast<UINT>(dpi()));
    const RECT work = platform::Monitors::current().workAreaOf(hwnd());
    return {std::min(size.right - size.left, work.right - work.left),
            std::min(size.bottom - size.top, work.bottom - work.top)};
}

bool Form2::onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (message == WM_GETMINMAXINFO) {
        reinterpret_cast<MINMAXINFO*>(l)->ptMinTrackSize = smallestSize();
        result = 0;
        return true;
    }
    return Form::onMessage(message, w, l, result);
}

// The window may keep its size in pixels, which is another one in twips then.
void Form2::onDpiChanged(int dpi, const RECT& suggested) {
    Form::onDpiChanged(dpi, suggested);
    layOut();
}

void Form2::onSize(int, int) {
    layOut();
}

}  // namespace overview
