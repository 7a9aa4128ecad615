#pragma once

#include <array>
#include <functional>
#include <string>

#include "app/preview.h"
#include "app/program_state.h"
#include "media/music_state.h"
#include "ui/control.h"
#include "ui/drive_list.h"
#include "ui/event_loop.h"
#include "ui/file_list.h"
#include "ui/folder_list.h"
#include "ui/option_button.h"
#include "ui/picture_box.h"

namespace app {

/// Lets the user choose a folder and a file in it, with a preview, and keeps the folder's music list.
class FolderBrowser {
  public:
    struct Parts {
        ui::EventLoop& loop;
        ProgramState& state;
        media::MusicState& music;
        ui::DriveList& Drive1;
        ui::FolderList& Dir1;
        ui::FileList& File1;
        ui::FileList& File2;
        std::array<ui::OptionButton*, 3> Typ;
        ui::PictureBox& Pic2;
        ui::Control& Start;
        ui::Control& Run;
        /// Opens a video as a preview in Pic2.
        std::function<void(const std::wstring& path)> openVideo;
        /// Stops and closes a video.
        std::function<void()> closeVideo;
        /// The file that a show would begin with.
        std::function<void(const std::wstring& path)> aboutToShow;
        /// Shows an error message (text, title).
        std::function<void(const std::wstring& text, const std::wstring& title)> showError;
    };
    explicit FolderBrowser(Parts parts);

    void driveChanged();
    void folderClicked();
    void folderChanged();
    void fileClicked();
    void filterClicked(int index);
    void musicClicked();
    /// Reads File1 anew and tells the number of files in its tooltip.
    void refreshCount();
    /// Shows the first sub-folder that begins with a letter at the top of Dir1; false when there is none.
    bool selectFolder(wchar_t letter);
    /// Previews the same file anew, for a window whose DPI changed.
    void previewAgain();
    /// Drops the preview that is on its way.
    void endPreview();
    bool previewLoading() const { return preview_.loading(); }

  private:
    void openFolder(const std::wstring& folder);
    void readFiles();
    void previewFile(int index, bool byUser);
    void loaded(const std::optional<platform::DecodedPicture>& picture);
    void showPicture(const platform::DecodedPicture& picture);
    void enableStart(bool enabled);
    std::wstring pathOf(int index) const;

    Parts parts_;
    Preview preview_;
    ui::TwipsRect previewPlace_;
    std::wstring previewed_;
};

}  // namespace app
