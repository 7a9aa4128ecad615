#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "media/media_control.h"
#include "overview/grid_view.h"
#include "overview/item_images.h"
#include "overview/thumb_record.h"
#include "overview/thumbnail_store.h"
#include "overview/thumbnail_workers.h"
#include "picture/picture_decoder.h"
#include "ui/event_loop.h"
#include "ui/picture_box.h"
#include "ui/timer.h"

namespace overview {

/// Fills the boxes of a grid with the thumbnails of its records: from the first to the last, by threads that
/// decode while the window goes on; films one by one on the window's own thread. What cannot be shown shows
/// its name.
class ThumbnailGrid {
  public:
    struct Parts {
        ui::EventLoop& loop;
        media::MediaControl& control;
        ThumbRecords& records;
        ThumbnailStore& store;
        GridView& view;
        ui::PictureBox& Pic2;  ///< hidden; films are opened in it
        /// The colours of the monitor that the window is on.
        std::function<picture::ColourTarget()> colours;
        /// Gives a box its tip; empty takes it away.
        std::function<void(HWND box, const std::wstring& text)> setTip;
    };
    explicit ThumbnailGrid(Parts parts);

    /// Makes boxes and tips for the records, and then begins to fill them.
    void load();
    /// Whether something is still to be made for what is in view.
    bool loading() const { return making_.enabled() || filling_.enabled(); }
    /// Whether an item's thumbnail is there, or its name where it cannot be shown.
    bool filled(int index) const { return at(index).filled; }
    /// An item's image as its box shows it, marks left out; empty where there is none.
    const picture::Pixels& image(int index) const { return at(index).image; }

    /// Puts the item at `source` in the place of the one at `target`: record, image and tip.
    void move(int source, int target);
    /// Makes an item's thumbnail anew from its file, now, and shows it; the answer is what may be kept in the
    /// store (as ItemImages tells). None where the file cannot be shown.
    std::optional<picture::Pixels> redraw(int index);
    /// The lock of a record has changed: its mark comes or goes.
    void lockChanged(int index);
    /// The same of a record's mark for deletion.
    void deletionChanged(int index);
    /// The tip of a record has changed.
    void tipChanged(int index);
    /// No film is opened for a thumbnail while another one plays under VIDEO.
    void pauseFilms(bool paused);
    /// Takes items out, records, images and boxes, and closes the rest up. `indices` in rising order; all
    /// work on files was stopped before.
    void remove(const std::vector<int>& indices);
    /// Ends all work on files and waits for what has begun; the grid stays as it is, and reads nothing before
    /// resume() or load().
    void stop();
    /// Goes on with what stop() has ended.
    void resume();

    /// So many items of all have been dealt with.
    std::function<void(int done, int all)> onProgress;

  private:
    struct Thumb : BoxContent {
        int item = 0;         ///< stays with the item, wherever it lies
        int version = 0;      ///< counts how often the file was changed
        bool film = false;    ///< asked for all items at every turn
        bool filled = false;  ///< dealt with at least once
        bool tipped = false;  ///< its record has a tip, which may have been changed or taken away since
    };

    const Thumb& at(int index) const { return thumbs_[static_cast<std::size_t>(index)]; }
    Thumb& at(int index) { return thumbs_[static_cast<std::size_t>(index)]; }
    const ThumbRecord& record(int index) const {
        return parts_.records.thumbRecords[static_cast<std::size_t>(index)];
    }
    std::wstring pathOf(int index) const;
    bool isFilm(int index) const { return at(index).film; }
    /// Whether an item has no image that is good enough for a layout.
    bool wantsImage(int index, const GridLayout& layout) const;
    /// The layout that an item's image is made for: of an enlarged grid only near what is seen.
    GridLayout layoutFor(int index) const;
    ThumbnailJob jobFor(int index, const GridLayout& layout) const;
    void dropBoxes();
    void makeBoxes();
    void request();
    void releaseOutOfView();
    void fill();
    bool takeResults();
    void apply(const ThumbnailResult& result);
    bool fillFilm();
    std::optional<int> nextFilm() const;
    void showFilm(int index);
    ItemImages imagesOfFilm(int index);
    ItemImages imagesOfPicture(int index) const;
    void setImage(int index, std::optional<picture::Pixels> image);
    void repaint(int index);
    void reportProgress();

    Parts parts_;
    ui::Timer making_;
    ui::Timer filling_;
    std::vector<Thumb> thumbs_;
    std::vector<int> places_;  ///< by item, where it lies now
    int done_ = 0;
    bool stale_ = false;  ///< something under way was asked for at another size
    bool filmsPaused_ = false;
    bool stopped_ = false;  ///< files may be renamed meanwhile: nothing is read
    ThumbnailWorkers workers_;
};

}  // namespace overview
