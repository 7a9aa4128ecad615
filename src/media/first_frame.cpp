#include "media/first_frame.h"

#include "media/film_frame.h"
#include "media/film_window.h"

namespace media {

namespace {

/// Nothing is open under VIDEO before and after, however the looking ends.
class ClosedVideo {
  public:
    explicit ClosedVideo(MediaControl& control) : control_(control) { close(); }
    ~ClosedVideo() { close(); }
    ClosedVideo(const ClosedVideo&) = delete;
    ClosedVideo& operator=(const ClosedVideo&) = delete;

  private:
    void close() {
        control_.send("stop VIDEO");
        control_.send("close VIDEO");
    }

    MediaControl& control_;
};

}  // namespace

std::optional<picture::Surface> firstFrame(MediaControl& control, const ui::PictureBox& box,
                                           const std::wstring& path) {
    const ClosedVideo closed(control);
    if (openFilm(control, path, box).error != 0) {
        return std::nullopt;
    }
    picture::Surface frame = unpaintedFrame(control, box);
    if (frame.empty()) {
        return std::nullopt;
    }
    // A device that paints for a window on the screen only leaves the frame to another one.
    if (updateFrame(control, "VIDEO", frame) || frameBeside(control, path, {0}, frame)) {
        return frame;
    }
    return std::nullopt;
}

}  // namespace media
