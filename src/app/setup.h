#pragma once

#include <functional>
#include <string>

#include "app/folder_browser.h"
#include "app/form1.h"
#include "app/option_sets.h"
#include "app/parameter_controls.h"
#include "app/program_state.h"
#include "media/music_state.h"
#include "media/video_playback.h"
#include "platform/profile_file.h"
#include "ui/event_loop.h"

namespace app {

/// The set-up of a show in the main window: its engines, and which events of the window they answer.
class Setup {
  public:
    struct Parts {
        ui::EventLoop& loop;
        Form1& form;
        ProgramState& state;
        const platform::ProfileFile& settings;
        media::MusicState& music;
        media::VideoPlayback& video;
    };
    explicit Setup(const Parts& parts);

    /// Fills the controls from the parameters, or from the active option set where there are none.
    void load(const std::wstring& parameterText);
    /// A character was typed that no show has a use for; true uses it up.
    bool typed(wchar_t character);
    /// The pointer moved over the window or over its emblem: its title, or title and version, stand there.
    void showTitle();
    void showVersion();

    FolderBrowser& browser() { return browser_; }
    const ParameterControls& parameters() const { return parameters_; }

  private:
    void wire();
    void readEditor();
    void setTitle(float points, const std::wstring& text);

    Parts parts_;
    OptionSets sets_;
    FolderBrowser browser_;
    ParameterControls parameters_;
};

}  // namespace app
