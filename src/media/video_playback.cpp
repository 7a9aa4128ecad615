#include "media/video_playback.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <sstream>
#include <utility>

#include "platform/short_path.h"
#include "text/text_number.h"

namespace media {

namespace {

constexpr int kFadeBeforeEndMs = 2000;
constexpr int kMsPerSecond = 1000;
/// A volume that no step of a ramp sends.
constexpr int kNoMusic = -1;
/// Longer than a quick step takes to begin, so that the next item is on its way before a fade blocks.
constexpr int kFadeRetryMs = 250;

template <typename Handle>
std::string decimal(Handle handle) {
    return std::to_string(reinterpret_cast<std::uintptr_t>(handle));
}

/// Width and height in the answer to "where", which is "x y width height".
SIZE sourceSize(const std::string& reply) {
    std::istringstream numbers(reply);
    int x = 0;
    int y = 0;
    SIZE size{};
    numbers >> x >> y >> size.cx >> size.cy;
    return size;
}

}  // namespace

VideoPlayback::VideoPlayback(Parts parts) : parts_(std::move(parts)) {
    parts_.timers.Timer4.onTimer = [this] { fadeTimer(); };
}

void VideoPlayback::close() {
    parts_.control.send("stop VIDEO");
    parts_.control.send("close VIDEO");
    parts_.timers.Timer4.setEnabled(false);
    paused_ = false;
}

void VideoPlayback::forgetFade() {
    fadeDue_ = false;
    parts_.timers.Timer4.setEnabled(false);
}

void VideoPlayback::cut() {
    close();
    videoShowing = 0;
    if (fadeDue_) {
        parts_.timers.Timer4.setInterval(kFadeRetryMs);
        parts_.timers.Timer4.setEnabled(true);
    }
}

void VideoPlayback::OpenAndPlayVideo(const std::wstring& path) {
    // A fade that is still due for the video before is this one's now.
    parts_.timers.Timer4.setEnabled(false);
    parts_.control.send("stop VIDEO");
    parts_.control.send("close VIDEO");
    paused_ = false;
    const std::string shortPath = platform::shortPath(path);
    parts_.control.send("open " + shortPath + " alias VIDEO parent " + decimal(parts_.stage.Pic2.hwnd()) +
                        " style child");
    parts_.control.send("set VIDEO audio all off");
    const float twips = ui::twipsPerPixel(parts_.stage.Pic2.dpi());
    parts_.control.send(" put VIDEO window at 0 0 " + text::decimalBytes(parts_.stage.Pic2.width() / twips) +
                        " " + text::decimalBytes(parts_.stage.Pic2.height() / twips));
    parts_.loop.doEvents();
    parts_.control.send("play VIDEO");
    parts_.loop.doEvents();
}

void VideoPlayback::ArmVideoLength() {
    parts_.control.send("set VIDEO time format milliseconds");
    const MediaReply reply = parts_.control.send("status VIDEO length", kReplySize);
    const int length = text::wholeNumber(text::numericValue(std::string_view(reply.text)));
    parts_.timers.Timer1.setInterval(length);
    armedAt_ = parts_.loop.now();
    armedMs_ = length;
    fadeDue_ = true;
    if (parts_.choices.MUTE.value() == 1) {
        parts_.control.send("set VIDEO audio all on");
    }
}

void VideoPlayback::armFade(int lengthMs) {
    // Too short for a fade of its own before the end: it runs at the capture.
    const int interval = lengthMs - kFadeBeforeEndMs;
    parts_.timers.Timer4.setInterval(interval);
    parts_.timers.Timer4.setEnabled(interval >= 1);
}

void VideoPlayback::fadeTimer() {
    if (parts_.transitionRuns()) {
        parts_.timers.Timer4.setInterval(kFadeRetryMs);
        return;
    }
    parts_.timers.Timer4.setEnabled(false);
    fadeToMusicOnce();
}

void VideoPlayback::fadeToMusicOnce() {
    if (std::exchange(fadeDue_, false) && parts_.choices.MUTE.value() == 1 && parts_.hasMusic()) {
        RampToMusic();
    }
}

void VideoPlayback::CaptureLastFrameAndClose() {
    videoShowing = 0;
    paused_ = false;
    parts_.timers.Timer4.setEnabled(false);
    fadeToMusicOnce();
    const SIZE source = sourceSize(parts_.control.send("where VIDEO source", kReplySize).text);
    parts_.stage.Pic1.movePixels(0, 0, source.cx, source.cy);
    parts_.stage.Pic1.setImage(picture::Surface(source.cx, source.cy));
    const picture::Surface& frame = parts_.stage.Pic1.image();
    if (!frame.empty()) {
        parts_.control.send("update VIDEO hdc " + decimal(frame.dc()));
        parts_.loop.doEvents();
        parts_.stage.Pic2.draw([&](HDC dc) {
            SetStretchBltMode(dc, HALFTONE);
            SetBrushOrgEx(dc, 0, 0, nullptr);
            const picture::Surface& surface = parts_.stage.Pic2.image();
            StretchBlt(dc, 0, 0, surface.width(), surface.height(), frame.dc(), 0, 0, frame.width(),
                       frame.height(), SRCCOPY);
        });
        parts_.loop.doEvents();
    }
    parts_.stage.Pic3.image().copyFrom(parts_.stage.Pic2.image());
    parts_.stage.Pic3.move({0, 0, parts_.stage.Pic2.width(), parts_.stage.Pic2.height()});
    parts_.stage.Pic3.show();
    parts_.stage.Pic3.paintNow();
    parts_.stage.Pic2.hide();
    parts_.loop.doEvents();
    parts_.control.send("stop VIDEO");
    parts_.control.send("close VIDEO");
    parts_.stage.Pic2.show();
    parts_.stage.Pic3.hide();
    parts_.loop.doEvents();
    parts_.stage.Pic1.drop();
}

void VideoPlayback::ramp(RampStep (*stepOf)(int, int), int musicVolume, int pauseMs) {
    const double start = parts_.loop.now();
    for (int i = 0; i < kRampSteps; ++i) {
        const RampStep step = stepOf(i, musicVolume);
        parts_.control.send(videoVolumeCommand(step.video));
        if (step.music) {
            parts_.control.send(musicVolumeCommand(*step.music));
        }
        parts_.loop.sleepUntil(start + (i + 1.0) * pauseMs);
    }
}

void VideoPlayback::RampToVideo() {
    ramp(rampToVideoStep, parts_.music.musicVolume, kRampToVideoPauseMs);
}

void VideoPlayback::RampToMusic() {
    ramp(rampToMusicStep, parts_.music.musicVolume, kRampToMusicPauseMs);
}

void VideoPlayback::halt() {
    parts_.control.send("stop VIDEO");
}

void VideoPlayback::pause() {
    parts_.timers.Timer1.setEnabled(false);
    parts_.timers.Timer4.setEnabled(false);
    parts_.control.send("stop VIDEO");
    paused_ = true;
    leftMs_ = std::max(0.0, armedMs_ - (parts_.loop.now() - armedAt_));
}

void VideoPlayback::resume() {
    parts_.control.send("setaudio VIDEO volume to 0");
    if (paused_) {
        armedMs_ = static_cast<int>(std::ceil(leftMs_ / kMsPerSecond)) * kMsPerSecond;
        armedAt_ = parts_.loop.now();
        parts_.timers.Timer1.setInterval(armedMs_);
    } else {
        ArmVideoLength();
    }
    paused_ = false;
    parts_.control.send("play VIDEO");
    parts_.timers.Timer1.restart();
    armFade(armedMs_);
    if (parts_.choices.MUTE.value() == 1) {
        ramp(rampToVideoStep, kNoMusic, kRampToVideoPauseMs);
    }
}

}  // namespace media
