#include "media/last_frame.h"

#include <algorithm>
#include <string_view>

#include "media/film_frame.h"
#include "media/film_window.h"
#include "text/text_number.h"

namespace media {

namespace {

/// How long before the video's position the frame is looked for beside it: at its very end there is none.
constexpr int kShortlyBeforeMs = 200;
constexpr int kLongBeforeMs = 1200;

bool frameBefore(MediaControl& control, const std::wstring& path, const picture::Surface& frame) {
    const std::string position = control.send("status VIDEO position", kReplySize).text;
    const int at = text::wholeNumber(text::numericValue(std::string_view(position)));
    return frameBeside(control, path, {std::max(0, at - kShortlyBeforeMs), std::max(0, at - kLongBeforeMs)},
                       frame);
}

}  // namespace

std::optional<picture::Surface> lastFrame(MediaControl& control, const ui::PictureBox& box,
                                          const std::wstring& path) {
    picture::Surface frame = unpaintedFrame(control, box);
    if (frame.empty()) {
        return std::nullopt;
    }
    if (updateFrame(control, "VIDEO", frame)) {
        return frame;
    }
    if (isUncovered(box.hwnd()) && copyFromScreen(box.hwnd(), frame) && isPainted(frame)) {
        return frame;
    }
    return frameBefore(control, path, frame) ? std::optional(std::move(frame)) : std::nullopt;
}

}  // namespace media
