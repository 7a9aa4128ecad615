#include "overview/enlarged_view.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "files/file_filter.h"
#include "media/film_window.h"
#include "platform/directory.h"
#include "platform/error.h"
#include "platform/file_bytes.h"
#include "platform/file_time.h"
#include "text/text_number.h"
#include "ui/painting.h"

namespace overview {

namespace {

constexpr const wchar_t* kMissing = L"Die Datei ist nicht mehr da.";
constexpr const wchar_t* kInUse = L"Die Datei ist in einem anderen Programm geöffnet.";
constexpr const wchar_t* kUnreadable = L"Die Datei kann nicht gelesen werden.";
constexpr const wchar_t* kNoPicture = L"Die Datei ist beschädigt oder kein Bild.";
constexpr const wchar_t* kNoFilm =
    L"Die Datei ist beschädigt oder kein Film, der hier abgespielt werden kann.";
constexpr float kReasonPoints = 11.0F;
constexpr ui::Rgb kGround = 0x000000;
constexpr ui::Rgb kReasonColour = 0xFFFFFF;

/// Why there is nothing to see of a file.
const wchar_t* reasonOf(const std::wstring& path, bool film) {
    try {
        platform::readFileBytes(path, 1);
    } catch (const platform::Error& error) {
        switch (error.code()) {
            case ERROR_FILE_NOT_FOUND:
            case ERROR_PATH_NOT_FOUND:
                return kMissing;
            case ERROR_SHARING_VIOLATION:
            case ERROR_LOCK_VIOLATION:
                return kInUse;
            default:
                return kUnreadable;
        }
    }
    return film ? kNoFilm : kNoPicture;
}

}  // namespace

EnlargedView::EnlargedView(Parts parts)
    : parts_(std::move(parts)),
      preview_(parts_.control, parts_.controls),
      decoder_(parts_.loop),
      soundWidth_(parts_.controls.Ton.width()),
      rowHeight_(parts_.controls.Command[0]->height()) {
    for (std::size_t i = 0; i < kPreviewButtons; ++i) {
        widths_[i] = parts_.controls.Command[i]->width();
    }
    preview_.onClose = [this] { close(); };
    decoder_.onLoaded = [this](std::optional<picture::DecodedPicture> picture) {
        loaded(std::move(picture));
    };
}

std::wstring EnlargedView::pathOf(int index) const {
    const ThumbRecord& record = parts_.records.thumbRecords[static_cast<std::size_t>(index)];
    return platform::joinPath(parts_.records.folder, record.fileName);
}

PreviewTexts EnlargedView::textsOf(int index) const {
    const ThumbRecord& record = parts_.records.thumbRecords[static_cast<std::size_t>(index)];
    PreviewTexts texts;
    texts.title = entryTitle(record.entry);
    texts.name = nameWithoutExtension(record.fileName);
    texts.film = film_;
    if (const auto written = platform::fileWriteTime(pathOf(index))) {
        texts.date = platform::longDate(*written) + L", " + platform::shortTime(*written);
    }
    return texts;
}

void EnlargedView::enlarge(int index) {
    if (index < 0 || index >= parts_.records.thumbCount()) {
        return;
    }
    const int opened = ++opened_;
    decoder_.cancel();
    preview_.stop();
    filmOpen_ = false;
    showButtons(false);
    index_ = index;
    film_ = !files::isPictureName(pathOf(index));
    place(film_);
    parts_.controls.Pic3.clear();
    parts_.controls.Pic3.show();
    parts_.controls.Pic3.toFront();
    parts_.enableThumbnails(false);
    if (onShown) {
        onShown(index);
    }
    parts_.loop.doEvents();
    if (opened != opened_) {
        return;
    }
    preview_.begin(textsOf(index));
    if (film_) {
        showFilm(pathOf(index));
    } else {
        showPicture(pathOf(index));
        showButtons(true);
    }
}

void EnlargedView::step(int items) {
    if (isOpen() && index_ + items >= 0 && index_ + items < parts_.records.thumbCount()) {
        enlarge(index_ + items);
    }
}

void EnlargedView::close() {
    if (!isOpen()) {
        return;
    }
    ++opened_;
    decoder_.cancel();
    preview_.stop();
    filmOpen_ = false;
    showButtons(false);
    index_ = -1;
    parts_.enableThumbnails(true);
    parts_.controls.Pic3.hide();
    parts_.controls.Pic3.drop();
    if (onPlaced) {
        onPlaced({});
    }
    if (onShown) {
        onShown(-1);
    }
}

void EnlargedView::layOut() {
    if (!isOpen()) {
        return;
    }
    const ui::TwipsRect before = parts_.controls.Pic3.place();
    place(film_);
    if (parts_.controls.Pic3.place() == before) {
        return;
    }
    if (filmOpen_) {
        media::fitFilm(parts_.control, parts_.controls.Pic3);
    } else if (film_) {
        explain();
    } else {
        showPicture(pathOf(index_));
    }
}

void EnlargedView::place(bool film) {
    std::array<ui::Twips, kPreviewButtons> widths = widths_;
    for (std::size_t i = 1; i + 1 < kPreviewButtons; ++i) {
        const bool shown = film && !parts_.controls.Command[i]->text().empty();
        widths[i] = shown ? widths_[i] : 0;
    }
    const PreviewLayout layout = layoutPreview(parts_.area(), rowHeight_, film ? soundWidth_ : 0, widths);
    // On whole pixels, so that the film and its box have one size.
    const int dpi = parts_.controls.Pic3.dpi();
    const int left = ui::toPixels(layout.box.left, dpi);
    const int top = ui::toPixels(layout.box.top, dpi);
    parts_.controls.Pic3.movePixels(left, top, ui::toPixels(layout.box.width, dpi),
                                    ui::toPixels(layout.box.height, dpi));
    for (std::size_t i = 0; i < kPreviewButtons; ++i) {
        parts_.controls.Command[i]->move(layout.buttons[i]);
    }
    parts_.controls.Ton.move(layout.sound);
    if (onPlaced) {
        onPlaced({layout.box.left, layout.sound.top, layout.box.width, rowHeight_});
    }
}

// A button that stands for nothing has no caption and is never shown.
void EnlargedView::showButtons(bool shown) {
    for (std::size_t i = 0; i < kPreviewButtons; ++i) {
        ui::PushButton& button = *parts_.controls.Command[i];
        const bool ofEachItem = i == 0 || i + 1 == kPreviewButtons;
        button.setVisible(shown && (film_ || ofEachItem) && !button.text().empty());
        button.toFront();
    }
    parts_.controls.Ton.setVisible(shown && film_);
    parts_.controls.Ton.toFront();
    if (shown) {
        takeFocus();
    }
}

void EnlargedView::takeFocus() {
    if (isOpen()) {
        parts_.controls.Command[0]->setFocus();
    }
}

void EnlargedView::showPicture(const std::wstring& path) {
    const SIZE size = parts_.controls.Pic3.clientSize();
    if (size.cx > 0 && size.cy > 0) {
        decoder_.load(path, static_cast<int>(size.cx), static_cast<int>(size.cy), parts_.colours());
    }
}

void EnlargedView::loaded(std::optional<picture::DecodedPicture> picture) {
    const SIZE size = parts_.controls.Pic3.clientSize();
    if (picture && (picture->pixels.width != size.cx || picture->pixels.height != size.cy)) {
        // The box has another size by now.
        showPicture(pathOf(index_));
    } else if (picture) {
        parts_.controls.Pic3.setImage(picture->pixels);
    } else {
        explain();
    }
}

void EnlargedView::showFilm(const std::wstring& path) {
    media::MediaControl& control = parts_.control;
    filmOpen_ = media::openFilm(control, path, parts_.controls.Pic3).error == 0;
    if (!filmOpen_) {
        explain();
    }
    control.send("set VIDEO audio all off");
    media::fitFilm(control, parts_.controls.Pic3);
    control.send("set VIDEO time format milliseconds");
    const media::MediaReply length = control.send("status VIDEO length", media::kReplySize);
    control.send("play VIDEO");
    // Some devices make their window only now.
    media::disableChildren(parts_.controls.Pic3.hwnd());
    preview_.setLength(text::numericValue(std::string_view(length.text)));
    showButtons(true);
    preview_.applySound();
    parts_.controls.Pic3.setEnabled(true);
}

void EnlargedView::explain() {
    const std::wstring& name = parts_.records.thumbRecords[static_cast<std::size_t>(index_)].fileName;
    const SIZE size = parts_.controls.Pic3.clientSize();
    // What is there may have been drawn for another size.
    parts_.controls.Pic3.clear();
    RECT place{0, 0, size.cx, size.cy};
    ui::Painting painting(place, kGround);
    InflateRect(&place, -size.cx / 20, -size.cy * 2 / 5);
    ui::FontSpec font = parts_.controls.Pic3.fontSpec();
    font.points = kReasonPoints;
    painting.text(name + L"\n" + reasonOf(pathOf(index_), film_), place,
                  ui::font(font, parts_.controls.Pic3.dpi()), kReasonColour,
                  DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
    parts_.controls.Pic3.draw([&](HDC dc) { painting.copyTo(dc); });
}

}  // namespace overview
