#pragma once

#include <string>

#include "app/first_picture.h"
#include "app/form1.h"
#include "app/overview.h"
#include "app/parameter_text.h"
#include "app/program_state.h"
#include "app/setup.h"
#include "app/show.h"
#include "app/shutdown.h"
#include "app/surface_settings.h"
#include "files/windows_file_system.h"
#include "media/media_control.h"
#include "platform/profile_file.h"
#include "platform/tray_icon.h"
#include "show/picture_ahead.h"
#include "ui/event_loop.h"

namespace app {

/// The program: its main window, the set-up and the show in it, and which event of the one calls the other.
class Application {
  public:
    /// `control` carries out the media commands; `programDir` is where the settings file lies. Where
    /// `parameters` start a show at once, its first picture is on the screen already, and the set-up is not
    /// seen unless there is nothing to show.
    Application(ui::EventLoop& loop, media::MediaControl& control, const std::wstring& programDir,
                const Parameters& parameters = {});

    /// Brings the main window up, as far as a show that the parameters ask for.
    void load(const std::wstring& parameterText);

    Form1& form() { return form_; }
    /// The overview; null before it was opened.
    overview::Overview* overview() { return overview_.opened(); }
    const show::ShowState& showState() const { return show_.state(); }
    ProgramState& state() { return state_; }
    media::MusicState& music() { return show_.music(); }
    /// Whether a preview is on its way.
    bool previewLoading() { return setup_.browser().previewLoading(); }

  private:
    void wireSetup();
    void wireShow();
    void wireWindow();
    bool typed(wchar_t character);
    void begin(void (Show::*how)());
    void loadBehind(const std::wstring& parameterText);
    void showUnlessSeen();
    void restart();

    ui::EventLoop& loop_;
    files::WindowsFileSystem fileSystem_;
    ProgramState state_;
    platform::ProfileFile settings_;
    SurfaceSettings surfaces_;
    show::PictureAhead pictures_;
    FirstPicture first_;
    Form1 form_;
    platform::TrayIcon tray_;
    Show show_;
    Setup setup_;
    Shutdown shutdown_;
    Overview overview_;
    /// Escape is held down, so the characters that come are its repetitions.
    bool escapeHeld_ = false;
};

}  // namespace app
