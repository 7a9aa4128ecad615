#include "app/form1.h"

#include <stdexcept>
#include <utility>

#include "app/form1_layout.h"
#include "app/option_set.h"
#include "app/resource_ids.h"
#include "files/file_filter.h"
#include "show/pause_time.h"
#include "ui/control_ids.h"
#include "ui/painting.h"
#include "ui/theme.h"
#include "ui/without_redraw.h"

namespace app {

namespace {

using ui::CreateArgs;

constexpr int kRegionCorner = 50;   // pixels, both axes of the corners' ellipses
constexpr float kEdgeWidth = 1.5F;  // pixels
constexpr float kPowerShare = 0.55F;
constexpr float kRunShare = 0.5F;
constexpr float kSaveShare = 0.72F;
constexpr float kScreensSide = 24;
constexpr ui::Rgb kHeadColour = 0x17263C;
constexpr ui::Rgb kTitleColour = 0xF4F7FB;

const ui::FontSpec kCaptionFont{L"Comic Sans MS", 20.0F, false};
const ui::FontSpec kTitleFont{L"Comic Sans MS", 36.0F, false};
const ui::FontSpec kRunFont{L"Segoe UI Semibold", 13.0F, false};
const ui::FontSpec kDigitsFont{L"Segoe UI", 14.0F, false};

CreateArgs tab(ui::Window& form, int id, const ui::TwipsRect& place, const wchar_t* text = L"") {
    return {.parent = form, .id = id, .place = place, .text = text, .tabStop = true};
}

CreateArgs first(ui::Window& form, int id, const ui::TwipsRect& place, const wchar_t* text = L"") {
    CreateArgs args = tab(form, id, place, text);
    args.startsGroup = true;
    return args;
}

CreateArgs plain(ui::Window& form, int id, const ui::TwipsRect& place, const wchar_t* text = L"") {
    return {.parent = form, .id = id, .place = place, .text = text};
}

CreateArgs hidden(ui::Window& form, int id, const ui::TwipsRect& place, const wchar_t* text = L"") {
    return {.parent = form, .id = id, .place = place, .text = text, .visible = false};
}

CreateArgs withFont(CreateArgs args, const ui::FontSpec& font) {
    args.font = font;
    return args;
}

ui::OptionButton option(ui::Frame& frame, int index, ui::OptionGroup& group) {
    return {tab(frame, ui::id::kOption1 + index, layout::option(index)), group, ui::MarkPlace::Top};
}

}  // namespace

Form1::Form1(ui::EventLoop& loop, bool concealed, const ui::Curtain* curtain)
    : Form({.className = L"Form1",
            .title = L"Panorell",
            .width = layout::kWindow.width,
            .height = layout::kWindow.height,
            .borderless = true,
            .concealed = concealed,
            .curtain = curtain}),
      screenGlyph_(plain(*this, 0, layout::kScreenGlyph), layout::screensGlyph(), kScreensSide,
                   ui::theme::kMutedText),
      screenWord_(plain(*this, 0, layout::kScreenWord, L"2. Schirm"), ui::Alignment::Left, true),
      Drive1(tab(*this, ui::id::kDrive1, layout::kDrive1)),
      Dir1(tab(*this, ui::id::kDir1, layout::kDir1)),
      Typ{ui::OptionButton(first(*this, ui::id::kTyp, layout::typ(0), L"alle"), typGroup_),
          ui::OptionButton(tab(*this, ui::id::kTyp + 1, layout::typ(1), L"jpg"), typGroup_),
          ui::OptionButton(tab(*this, ui::id::kTyp + 2, layout::typ(2), L"mpg"), typGroup_)},
      File1(first(*this, ui::id::kFile1, layout::kFile1), files::isListed, files::kTypPatterns[0]),
      File2(hidden(*this, ui::id::kFile2, layout::kFile1), files::isListed, files::kMusicPattern),
      Start(tab(*this, ui::id::kStart, layout::kStart, L"Load")),
      CTRL(tab(*this, ui::id::kCTRL, layout::kCTRL, L"Übersicht"), layout::overviewGlyph(),
           layout::kGlyphSide, kPowerShare),
      Run(withFont(tab(*this, ui::id::kRun, layout::kRun, L"Dia-Show starten"), kRunFont),
          layout::playGlyph(), layout::kGlyphSide, kRunShare, ui::ButtonLook::Accent),
      IntT(withFont(tab(*this, ui::id::kIntT, layout::kIntT, L"5"), kDigitsFont),
           {.alignment = ui::Alignment::Centre}),
      Label2(plain(*this, ui::id::kLabel2, layout::kLabel2, L"Sek"), ui::Alignment::Left, true),
      IntS(tab(*this, ui::id::kIntS, layout::kIntS),
           {show::kPauseScrollMin, show::kPauseScrollMax, show::kPauseScrollInitial}),
      LoopC(first(*this, ui::id::kLoopC, layout::check(0), L"Endlos")),
      ShowFN(tab(*this, ui::id::kShowFN, layout::check(1), L"Datum")),
      Check1(tab(*this, ui::id::kCheck1, layout::check(2), L"Effekte")),
      Musik(tab(*this, ui::id::kMusik, layout::check(3), L"Musik")),
      MUTE(tab(*this, ui::id::kMUTE, layout::check(4), L"Video-Ton")),
      Screen2(tab(*this, ui::id::kScreen2, layout::kScreen2)),
      Frame1(plain(*this, ui::id::kFrame1, layout::kFrame1, L"Set")),
      setDigits_{ui::Label(plain(Frame1, 0, layout::digit(0), L"1"), ui::Alignment::Centre, true),
                 ui::Label(plain(Frame1, 0, layout::digit(1), L"2"), ui::Alignment::Centre, true),
                 ui::Label(plain(Frame1, 0, layout::digit(2), L"3"), ui::Alignment::Centre, true),
                 ui::Label(plain(Frame1, 0, layout::digit(3), L"4"), ui::Alignment::Centre, true)},
      Option1{option(Frame1, 0, setGroup_), option(Frame1, 1, setGroup_), option(Frame1, 2, setGroup_),
              option(Frame1, 3, setGroup_)},
      SAVE(first(*this, ui::id::kSAVE, layout::kSAVE, L"Einstellungen speichern"), layout::saveGlyph(),
           layout::kGlyphSide, kSaveShare),
      Help(tab(*this, ui::id::kHelp, layout::kHelp, L"Info")),
      ENDE(tab(*this, ui::id::kENDE, layout::kENDE, L"Programm beenden"), layout::powerGlyph(),
           layout::kGlyphSide, kPowerShare),
      Label1(withFont(plain(*this, ui::id::kLabel1, layout::kLabel1, L"Panorell"), kTitleFont)),
      Line1(plain(*this, ui::id::kLine1, layout::kLine1), ui::theme::kEdge),
      Line2(plain(*this, ui::id::kLine2, layout::kLine2), ui::theme::kEdge),
      EOT(withFont(hidden(*this, ui::id::kEOT, layout::kEOT, L"Ende"), kDigitsFont)),
      UT(withFont(hidden(*this, ui::id::kUT, layout::kUT, L"Untertitel"), kCaptionFont),
         {.alignment = ui::Alignment::Centre, .readOnly = true, .border = false, .mouse = false}),
      Text1(hidden(*this, ui::id::kText1, layout::kText1),
            {.alignment = ui::Alignment::Centre, .readOnly = true, .border = false, .mouse = false}),
      Pic3(plain(*this, ui::id::kPic3, layout::kPic3)),
      Pic2(plain(*this, ui::id::kPic2, layout::kPic2)),
      Pic1(hidden(*this, ui::id::kPic1, layout::kPic2)),
      Timer1(loop, 10000),
      Timer2(loop, 10, ui::Timer::Pacing::FromTick),
      Timer3(loop, 4000),
      Timer4(loop, 0),
      Timer5(loop, 2000),
      pauseWord_(plain(*this, 0, layout::kPauseWord, L"Pause"), ui::Alignment::Left, true) {
    setCards({layout::kCardWhere, layout::kCardHow});
    setMovable(true);
    wirePause();
    setToolTips();
    setAccessKeys();
    Run.setTextShown(true);
    Label1.setColour(kTitleColour);
    Typ[0].setSelected(true);
    MUTE.setValue(1);
    Musik.setValue(1);
    Check1.setValue(1);
    // No show without a folder; the overview waits for the end of the load.
    Start.setEnabled(false);
    Run.setEnabled(false);
    CTRL.setEnabled(false);
    UT.setColours(0xFFFFFF, 0x101418);
    Text1.setColours(0xFFFFFF, 0x101418);
    // Until the first preview is there the box is no black hole.
    Pic2.setBackground(ui::colorref(ui::theme::kGround));
    drawEmblem();
}

Options Form1::options() {
    return {IntT, IntS,  LoopC,  ShowFN,
            MUTE, Musik, Check1, {&Option1[0], &Option1[1], &Option1[2], &Option1[3]}};
}

ui::Choices Form1::choices() {
    return {File1, Dir1, IntS, LoopC, ShowFN, Check1, Musik, MUTE, Screen2};
}

void Form1::setToolTips() {
    Drive1.setToolTip(L"Laufwerk");
    Dir1.setToolTip(L"Ordner");
    File1.setToolTip(L"Bilder");
    Typ[0].setToolTip(L"Bilder und Videos");
    Typ[1].setToolTip(L"nur Bilder");
    Typ[2].setToolTip(L"nur Videos");
    IntT.setToolTip(L"Pausenzeit");
    LoopC.setToolTip(L"Diashow wiederholen");
    ShowFN.setToolTip(L"Datum und Zeit bei Show anzeigen");
    Check1.setToolTip(L"Überblend-Effekte wechseln");
    Musik.setToolTip(L"Hintergrund-Musik");
    MUTE.setToolTip(L"Ton bei Videos");
    Screen2.setToolTip(L"Diashow auf 2. Schirm starten");
    Run.setToolTip(L"Dia-Show starten");
    Start.setToolTip(L"Bild laden (weiter mit <SPACE>)");
    CTRL.setToolTip(L"Übersicht / beearbeiten");
    SAVE.setToolTip(kSaveTip);
    ENDE.setToolTip(L"Programm beenden");
}

// The captions stand without underlined letters.
void Form1::setAccessKeys() {
    Typ[0].setAccessKey(L'A');
    Typ[1].setAccessKey(L'J');
    Typ[2].setAccessKey(L'M');
    Start.setAccessKey(L'L');
    CTRL.setAccessKey(L'B');
    Run.setAccessKey(L'R');
    IntT.setAccessKey(L'P');
    LoopC.setAccessKey(L'E');
    ShowFN.setAccessKey(L'D');
    Check1.setAccessKey(L'F');
    Musik.setAccessKey(L'U');
    MUTE.setAccessKey(L'V');
    Screen2.setAccessKey(L'2');
    SAVE.setAccessKey(L'S');
    Help.setAccessKey(L'I');
}

// The two views of the pause time follow each other.
void Form1::wirePause() {
    IntS.onChange = [this] {
        const std::wstring text = show::pauseTextOf(IntS.value());
        // Setting the text that stands there already would take the caret away from its user.
        if (IntT.text() != text) {
            IntT.setText(text);
            IntT.caretToEnd();
        }
    };
    IntT.onChange = [this] {
        const show::PauseTextChange change = show::pauseTextChanged(IntT.text());
        if (change.emptiesText) {
            IntT.setText(L"");
        } else if (change.scroll) {
            IntS.setValue(*change.scroll);
        }
    };
}

void Form1::showSetup() {
    dropCurtain();
    applyRegion();
    show();
}

void Form1::dropCurtain() {
    Form::dropCurtain(layout::kWindow.width, layout::kWindow.height);
}

void Form1::applyRegion() {
    rounded_ = true;
    RECT window{};
    GetWindowRect(hwnd(), &window);
    // The window owns the region from here on.
    SetWindowRgn(hwnd(),
                 CreateRoundRectRgn(0, 0, window.right - window.left, window.bottom - window.top,
                                    kRegionCorner, kRegionCorner),
                 TRUE);
}

void Form1::dropRegion() {
    if (std::exchange(rounded_, false)) {
        SetWindowRgn(hwnd(), nullptr, TRUE);
    }
}

ui::Rgb Form1::groundAt(POINT place) const {
    return setup_ && place.y < ui::toPixels(layout::kHead.height, dpi()) ? kHeadColour
                                                                         : Form::groundAt(place);
}

void Form1::drawGround(ui::Painting& painting) {
    if (!setup_) {
        return;
    }
    const SIZE size = clientSize();
    const auto width = static_cast<float>(size.cx);
    const auto head = static_cast<float>(ui::toPixels(layout::kHead.height, dpi()));
    painting.shape(ui::Path().rect(0, 0, width, head), kHeadColour);
    // The region cuts its corners off without smoothing; an edge of its own follows them.
    painting.shape(ui::Path().roundRectOutline(0, 0, width, static_cast<float>(size.cy), kRegionCorner / 2.0F,
                                               kEdgeWidth),
                   kHeadColour);
}

void Form1::hideSetup() {
    // Some fifty controls, each of which would give its place back to be painted.
    const ui::WithoutRedraw still(hwnd());
    setup_ = false;
    setNavigation(false);
    setMovable(false);
    setCards({});
    setBackground(0);
    Pic2.setBackground(0);
    for (ui::Control* control : controls()) {
        control->hide();
    }
    endConcealment();
}

void Form1::drawEmblem() {
    Pic3.clear();
    const SIZE size = Pic3.clientSize();
    const platform::Icon icon(
        static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(PANORELL_ICON), IMAGE_ICON,
                                      size.cx, size.cy, LR_DEFAULTCOLOR)));
    Pic3.draw([&](HDC dc) {
        const RECT all{0, 0, size.cx, size.cy};
        SetDCBrushColor(dc, ui::colorref(kHeadColour));
        FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        DrawIconEx(dc, 0, 0, icon.get(), size.cx, size.cy, 0, nullptr, DI_NORMAL);
    });
}

