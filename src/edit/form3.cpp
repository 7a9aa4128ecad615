#include "edit/form3.h"

#include "ui/control_ids.h"
#include "ui/placement.h"
#include "ui/theme.h"

namespace edit {

namespace {

using ui::CreateArgs;

// In pixels of 96 DPI, which is what the layout is thought in.
constexpr ui::TwipsRect at(float left, float top, float width, float height) {
    constexpr float kTwips = 15;
    return {left * kTwips, top * kTwips, width * kTwips, height * kTwips};
}

// Beside the card there is room for an arrow on either side.
constexpr ui::TwipsRect kWindow = at(0, 0, 448, 272);
constexpr ui::TwipsRect kCard = at(32, 16, 384, 196);
constexpr ui::TwipsRect kLabel3 = at(46, 22, 356, 22);
constexpr ui::TwipsRect kUTT = at(46, 46, 356, 30);
constexpr ui::TwipsRect kLabel1 = at(46, 82, 104, 22);
constexpr ui::TwipsRect kCombo1 = at(46, 106, 104, 30);
constexpr ui::TwipsRect kLabel2 = at(166, 82, 124, 22);
constexpr ui::TwipsRect kCombo2 = at(166, 106, 124, 30);
constexpr ui::TwipsRect kCheck1 = at(314, 107, 88, 28);
constexpr ui::TwipsRect kLabel4 = at(46, 142, 356, 22);
constexpr ui::TwipsRect kCombo3 = at(46, 166, 356, 30);
constexpr ui::TwipsRect kOK = at(196, 224, 104, 34);
constexpr ui::TwipsRect kCANCEL = at(312, 224, 104, 34);
constexpr ui::TwipsRect kIm1 = at(4, 0, 24, 24);
constexpr ui::TwipsRect kIm2 = at(420, 0, 24, 24);
constexpr float kArrowSide = 24;

CreateArgs tab(ui::Window& form, int id, const ui::TwipsRect& place, const wchar_t* text = L"") {
    return {.parent = form, .id = id, .place = place, .text = text, .tabStop = true};
}

CreateArgs plain(ui::Window& form, int id, const ui::TwipsRect& place, const wchar_t* text = L"") {
    return {.parent = form, .id = id, .place = place, .text = text};
}

CreateArgs hidden(ui::Window& form, int id, const ui::TwipsRect& place) {
    return {.parent = form, .id = id, .place = place, .visible = false};
}

ui::Path leftArrow() {
    ui::Path path;
    path.polygon({{2, 12}, {20, 1}, {20, 23}});
    return path;
}

ui::Path rightArrow() {
    ui::Path path;
    path.polygon({{22, 12}, {4, 23}, {4, 1}});
    return path;
}

}  // namespace

Form3::Form3(const ui::Window& overview)
    : Form({.className = L"Form3",
            .title = L"   Untertitel  bearbeiten",
            .width = kWindow.width,
            .height = kWindow.height,
            .fixedSize = true,
            .owner = &overview}),
      Label3(plain(*this, ui::id::kEntryLabel1 + 2, kLabel3, L"Titel:"), ui::Alignment::Left, true),
      UTT(tab(*this, ui::id::kUTT, kUTT)),
      Label1(plain(*this, ui::id::kEntryLabel1, kLabel1, L"Pause: (Sek)"), ui::Alignment::Left, true),
      Combo1(tab(*this, ui::id::kCombo1, kCombo1)),
      Label2(plain(*this, ui::id::kEntryLabel1 + 1, kLabel2, L"nächster Effekt:"), ui::Alignment::Left, true),
      Combo2(tab(*this, ui::id::kCombo2, kCombo2)),
      Check1(tab(*this, ui::id::kEntryCheck1, kCheck1, L"Datum")),
      Label4(plain(*this, ui::id::kEntryLabel1 + 3, kLabel4, L"Musik:"), ui::Alignment::Left, true),
      Combo3(tab(*this, ui::id::kCombo3, kCombo3)),
      OK(tab(*this, ui::id::kEntryOK, kOK, L"OK"), ui::ButtonLook::Accent),
      CANCEL(tab(*this, ui::id::kEntryCANCEL, kCANCEL, L"Abbruch")),
      Im1(hidden(*this, ui::id::kIm1, kIm1), leftArrow(), kArrowSide, ui::theme::kAccent),
      Im2(hidden(*this, ui::id::kIm2, kIm2), rightArrow(), kArrowSide, ui::theme::kAccent) {
    setCards({kCard});
    for (const std::wstring& item : pauseItems()) {
        Combo1.add(item);
    }
    for (const std::wstring& item : effectItems()) {
        Combo2.add(item);
    }
    // The captions stand without underlined letters, as those of the set-up window.
    UTT.setAccessKey(L'T');
    Combo1.setAccessKey(L'P');
    Combo2.setAccessKey(L'E');
    Check1.setAccessKey(L'D');
    Combo3.setAccessKey(L'M');
    OK.setAccessKey(L'O');
    CANCEL.setAccessKey(L'A');
}

void Form3::pointAt(bool left, int screenHeight) {
    POINT pointed{0, screenHeight};
    ScreenToClient(hwnd(), &pointed);
    const ui::Stretch middle{static_cast<int>(pointed.y), static_cast<int>(pointed.y)};
    const int arrow = ui::toPixels(kIm1.height, dpi());
    const int top = ui::centredOver(middle, arrow, {0, static_cast<int>(clientSize().cy)});
    Im1.setTop(ui::toTwips(top, dpi()));
    Im2.setTop(ui::toTwips(top, dpi()));
    Im1.setVisible(left);
    Im2.setVisible(!left);
}

EntryTexts Form3::texts() const {
    return {UTT.text(), Combo1.text(), Combo2.text(), Check1.value() == BST_CHECKED, Combo3.text()};
}

// The focus is in the title from the beginning, however late the window becomes the active one.
void Form3::onFocus(bool gained) {
    Form::onFocus(gained);
    if (gained && hwnd() == GetFocus()) {
        UTT.setFocus();
    }
}

}  // namespace edit
