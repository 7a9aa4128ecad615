#pragma once

#include <functional>
#include <string>

#include "app/program_state.h"
#include "app/setup_controls.h"
#include "media/music_state.h"
#include "media/video_playback.h"
#include "show/preview.h"
#include "ui/control.h"
#include "ui/event_loop.h"
#include "ui/picture_box.h"

namespace app {

/// Lets the user choose a folder and a file in it, with a preview, and keeps the folder's music list.
class FolderBrowser {
  public:
    struct Parts {
        ui::EventLoop& loop;
        ProgramState& state;
        media::MusicState& music;
        media::VideoPlayback& video;
        FolderLists lists;
        ui::PictureBox& Pic2;
        ui::Control& Start;
        ui::Control& Run;
    };
    explicit FolderBrowser(const Parts& parts);

    void driveChanged();
    void folderClicked();
    void folderChanged();
    /// Fills the lists from the folder where they begin, unless another one has been opened: naming that one
    /// tells of no change.
    void fillLists();
    void fileClicked();
    void filterClicked(int index);
    void musicClicked();
    /// Reads File1 anew and tells the number of files in its tooltip.
    void refreshCount();
    /// Shows the first sub-folder that begins with a letter at the top of Dir1; false when there is none.
    bool selectFolder(wchar_t letter);
    /// Previews the same file anew, for a window whose DPI changed.
    void previewAgain();
    /// Whether files are previewed. Off drops the preview that is on its way, and none begins.
    void setPreviewing(bool on);
    bool previewLoading() const { return preview_.loading(); }

    /// A folder is about to be read: the last moment to bring its files in order.
    std::function<void(const std::wstring& folder)> onFolder;
    /// The file that a show would begin with is another one.
    std::function<void(const std::wstring& path)> onAboutToShow;
    /// The colours of the monitor that previews are seen on.
    std::function<picture::ColourTarget()> colours;
    /// A drive cannot be read (text, title).
    std::function<void(const std::wstring& text, const std::wstring& title)> onError;

  private:
    void openFolder(const std::wstring& folder);
    void tellCount();
    void previewFile(int index, bool byUser);
    void loaded(const std::optional<picture::DecodedPicture>& picture);
    void showPicture(const picture::DecodedPicture& picture);
    void enableStart(bool enabled);
    std::wstring pathOf(int index) const;

    Parts parts_;
    show::Preview preview_;
    ui::TwipsRect previewPlace_;
    std::wstring previewed_;
    bool previewing_ = true;
};

}  // namespace app
