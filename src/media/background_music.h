#pragma once

#include <functional>

#include "media/media_control.h"
#include "media/music_state.h"
#include "ui/check_box.h"
#include "ui/event_loop.h"
#include "ui/timer.h"

namespace media {

/// Plays the folder's titles one after the other behind the show, under the alias AUDIO.
class BackgroundMusic {
  public:
    struct Parts {
        ui::EventLoop& loop;
        MediaControl& control;
        MusicState& music;
        ui::Timer& Timer5;
        ui::CheckBox& Musik;
        /// Whether a new title has to wait: a transition runs, which its fade would freeze, or a video
        /// sounds.
        std::function<bool()> mustWait;
    };
    explicit BackgroundMusic(const Parts& parts);

    /// Starts the rotation for a show where Musik is ticked and there is music.
    void start();
    /// Whether the folder has music and Musik is ticked (1 or greyed).
    bool wanted() const;
    /// The same, and "<" has not stopped the music.
    bool playing() const { return wanted() && !stopped_; }
    /// The "+", "-" and "." keys.
    void louder();
    void quieter();
    void mute();
    /// One step of a fade: sets the device's volume and leaves `musicVolume` alone.
    void sendVolume(int volume);
    /// Asks for a title at once: the timer's next tick, 1 ms from now, takes the request up.
    void request();
    /// Stops and closes the device.
    void stop();

  private:
    void tick();
    /// Carries a request out; false when the music is to stop.
    bool takeRequest();
    void fadeOut();
    void play();

    Parts parts_;
    /// "<" has stopped the music, which plays on unheard.
    bool stopped_ = false;
    /// musicIndex is a title that was asked for and has not come yet.
    bool chosen_ = false;
};

}  // namespace media
