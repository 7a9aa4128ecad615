#pragma once

#include <windows.h>

#include <dshow.h>

#include <optional>
#include <string>

#include "media/graph_parts.h"
#include "media/play_clock.h"
#include "media/volume_rule.h"
#include "platform/com.h"

namespace media {

/// One open film or title: what an alias of the DirectShow back-end stands for.
///
/// Opening cues the first frame; it comes on view with play(). Lives on the window thread, which must be in
/// a single-threaded apartment for longer than the object.
class MediaGraph {
  public:
    enum class Mode { Stopped, Playing, Paused };

    /// Opens the file at `path`. With `parent` a film is shown as a child of that window; without (null) it
    /// is not shown. Throws platform::Error.
    MediaGraph(const std::wstring& path, HWND parent);
    ~MediaGraph();
    MediaGraph(const MediaGraph&) = delete;
    MediaGraph& operator=(const MediaGraph&) = delete;

    /// Plays from `from` milliseconds on, or from where it stands; at the end it stays there. In the middle
    /// of a program stream the pictures may begin earlier, with one that can be decoded alone.
    void play(std::optional<int> from);
    /// Stands still; play() goes on.
    void pause();
    /// The same, and counts as stopped. The frame stays on view.
    void stop();

    /// Places the film in its parent, in pixels; scaled to that size. False where there is nothing to place.
    bool put(int left, int top, int width, int height);

    /// Sound on or off, without regard to the volume.
    void setAudio(bool on);
    /// 0 to 1000.
    void setVolume(int volume);

    /// In milliseconds, rounded up.
    int length() const;
    /// In milliseconds from the first frame on; length() at the end.
    int position() const;
    Mode mode() const;

    /// The film's own size in pixels; nothing where there is no film.
    std::optional<SIZE> size() const;

    /// Paints the frame on view into `dc` at 0, 0, in the film's own size, pixel for pixel.
    bool paint(HDC dc) const;

  private:
    void embed(HWND parent);
    /// Brings the stopped graph's next frame up, which is the one at `position`.
    void cue(Ticks position);
    void jump(Ticks position);
    void measure();
    void run();
    void applyVolume();
    void halt(Mode mode);
    bool atEnd() const;
    Ticks now() const;

    GraphParts parts_;
    platform::ComPtr<IMediaControl> control_;
    platform::ComPtr<IMediaFilter> filter_;
    platform::ComPtr<IMediaSeeking> seeking_;
    platform::ComPtr<IBasicAudio> audio_;
    platform::ComPtr<IVideoWindow> window_;
    platform::ComPtr<IReferenceClock> referenceClock_;
    PlayClock clock_;
    Ticks length_ = 0;
    Mode mode_ = Mode::Stopped;
    bool audioOn_ = true;
    int volume_ = kFullVolume;
};

}  // namespace media
