#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/form1.h"
#include "app/shutdown.h"
#include "app/surface_settings.h"
#include "edit/editing.h"
#include "edit/operations.h"
#include "files/windows_file_system.h"
#include "media/media_control.h"
#include "media/music_state.h"
#include "media/video_playback.h"
#include "overview/overview.h"
#include "platform/tray_icon.h"
#include "ui/event_loop.h"

namespace app {

/// The way from the set-up window into the overview and out of it again.
class Overview {
  public:
    struct Parts {
        ui::EventLoop& loop;
        media::MediaControl& control;
        Form1& form;
        platform::TrayIcon& tray;
        SurfaceSettings& surfaces;
        media::MusicState& music;
        media::VideoPlayback& video;
        Shutdown& shutdown;
        ProgramState& state;
        const platform::ProfileFile& settings;
    };
    explicit Overview(const Parts& parts) : parts_(parts) {}

    /// Leaves the set-up for the overview of its folder. Its file list must not be empty, and nothing is
    /// previewed any more. Throws Leaving.
    void open();
    /// The set-up's hidden window is to be closed: the overview is, as if its own window was. False where the
    /// overview is not open.
    bool close();
    /// The overview; null before it was opened.
    overview::Overview* opened() { return overview_ ? &*overview_ : nullptr; }

    /// What edits in it; null as the overview.
    edit::Editing* editing() { return editing_ ? &*editing_ : nullptr; }

  private:
    void make();
    void reload();
    std::vector<std::wstring> listed() const;
    std::vector<std::wstring> titles() const;
    void leave(std::optional<int> startIndex);
    bool keepEditor(const std::wstring& path) const;

    Parts parts_;
    files::WindowsFileSystem fileSystem_;
    std::optional<overview::Overview> overview_;
    std::optional<edit::Editing> editing_;
    std::optional<edit::Operations> operations_;
};

}  // namespace app
