#include "media/first_frame.h"

#include "media/film_frame.h"
#include "media/media_text.h"
#include "platform/short_path.h"

namespace media {

namespace {

void closeVideo(MediaControl& control) {
    control.send("stop VIDEO");
    control.send("close VIDEO");
}

std::optional<picture::Surface> frameOf(MediaControl& control, const ui::PictureBox& box,
                                        const std::wstring& path) {
    SIZE size = sourceSize(control.send("where VIDEO source", kReplySize).text);
    if (size.cx <= 0 || size.cy <= 0) {
        size = box.clientSize();
    }
    picture::Surface frame = unpaintedFrame(size);
    if (frame.empty()) {
        return std::nullopt;
    }
    // A device that paints for a window on the screen only leaves the frame to another one.
    if (updateFrame(control, "VIDEO", frame) || frameBeside(control, path, {0}, frame)) {
        return frame;
    }
    return std::nullopt;
}

}  // namespace

std::optional<picture::Surface> firstFrame(MediaControl& control, const ui::PictureBox& box,
                                           const std::wstring& path) {
    closeVideo(control);
    const bool opened = control
                            .send("open " + platform::shortPath(path) + " alias VIDEO parent " +
                                  handleText(box.hwnd()) + " style child")
                            .error == 0;
    std::optional<picture::Surface> frame;
    if (opened) {
        frame = frameOf(control, box, path);
    }
    closeVideo(control);
    return frame;
}

}  // namespace media
