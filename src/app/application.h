#pragma once

#include <string>

#include "app/folder_browser.h"
#include "app/form1.h"
#include "app/form1_screen.h"
#include "app/option_sets.h"
#include "app/parameter_controls.h"
#include "app/program_state.h"
#include "app/shutdown.h"
#include "media/background_music.h"
#include "media/media_control.h"
#include "media/music_state.h"
#include "media/video_playback.h"
#include "platform/profile_file.h"
#include "platform/tray_icon.h"
#include "script/script_player.h"
#include "show/captions.h"
#include "show/picture_ahead.h"
#include "show/show_controls.h"
#include "show/slideshow.h"
#include "show/transition_runner.h"
#include "ui/event_loop.h"
#include "ui/pointer.h"

namespace app {

/// The program: its main window, its engines, and which event of the one calls which of the others.
class Application {
  public:
    /// `control` carries out the media commands; `programDir` is where the settings file lies.
    Application(ui::EventLoop& loop, media::MediaControl& control, const std::wstring& programDir);

    /// Brings the main window up, as far as a show that the parameters ask for.
    void load(const std::wstring& parameterText);

    Form1& form() { return form_; }
    const show::ShowState& showState() const { return show_; }
    ProgramState& state() { return state_; }
    media::MusicState& music() { return music_; }
    /// Whether a preview is on its way.
    bool previewLoading() const { return browser_.previewLoading(); }

  private:
    void wireSetup();
    void wireShow();
    void readEditor();
    bool typed(wchar_t character);
    void activated();
    void keepPictureByName();
    void aboutToShow(const std::wstring& path);
    void startShow();
    void pressRun();
    void showTitle();
    void showVersion();
    void setTitle(float points, const std::wstring& text);
    double shapeFor(int width, int height) const;

    ui::EventLoop& loop_;
    media::MediaControl& control_;
    ProgramState state_;
    show::ShowState show_;
    media::MusicState music_;
    platform::ProfileFile settings_;
    Form1 form_;
    Form1Screen screen_;
    ui::Pointer pointer_;
    platform::TrayIcon tray_;
    show::PictureAhead pictures_;
    show::TransitionRunner runner_;
    show::Captions captions_;
    media::VideoPlayback video_;
    media::BackgroundMusic player_;
    script::ScriptPlayer script_;
    show::Slideshow slideshow_;
    OptionSets sets_;
    FolderBrowser browser_;
    ParameterControls parameters_;
    Shutdown shutdown_;
    show::ShowControls controls_;
};

}  // namespace app