// The surface of a show keeps its place; what lies on it follows.
void Form1::onDpiChanged(int dpi, const RECT& suggested) {
    if (setup_) {
        Form::onDpiChanged(dpi, suggested);
        drawEmblem();
        applyRegion();
        return;
    }
    for (ui::Control* control : controls()) {
        control->applyDpi();
    }
    if (onScreens) {
        onScreens();
    }
}

void Form1::cover(const RECT& place) {
    // A show that stands already stays behind what its user has brought before it.
    const bool again = covered_.has_value();
    covered_ = place;
    if (IsIconic(hwnd()) != FALSE) {
        return;
    }
    const UINT order = again ? SWP_NOZORDER | SWP_NOACTIVATE : visible() ? SWP_SHOWWINDOW : SWP_NOACTIVATE;
    SetWindowPos(hwnd(), HWND_TOP, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOCOPYBITS | order);
    if (visible()) {
        paintNow();
    }
}

void Form1::uncover() {
    if (!visible()) {
        Form::show();
    }
}

// Under Wine a window manager may answer late, with the place that the window had before.
void Form1::keepCovering(WINDOWPOS& wanted) const {
    if (!covered_ || IsIconic(hwnd()) != FALSE) {
        return;
    }
    wanted.x = covered_->left;
    wanted.y = covered_->top;
    wanted.cx = covered_->right - covered_->left;
    wanted.cy = covered_->bottom - covered_->top;
}

bool Form1::onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (message == WM_WINDOWPOSCHANGING) {
        keepCovering(*reinterpret_cast<WINDOWPOS*>(l));
    }
    if (onOwnerMessage) {
        onOwnerMessage(message);
    }
    if (message == WM_ENDSESSION && w != FALSE && onSessionEnd) {
        onSessionEnd();
    }
    // A window that comes back may have missed a change while it was minimised.
    const bool restored = message == WM_SIZE && std::exchange(minimised_, w == SIZE_MINIMIZED) &&
                          w != SIZE_MINIMIZED && covered_;
    if ((message == WM_DISPLAYCHANGE || restored) && onScreens) {
        onScreens();
    }
    constexpr WPARAM kCommandBits = 0xFFF0;
    const bool sleeps = message == WM_SYSCOMMAND &&
                        ((w & kCommandBits) == SC_SCREENSAVE || (w & kCommandBits) == SC_MONITORPOWER);
    if (sleeps && keepsAwake && keepsAwake()) {
        result = 0;
        return true;
    }
    return Form::onMessage(message, w, l, result);
}

}  // namespace app
