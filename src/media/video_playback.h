#pragma once

#include <functional>
#include <string>

#include "media/fade_rule.h"
#include "media/media_control.h"
#include "media/music_state.h"
#include "ui/event_loop.h"
#include "ui/stage.h"

namespace media {

/// Plays a video of the show, or of a preview, in Pic2 under the alias VIDEO, and fades between its sound and
/// the music.
class VideoPlayback {
  public:
    struct Parts {
        ui::EventLoop& loop;
        MediaControl& control;
        const MusicState& music;
        ui::Stage stage;
        ui::Choices choices;
        ui::Timers timers;
        /// Music that a fade may bring back.
        std::function<bool()> hasMusic;
        /// Whether a transition runs, which a fade would freeze.
        std::function<bool()> transitionRuns;
    };
    explicit VideoPlayback(Parts parts);

    /// 1 while a video of the show is open and not yet captured; set by whoever starts one.
    int videoShowing = 0;

    /// Plays `path` in Pic2, filling it, silent.
    void OpenAndPlayVideo(const std::wstring& path);
    /// Sets Timer1 to the video's length in ms, 0 where it has none, and gives it sound where MUTE is ticked.
    void ArmVideoLength();
    /// Sets Timer4 to fade back to the music when `lengthMs` is nearly over.
    void armFade(int lengthMs);
    /// Freezes the current frame onto Pic2 and closes the device, without an empty surface in between.
    void CaptureLastFrameAndClose();
    /// Stops and closes the device and forgets the fade.
    void close();
    /// Stops and closes a video before its end. Music that made way for it comes back soon, though not in the
    /// middle of a transition.
    void cut();

    /// No fade comes any more: the show is over.
    void forgetFade();

    /// Cross-fades of 501 steps; the window thread does nothing else meanwhile. Throw Leaving.
    void RampToVideo();
    void RampToMusic();

    /// Halts an open video without more ado, as the first one of a show, whose user plays it.
    void halt();
    /// Halts an open video and remembers how much of it is left.
    void pause();
    /// Lets the show step on by itself when the video ends. Plays the first video of a show, whose length is
    /// not known yet, and one that was halted; one that plays already is left alone, and its sound too.
    void resume();
    /// Fits the video's window to Pic2, when that has another size.
    void fillBox();
    /// Whether a video is open that sounds.
    bool sounds() const { return videoShowing != 0 && parts_.choices.MUTE.value() == 1; }

  private:
    enum class Phase {
        Idle,     ///< closed, or opened and not armed yet
        Playing,  ///< armed with its length
        Halted,   ///< armed, and standing still
    };

    double leftMs() const;
    void stepAtItsEnd();
    void fadeTimer();
    void fadeToMusicOnce();
    void ramp(RampStep (*stepOf)(int step, int musicVolume), int musicVolume, int pauseMs);

    Parts parts_;
    Phase phase_ = Phase::Idle;
    std::wstring path_;
    /// The fade back to the music has not run yet for the video shown.
    bool fadeDue_ = false;
    double armedAt_ = 0;
    int armedMs_ = 0;
    double haltedLeftMs_ = 0;
};

}  // namespace media
