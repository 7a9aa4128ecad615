#pragma once

#include <functional>
#include <optional>
#include <string>

#include "overview/thumb_record.h"
#include "overview/video_preview.h"
#include "picture/picture_decoder.h"
#include "show/preview.h"
#include "ui/event_loop.h"
#include "ui/twips.h"

namespace overview {

/// Shows one item of the overview large, over the thumbnails: a picture painted by the fit rule, a film
/// played with its buttons below it.
class EnlargedView {
  public:
    struct Parts {
        ui::EventLoop& loop;
        media::MediaControl& control;
        PreviewControls controls;
        const ThumbRecords& records;
        /// The place of the thumbnails, which box and buttons cover; twips of the form.
        std::function<ui::TwipsRect()> area;
        /// The colours of the monitor.
        std::function<picture::ColourTarget()> colours;
        /// Lets the thumbnails take mouse and keys, or not.
        std::function<void(bool)> enableThumbnails;
    };
    explicit EnlargedView(Parts parts);

    /// Shows the item in the place of the one that is enlarged now, if any. An index that there is no item
    /// for does nothing.
    void enlarge(int index);
    /// Goes on by so many items, as far as there are any.
    void step(int items);
    /// Closes the view and what it has open; nothing when it is not open.
    void close();
    bool isOpen() const { return index_ >= 0; }
    /// The item shown, or -1.
    int index() const { return index_; }
    /// Gives the keyboard to the buttons; nothing when it is not open.
    void takeFocus();
    /// Fits box, buttons and what is shown to the form's present size.
    void layOut();

    /// The row of buttons lies there now; an empty place when there is none.
    std::function<void(const ui::TwipsRect& row)> onPlaced;
    /// Another item is enlarged, or none any more (-1).
    std::function<void(int index)> onShown;

  private:
    void place(bool film);
    void showButtons(bool shown);
    void showPicture(const std::wstring& path);
    void showFilm(const std::wstring& path);
    void loaded(std::optional<picture::DecodedPicture> picture);
    /// Writes into the box why there is nothing to see.
    void explain();
    std::wstring pathOf(int index) const;
    PreviewTexts textsOf(int index) const;

    Parts parts_;
    VideoPreview preview_;
    show::Preview decoder_;
    std::array<ui::Twips, kPreviewButtons> widths_;
    ui::Twips soundWidth_;
    ui::Twips rowHeight_;
    int index_ = -1;
    int opened_ = 0;  ///< counts the items enlarged, since another one may come while events run
    bool film_ = false;
    bool filmOpen_ = false;
};

}  // namespace overview
