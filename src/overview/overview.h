#pragma once

#include <functional>
#include <string>
#include <vector>

#include "files/file_system.h"
#include "media/media_control.h"
#include "media/music_state.h"
#include "overview/enlarged_view.h"
#include "overview/form2.h"
#include "overview/grid_selection.h"
#include "overview/grid_view.h"
#include "overview/music_files.h"
#include "overview/music_list.h"
#include "overview/thumb_record.h"
#include "overview/thumbnail_drag.h"
#include "overview/thumbnail_grid.h"
#include "overview/thumbnail_store.h"
#include "picture/picture_decoder.h"
#include "ui/clstt.h"
#include "ui/event_loop.h"

namespace overview {

/// The overview of one folder: its window, its engines, and which event of the one calls the other.
class Overview {
  public:
    struct Parts {
        ui::EventLoop& loop;
        media::MediaControl& control;
        /// The window in whose place the overview comes.
        const ui::Window& beside;
        files::FileSystem& fileSystem;
        media::MusicState& music;
        /// The colours of the monitor that a window lies on.
        std::function<picture::ColourTarget(HWND)> colours;
        /// The names of the folder's music files, in their order.
        std::function<std::vector<std::wstring>()> musicFiles;
    };
    explicit Overview(const Parts& parts);
    ~Overview();
    Overview(const Overview&) = delete;
    Overview& operator=(const Overview&) = delete;

    /// Shows the window and begins to load the files of a folder that match a pattern. Throws Leaving.
    void open(const std::wstring& folder, const std::wstring& pattern);

    Form2& form() { return form_; }
    ThumbRecords& records() { return records_; }
    ThumbnailStore& store() { return store_; }
    ThumbnailGrid& grid() { return grid_; }
    GridView& view() { return view_; }
    GridSelection& selection() { return selection_; }
    ThumbnailDrag& drag() { return drag_; }
    EnlargedView& enlarged() { return enlarged_; }
    MusicList& music() { return music_; }
    const ui::clstt& tips() const { return tips_; }

    /// Loads the same files anew.
    void reload();
    /// The files of the records have other names now, and so have their thumbnails in the store.
    void filesRenamed();

    /// The items are about to be read anew, and their boxes to be made anew.
    std::function<void()> onLoad;
    /// The order of the items has changed.
    std::function<void()> onChanged;
    /// The menu of an item is wanted; records().pressedIndex is that item already.
    std::function<void(int index, POINT screen)> onMenu;

  private:
    /// How many files of the folder were too many.
    int load(const std::wstring& folder);
    void setTip(HWND box, const std::wstring& text);
    void wire();
    void wireEnlarged();
    bool keyWhileEnlarged(int key);
    /// Gives the keyboard to what is shown: the thumbnails or the enlarged item.
    void takeFocus();

    ui::EventLoop& loop_;
    std::function<std::vector<std::wstring>()> musicNames_;
    std::wstring pattern_;
    ThumbRecords records_;
    ThumbnailStore store_;
    Form2 form_;
    GridView view_;
    ui::clstt tips_;
    ThumbnailGrid grid_;
    GridSelection selection_;
    ThumbnailDrag drag_;
    EnlargedView enlarged_;
    MusicFiles musicFiles_;
    MusicList music_;
};

}  // namespace overview
