#include "media/film_frame.h"

#include <algorithm>
#include <cstdint>
#include <sstream>

#include "media/media_text.h"
#include "platform/short_path.h"

namespace media {

namespace {

/// A colour that no frame of a film has throughout: what keeps it was not painted.
constexpr std::uint32_t kUnpainted = 0x00030201;

/// No film of the kinds that are shown has a longer side; a damaged head may tell anything.
constexpr int kLongestSide = 4096;

/// Width and height in the answer to "where", which is "x y width height"; 0 where there is none.
SIZE sourceSize(const std::string& reply) {
    std::istringstream numbers(reply);
    int x = 0;
    int y = 0;
    SIZE size{};
    numbers >> x >> y >> size.cx >> size.cy;
    return size;
}

bool isFilmSize(const SIZE& size) {
    return size.cx > 0 && size.cy > 0 && size.cx <= kLongestSide && size.cy <= kLongestSide;
}

}  // namespace

picture::Surface unpaintedFrame(MediaControl& control, const ui::PictureBox& box) {
    SIZE size = sourceSize(control.send("where VIDEO source", kReplySize).text);
    if (!isFilmSize(size)) {
        size = box.clientSize();
    }
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

bool updateFrame(MediaControl& control, const std::string& alias, const picture::Surface& frame) {
    return control.send("update " + alias + " hdc " + handleText(frame.dc())).error == 0 && isPainted(frame);
}

bool frameBeside(MediaControl& control, const std::wstring& path, const std::vector<int>& positions,
                 const picture::Surface& frame) {
    MediaControl& frames = control.frameSource();
    if (frames.send("open " + platform::shortPath(path) + " alias FRAME").error != 0) {
        return false;
    }
    frames.send("set FRAME audio all off");
    const bool found = std::any_of(positions.begin(), positions.end(), [&](int position) {
        const bool plays = frames.send("play FRAME from " + std::to_string(position)).error == 0;
        frames.send("stop FRAME");
        return plays && updateFrame(frames, "FRAME", frame);
    });
    frames.send("close FRAME");
    return found;
}

}  // namespace media
