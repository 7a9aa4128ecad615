#include "media/last_frame.h"

#include <algorithm>
#include <cstdint>
#include <sstream>

#include "media/film_window.h"
#include "media/media_text.h"
#include "platform/short_path.h"
#include "text/text_number.h"

namespace media {

namespace {

/// A colour that no frame of a film has throughout: what keeps it was not painted.
constexpr std::uint32_t kUnpainted = 0x00030201;
/// How long before the video's position the frame is looked for beside it: at its very end there is none.
constexpr int kBeforeMs[] = {200, 1200};

/// Width and height in the answer to "where", which is "x y width height".
SIZE sourceSize(const std::string& reply) {
    std::istringstream numbers(reply);
    int x = 0;
    int y = 0;
    SIZE size{};
    numbers >> x >> y >> size.cx >> size.cy;
    return size;
}

picture::Surface unpainted(const SIZE& size) {
    picture::Surface frame(size.cx, size.cy);
    frame.fill(RGB(kUnpainted >> 16, kUnpainted >> 8 & 0xFF, kUnpainted & 0xFF));
    return frame;
}

bool isPainted(const picture::Surface& frame) {
    GdiFlush();
    const std::size_t count =
        static_cast<std::size_t>(frame.width()) * static_cast<std::size_t>(frame.height());
    return std::any_of(frame.bits(), frame.bits() + count,
                       [](std::uint32_t pixel) { return (pixel & 0x00FFFFFF) != kUnpainted; });
}

bool update(MediaControl& control, const std::string& alias, const picture::Surface& frame) {
    return control.send("update " + alias + " hdc " + handleText(frame.dc())).error == 0 && isPainted(frame);
}

bool frameBeside(MediaControl& control, const std::wstring& path, const picture::Surface& frame) {
    const std::string position = control.send("status VIDEO position", kReplySize).text;
    const int at = text::wholeNumber(text::numericValue(std::string_view(position)));
    MediaControl& frames = control.frameSource();
    if (frames.send("open " + platform::shortPath(path) + " alias FRAME").error != 0) {
        return false;
    }
    frames.send("set FRAME audio all off");
    const bool found = std::any_of(std::begin(kBeforeMs), std::end(kBeforeMs), [&](int before) {
        const bool plays =
            frames.send("play FRAME from " + std::to_string(std::max(0, at - before))).error == 0;
        frames.send("stop FRAME");
        return plays && update(frames, "FRAME", frame);
    });
    frames.send("close FRAME");
    return found;
}

}  // namespace

std::optional<picture::Surface> lastFrame(MediaControl& control, const ui::PictureBox& box,
                                          const std::wstring& path) {
    SIZE size = sourceSize(control.send("where VIDEO source", kReplySize).text);
    if (size.cx <= 0 || size.cy <= 0) {
        size = box.clientSize();
    }
    picture::Surface frame = unpainted(size);
    if (frame.empty()) {
        return std::nullopt;
    }
    if (update(control, "VIDEO", frame)) {
        return frame;
    }
    if (isUncovered(box.hwnd()) && copyFromScreen(box.hwnd(), frame) && isPainted(frame)) {
        return frame;
    }
    return frameBeside(control, path, frame) ? std::optional(std::move(frame)) : std::nullopt;
}

}  // namespace media
