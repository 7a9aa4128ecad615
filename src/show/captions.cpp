#include "show/captions.h"

#include <utility>

#include "platform/handles.h"
#include "script/picture_key.h"
#include "show/caption_rule.h"

namespace show {

namespace {

constexpr COLORREF kShadow = RGB(0, 0, 0);
constexpr wchar_t kEllipsis[] = L"\u2026";
constexpr int kTitleMargin = 8;  // pixels, of the box's own
constexpr COLORREF kBright = RGB(0, 255, 255);

// The rule centres the stamp by a width measured at half the size that it is printed in.
ui::FontSpec stampFont(bool halfSize) {
    ui::FontSpec spec;
    spec.points = static_cast<float>(kDateFontPoints) / (halfSize ? 2.0F : 1.0F);
    return spec;
}

}  // namespace

Captions::Captions(const Parts& parts) : parts_(parts) {
    parts_.Timer3.onTimer = [this] { remove(); };
}

float Captions::screenWidth() const {
    return ui::toTwips(parts_.state.screenWidth, parts_.Pic2.dpi());
}

float Captions::screenHeight() const {
    return ui::toTwips(parts_.state.screenHeight, parts_.Pic2.dpi());
}

void Captions::showTitle(const std::wstring& title) {
    title_ = title;
    placeTitle();
    parts_.UT.toFront();
    parts_.UT.show();
    parts_.Timer3.restart();
}

void Captions::placeTitle() {
    parts_.UT.setTop(titleTop(screenHeight(), parts_.UT.height()));
    parts_.UT.setText(fitted(title_));
}

void Captions::liftDate() {
    if (stamped_) {
        parts_.Pic2.image().copyFrom(parts_.Pic3.image());
    }
}

void Captions::surfaceChanged() {
    if (parts_.UT.visible()) {
        placeTitle();
    }
    if (std::exchange(stamped_, false)) {
        printDate();
    }
}

// A title wider than the screen ends in an ellipsis.
std::wstring Captions::fitted(const std::wstring& title) const {
    const HFONT font = ui::font(parts_.UT.fontSpec(), parts_.UT.dpi());
    const int room = ui::toPixels(parts_.UT.width(), parts_.UT.dpi()) - 2 * kTitleMargin;
    if (ui::measureText(title, font).cx <= room) {
        return title;
    }
    std::size_t fits = 0;
    for (std::size_t step = title.size(); step > 0; step /= 2) {
        while (fits + step < title.size() &&
               ui::measureText(title.substr(0, fits + step) + kEllipsis, font).cx <= room) {
            fits += step;
        }
    }
    // Half a character would be shown as a box.
    if (fits > 0 && IS_HIGH_SURROGATE(title[fits - 1])) {
        --fits;
    }
    return title.substr(0, fits) + kEllipsis;
}

void Captions::stampDate(const std::wstring& date) {
    parts_.Timer3.restart();
    date_ = date;
    printDate();
}

void Captions::printDate() {
    if (!stamped_) {
        parts_.Pic3.image().copyFrom(parts_.Pic2.image());
        stamped_ = true;
    }
    const int dpi = parts_.Pic2.dpi();
    const float textWidth = ui::toTwips(ui::measureText(date_, ui::font(stampFont(true), dpi)).cx, dpi);
    const auto prints = dateStamp(screenWidth(), textWidth);
    parts_.Pic2.draw([&](HDC dc) {
        const platform::Selection font(dc, ui::font(stampFont(false), dpi));
        SetBkMode(dc, TRANSPARENT);
        for (const DatePrint& print : prints) {
            SetTextColor(dc, print.bright ? kBright : kShadow);
            TextOutW(dc, ui::toPixels(print.place.left, dpi), ui::toPixels(print.place.top, dpi),
                     date_.c_str(), static_cast<int>(date_.size()));
        }
    });
}

void Captions::remove() {
    parts_.Timer3.setEnabled(false);
    const int ended = ended_;
    if (parts_.UT.visible()) {
        for (const float top : titleSlide(screenHeight(), parts_.UT.height())) {
            parts_.UT.setTop(top);
            parts_.loop.doEvents();
            parts_.loop.sleep(kSlideStepMs);
            if (ended != ended_) {
                return;
            }
        }
    }
    parts_.UT.hide();
    restoreScreen();
}

void Captions::restoreScreen() {
    if (stamped_) {
        stamped_ = false;
        parts_.Pic2.image().copyFrom(parts_.Pic3.image());
        parts_.Pic2.repaint();
    }
}

void Captions::end() {
    ++ended_;
    parts_.Timer3.setEnabled(false);
    parts_.UT.hide();
    restoreScreen();
}

void Captions::updateInformation(int effectIndex) {
    const std::wstring text = informationText(script::PictureKey(parts_.state.currentPicture), effectIndex);
    const int dpi = parts_.Text1.dpi();
    const SIZE size = ui::measureText(text, ui::font(parts_.Text1.fontSpec(), dpi));
    const float width = informationWidth(ui::toTwips(size.cx, dpi));
    parts_.Text1.setText(text);
    parts_.Text1.move(
        {informationLeft(screenWidth(), width), parts_.Text1.top(), width, parts_.Text1.height()});
}

void Captions::toggleInformation(int effectIndex) {
    updateInformation(effectIndex);
    if (!parts_.Text1.visible()) {
        parts_.Text1.toFront();
    }
    parts_.Text1.setVisible(!parts_.Text1.visible());
}

}  // namespace show
