#include "media/video_playback.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "media/film_window.h"
#include "media/last_frame.h"
#include "text/text_number.h"

namespace media {

namespace {

constexpr int kFadeBeforeEndMs = 2000;
constexpr int kMsPerSecond = 1000;
/// A volume that no step of a ramp sends.
constexpr int kNoMusic = -1;
/// Longer than a quick step takes to begin, so that the next item is on its way before a fade blocks.
constexpr int kFadeRetryMs = 250;

}  // namespace

VideoPlayback::VideoPlayback(Parts parts) : parts_(std::move(parts)) {
    parts_.timers.Timer4.onTimer = [this] { fadeTimer(); };
}

void VideoPlayback::close() {
    parts_.control.send("stop VIDEO");
    parts_.control.send("close VIDEO");
    parts_.timers.Timer4.setEnabled(false);
    phase_ = Phase::Idle;
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
    phase_ = Phase::Idle;
    path_ = path;
    openFilm(parts_.control, path, parts_.stage.Pic2);
    parts_.control.send("set VIDEO audio all off");
    fillBox();
    parts_.loop.doEvents();
    parts_.control.send("play VIDEO");
    // Some devices make their window only now.
    disableChildren(parts_.stage.Pic2.hwnd());
    parts_.loop.doEvents();
}

void VideoPlayback::fillBox() {
    fitFilm(parts_.control, parts_.stage.Pic2);
}

void VideoPlayback::ArmVideoLength() {
    parts_.control.send("set VIDEO time format milliseconds");
    const MediaReply reply = parts_.control.send("status VIDEO length", kReplySize);
    const int length = text::wholeNumber(text::numericValue(std::string_view(reply.text)));
    parts_.timers.Timer1.setInterval(length);
    armedAt_ = parts_.loop.now();
    armedMs_ = length;
    phase_ = Phase::Playing;
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
    phase_ = Phase::Idle;
    parts_.timers.Timer4.setEnabled(false);
    fadeToMusicOnce();
    ui::Stage& stage = parts_.stage;
    if (auto frame = lastFrame(parts_.control, stage.Pic2, path_)) {
        stage.Pic1.movePixels(0, 0, frame->width(), frame->height());
        stage.Pic1.setImage(std::move(*frame));
        parts_.loop.doEvents();
        stage.Pic2.draw([&](HDC dc) { stage.Pic1.image().stretchTo(dc, stage.Pic2.image().size()); });
        parts_.loop.doEvents();
        stage.Pic1.drop();
    }
    stage.Pic3.image().copyFrom(stage.Pic2.image());
    stage.Pic3.move({0, 0, stage.Pic2.width(), stage.Pic2.height()});
    stage.Pic3.show();
    stage.Pic3.paintNow();
    stage.Pic2.hide();
    parts_.loop.doEvents();
    parts_.control.send("stop VIDEO");
    parts_.control.send("close VIDEO");
    stage.Pic2.show();
    stage.Pic3.hide();
    parts_.loop.doEvents();
}

void VideoPlayback::ramp(RampStep (*stepOf)(int, int), int musicVolume, int pauseMs) {
    // Nothing is painted while it runs; a title that has just come up would wait for its end.
    RedrawWindow(GetAncestor(parts_.stage.Pic2.hwnd(), GA_ROOT), nullptr, nullptr,
                 RDW_UPDATENOW | RDW_ALLCHILDREN);
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

double VideoPlayback::leftMs() const {
    return std::max(0.0, armedMs_ - (parts_.loop.now() - armedAt_));
}

void VideoPlayback::pause() {
    parts_.timers.Timer1.setEnabled(false);
    parts_.timers.Timer4.setEnabled(false);
    parts_.control.send("stop VIDEO");
    if (phase_ == Phase::Playing) {
        haltedLeftMs_ = leftMs();
        phase_ = Phase::Halted;
    }
}

void VideoPlayback::resume() {
    if (phase_ == Phase::Playing) {
        stepAtItsEnd();
        return;
    }
    parts_.control.send("setaudio VIDEO volume to 0");
    if (phase_ == Phase::Halted) {
        armedMs_ = static_cast<int>(std::ceil(haltedLeftMs_ / kMsPerSecond)) * kMsPerSecond;
        armedAt_ = parts_.loop.now();
        parts_.timers.Timer1.setInterval(armedMs_);
        phase_ = Phase::Playing;
    } else {
        ArmVideoLength();
    }
    parts_.control.send("play VIDEO");
    parts_.timers.Timer1.restart();
    armFade(armedMs_);
    if (parts_.choices.MUTE.value() == 1) {
        ramp(rampToVideoStep, kNoMusic, kRampToVideoPauseMs);
    }
}

// A video that was reached by hand has been playing all the time, with its sound; its fade is on its way.
void VideoPlayback::stepAtItsEnd() {
    const int left = static_cast<int>(std::ceil(leftMs()));
    parts_.timers.Timer1.setInterval(left);
    parts_.timers.Timer1.restart();
}

}  // namespace media
