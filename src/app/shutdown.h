#pragma once

#include <optional>

#include "app/parameter_controls.h"
#include "app/program_state.h"
#include "media/media_control.h"
#include "platform/tray_icon.h"
#include "ui/event_loop.h"
#include "ui/picture_box.h"

namespace app {

/// Told where the program cannot be started anew.
inline constexpr const wchar_t* kNoRestart = L"Panorell konnte nicht neu gestartet werden.";
inline constexpr const wchar_t* kNoRestartTitle = L" Fehler";

/// The ways out of the program. None asks, and none stores settings. The first one that is taken counts: a
/// second Escape that waited in the queue does nothing.
class Shutdown {
  public:
    struct Parts {
        ui::EventLoop& loop;
        media::MediaControl& control;
        platform::TrayIcon& tray;
        const ParameterControls& parameters;
        ProgramState& state;
        ui::PictureBox& Pic2;
        ui::PictureBox& Pic3;
    };
    explicit Shutdown(const Parts& parts) : parts_(parts) {}

    /// Ends the program and leaves a command line on the clipboard that starts it like this again.
    void clipboardEnd();
    /// Ends a show: media stop, the window goes.
    void showEnd();
    /// Starts the program anew with the settings of now and the picture last chosen, and ends this one. False
    /// when it cannot be started: this one goes on then.
    bool restart();

    /// Ends a film and starts the program anew, which has half a second to come before this one ends;
    /// `startIndex`: of the picture to preselect, none for the one last chosen. False as for restart().
    bool endEditing(std::optional<int> startIndex);

  private:
    void stopMedia();
    bool startAnew();

    Parts parts_;
    bool left_ = false;
};

}  // namespace app
