#include "show/slideshow.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "files/file_filter.h"
#include "show/caption_rule.h"
#include "show/pause_time.h"
#include "show/raised_flag.h"
#include "show/step_rule.h"

namespace show {

namespace {

/// Pictures decoded ahead of the one shown, besides the one before it.
constexpr int kAhead = 2;

}  // namespace

Slideshow::Slideshow(const Parts& parts)
    : parts_(parts), end_({parts_.loop, parts_.screen, parts_.engines, parts_.stage, parts_.timers}) {
    parts_.timers.Timer1.onTimer = [this] { tick(); };
}

std::wstring Slideshow::pathOf(int index) const {
    return parts_.engines.music.musicFolder + parts_.choices.File1.entries()[static_cast<std::size_t>(index)];
}

bool Slideshow::atEnd() const {
    return parts_.state.showMode != kNoShow &&
           isPastEnd(parts_.state.pictureIndex, parts_.choices.File1.count());
}

void Slideshow::start() {
    // The second press of a double click may come while the first one is at work.
    if (starting_) {
        return;
    }
    const RaisedFlag starting(starting_);
    if (parts_.choices.Screen2.value() == 1) {
        parts_.screen.moveToSecondScreen();
    }
    parts_.engines.video.close();
    parts_.loop.doEvents();
    if (parts_.choices.File1.count() == 0) {
        return;
    }
    parts_.state.showMode = kByHand;
    parts_.engines.music.musicFolder = parts_.choices.Dir1.path();
    if (parts_.engines.music.musicFolder.back() != L'\\') {
        parts_.engines.music.musicFolder += L'\\';
    }
    parts_.stage.Text1.hide();
    std::optional<SIZE> first;
    if (parts_.screen.inSetup()) {
        parts_.state.pictureIndex = startIndex(parts_.choices.File1.selectedIndex());
        if (parts_.screen.leaveSetup()) {
            first = putFirst();
        }
    }
    parts_.screen.takeOver();
    parts_.loop.doEvents();
    SetCursorPos(0, 0);
    takeSurface();
    end_.begin();
    showFirst(first);
    if (surfaceChanged_) {
        parts_.screen.takeOver();
        fitSurface();
    }
    noteStart();
}

void Slideshow::noteStart() {
    startedAt_ = parts_.loop.now();
}

bool Slideshow::justStarted() const {
    return starting_ || parts_.loop.now() - startedAt_ < GetDoubleClickTime();
}

// Everything that lies on the surface gets its size and place.
void Slideshow::takeSurface() {
    const SIZE size = parts_.screen.size();
    parts_.state.screenWidth = size.cx;
    parts_.state.screenHeight = size.cy;
    parts_.stage.Pic1.movePixels(0, 0, size.cx, size.cy);
    parts_.screen.arrange();
    parts_.stage.Pic2.movePixels(0, 0, size.cx, size.cy);
    parts_.stage.Pic3.movePixels(0, 0, size.cx, size.cy);
    parts_.pictures.setSurface(parts_.screen.surface());
}

void Slideshow::screensChanged() {
    if (parts_.state.showMode == kNoShow) {
        return;
    }
    surfaceChanged_ = true;
    if (starting_) {
        return;
    }
    parts_.screen.takeOver();
    parts_.engines.runner.complete();
    if (!parts_.engines.runner.running()) {
        fitSurface();
    }
}

void Slideshow::fitSurface() {
    const SIZE size = parts_.screen.size();
    // A minimised window has none; it is asked again when it comes back.
    if (!surfaceChanged_ || size.cx <= 0 || size.cy <= 0) {
        return;
    }
    surfaceChanged_ = false;
    parts_.engines.captions.liftDate();
    takeSurface();
    fitItem();
    parts_.engines.captions.surfaceChanged();
    parts_.engines.captions.updateInformation(parts_.engines.runner.currentEffect);
    end_.surfaceChanged();
    prepareNeighbours();
}

void Slideshow::fitItem() {
    ui::PictureBox& surface = parts_.stage.Pic2;
    if (!files::isVideoName(parts_.state.currentPicture)) {
        if (auto picture = parts_.pictures.take(parts_.state.currentPicture)) {
            surface.setImage(std::move(picture->surface));
            return;
        }
    }
    // What stands there has no file of its own: a video's last frame, black, a picture that has gone.
    const SIZE size = parts_.screen.size();
    picture::Surface fitted(size.cx, size.cy);
    if (!surface.image().empty()) {
        surface.image().stretchTo(fitted.dc(), size);
    }
    surface.setImage(std::move(fitted));
    if (parts_.engines.video.videoShowing != 0) {
        parts_.engines.video.fillBox();
    }
}

// A first picture that is decoded already comes with the window's growth, and not after one in black.
// Returns the picture's own size.
std::optional<SIZE> Slideshow::putFirst() {
    const std::wstring path = pathOf(parts_.state.pictureIndex);
    const ShowSurface surface = parts_.screen.surface();
    parts_.pictures.setSurface(surface);
    if (files::isVideoName(path) || !parts_.pictures.ready(path)) {
        return std::nullopt;
    }
    auto picture = parts_.pictures.take(path);
    if (!picture) {
        return std::nullopt;
    }
    parts_.stage.Pic2.setImage(std::move(picture->surface));
    parts_.stage.Pic2.movePixels(0, 0, surface.width, surface.height);
    parts_.stage.Pic2.show();
    return SIZE{picture->nativeWidth, picture->nativeHeight};
}

/// The first item onto the surface, unless its picture stands there already with that own size. False when it
/// cannot be loaded.
bool Slideshow::loadFirst(const std::optional<SIZE>& standing) {
    if (standing) {
        parts_.stage.Pic1.movePixels(0, 0, standing->cx, standing->cy);
        return true;
    }
    parts_.stage.Pic2.clear();
    if (files::isVideoName(parts_.state.currentPicture)) {
        parts_.stage.Pic2.show();
        parts_.screen.uncover();
        parts_.engines.video.videoShowing = 1;
        parts_.engines.video.OpenAndPlayVideo(parts_.state.currentPicture);
        parts_.engines.video.halt();
        parts_.engines.video.armFade(parts_.timers.Timer1.interval());
        if (parts_.choices.MUTE.value() == 1) {
            parts_.engines.video.RampToVideo();
        }
        return true;
    }
    auto picture = parts_.pictures.take(parts_.state.currentPicture);
    if (!picture) {
        return false;
    }
    parts_.stage.Pic1.movePixels(0, 0, picture->nativeWidth, picture->nativeHeight);
    parts_.stage.Pic2.setImage(std::move(picture->surface));
    return true;
}

void Slideshow::showFirst(const std::optional<SIZE>& standing) {
    parts_.state.currentPicture = pathOf(parts_.state.pictureIndex);
    parts_.stage.Pic3.clear();
    const bool loaded = loadFirst(standing);
    if (onStarted) {
        onStarted();
    }
    parts_.stage.Pic2.show();
    parts_.screen.uncover();
    UpdateWindow(parts_.stage.Pic2.hwnd());
    parts_.screen.pointer().hide();
    if (loaded) {
        // A date under a film would stay unseen, and stand beside its last frame.
        parts_.engines.script.ApplyScriptEntry(
            parts_.engines.video.videoShowing != 0 ? ScriptPlayer::kWithoutDate : ScriptPlayer::kFull);
    }
    parts_.engines.captions.updateInformation(parts_.engines.runner.currentEffect);
    parts_.stage.Pic2.setFocus();
    if (parts_.choices.Screen2.value() == 1) {
        const ScreenPoint place =
            secondScreenPointer(parts_.screen.rectangle().left, parts_.screen.size().cy);
        SetCursorPos(place.x, place.y);
    }
    parts_.engines.player.start();
    prepareNeighbours();
    if (!loaded) {
        quickStep();
    }
}

void Slideshow::continueAutomatically() {
    if (parts_.engines.video.videoShowing != 0 && !parts_.state.quickStepPending) {
        parts_.state.showMode = kAutomatically;
        parts_.engines.video.resume();
        if (parts_.timers.Timer1.interval() <= 0) {
            quickStep();
        }
        return;
    }
    if (!parts_.state.quickStepPending && !atEnd()) {
        parts_.timers.Timer1.setInterval(pauseMillisecondsOfScroll(parts_.choices.IntS.value()));
        parts_.timers.Timer1.setEnabled(true);
    }
    parts_.state.showMode = kAutomatically;
}

// An item that was asked for and does not come: the one that stands is the one shown again.
void Slideshow::cancelQuickStep() {
    const bool pending = std::exchange(parts_.state.quickStepPending, false);
    if (pending && backFrom_) {
        parts_.state.pictureIndex = *std::exchange(backFrom_, std::nullopt);
    }
}

void Slideshow::pauseByHand() {
    parts_.state.showMode = kByHand;
    cancelQuickStep();
    parts_.timers.Timer1.setEnabled(false);
    if (parts_.engines.video.videoShowing != 0) {
        parts_.engines.video.pause();
    }
}

void Slideshow::hold() {
    parts_.timers.Timer1.setEnabled(false);
    cancelQuickStep();
    parts_.state.pausedFlag = 1;
}

void Slideshow::quickStep() {
    const bool onItsWay = parts_.state.quickStepPending && parts_.timers.Timer1.enabled() &&
                          parts_.timers.Timer1.interval() == kQuickStepMs;
    if (onItsWay || atEnd()) {
        return;
    }
    parts_.state.quickStepPending = true;
    parts_.engines.runner.complete();
    parts_.timers.Timer1.setInterval(kQuickStepMs);
    parts_.timers.Timer1.restart();
}

bool Slideshow::stepBack() {
    const int standing = parts_.state.pictureIndex;
    const auto index = backFrom_ ? furtherBackIndex(standing) : backIndex(standing);
    if (!index) {
        return false;
    }
    // After the end of the list it is the last item that stands.
    backFrom_ = backFrom_.value_or(std::min(standing, parts_.choices.File1.count() - 1));
    parts_.state.pictureIndex = *index;
    end_.leave();
    return true;
}

void Slideshow::keepItemAcross(const std::function<void()>& refresh) {
    const bool ended = atEnd();
    const int before = parts_.state.pictureIndex;
    const int standing = backFrom_.value_or(before);
    std::wstring name;
    if (parts_.state.showMode != kNoShow && !ended && standing >= 0 &&
        standing < parts_.choices.File1.count()) {
        name = parts_.choices.File1.entries()[static_cast<std::size_t>(standing)];
    }
    refresh();
    const int count = parts_.choices.File1.count();
    if (ended) {
        parts_.state.pictureIndex = count;
    } else if (!name.empty()) {
        const int index = parts_.choices.File1.indexOf(name);
        // The next file took the place of one that is gone, and a step adds 1.
        const int now = index >= 0 ? index : std::min(standing, count) - (backFrom_ ? 0 : 1);
        parts_.state.pictureIndex = std::clamp(now + before - standing, -1, count);
        if (backFrom_) {
            backFrom_ = std::min(now, count - 1);
        }
    }
}

void Slideshow::endVideo() {
    parts_.engines.runner.currentEffect = 0;
    parts_.stage.Pic2.clear();
    parts_.engines.video.cut();
}

void Slideshow::stop() {
    parts_.state.showMode = kNoShow;
    parts_.state.quickStepPending = false;
    parts_.timers.Timer1.setEnabled(false);
    parts_.timers.Timer5.setEnabled(false);
    parts_.engines.video.forgetFade();
    parts_.engines.runner.complete();
    end_.forget();
    if (onEnd) {
        onEnd();
    }
}

// A tick never runs into itself: the transition is part of it, so a tick that falls due meanwhile comes
// when the transition has ended.
void Slideshow::tick() {
    parts_.state.quickStepPending = false;
    if (end_.standing() || parts_.state.showMode == kNoShow) {
        parts_.timers.Timer1.setEnabled(false);
        return;
    }
    // Before the step is made: events run meanwhile, and a key among them is still meant for the film.
    if (parts_.engines.video.videoShowing == 1) {
        parts_.engines.video.CaptureLastFrameAndClose();
        if (parts_.state.showMode == kNoShow) {
            return;
        }
        parts_.state.quickStepPending = false;
    }
    const Step step =
        nextStep(parts_.state.pictureIndex, parts_.choices.File1.count(), parts_.choices.LoopC.value() == 1);
    parts_.state.pictureIndex = step.index;
    parts_.timers.Timer1.setInterval(pauseMillisecondsOfScroll(parts_.choices.IntS.value()));
    if (parts_.state.pausedFlag == 1 || parts_.state.showMode == kByHand) {
        parts_.timers.Timer1.setEnabled(false);
    }
    if (step.endOfList) {
        backFrom_.reset();
        end_.come();
        return;
    }
    parts_.state.currentPicture = pathOf(parts_.state.pictureIndex);
    if (files::isVideoName(parts_.state.currentPicture)) {
        showVideo();
    } else {
        showPicture();
    }
}

void Slideshow::showPicture() {
    parts_.engines.script.ApplyScriptEntry(ScriptPlayer::kMusicOnly);
    auto picture = parts_.pictures.take(parts_.state.currentPicture);
    if (!picture) {
        passOver();
        return;
    }
    backFrom_.reset();
    parts_.engines.captions.end();
    parts_.stage.Pic1.movePixels(0, 0, picture->nativeWidth, picture->nativeHeight);
    parts_.pictures.giveBack(parts_.stage.Pic3.setImage(std::move(picture->surface)));
    prepareNeighbours();
    parts_.engines.runner.run(
        [this] { parts_.engines.captions.updateInformation(parts_.engines.runner.currentEffect); });
    fitSurface();
    // The pause counts from here, so that a picture stands still for all of it.
    if (parts_.timers.Timer1.enabled() && !parts_.state.quickStepPending) {
        parts_.timers.Timer1.restart();
    }
    parts_.engines.script.ApplyScriptEntry(ScriptPlayer::kFull);
}

void Slideshow::showVideo() {
    backFrom_.reset();
    parts_.engines.captions.end();
    parts_.engines.captions.updateInformation(parts_.engines.runner.currentEffect);
    parts_.engines.video.videoShowing = 1;
    parts_.engines.video.OpenAndPlayVideo(parts_.state.currentPicture);
    if (parts_.engines.video.videoShowing == 0) {
        // A key that came while it opened has ended it and asked for the next item.
        return;
    }
    parts_.engines.video.ArmVideoLength();
    const int length = parts_.timers.Timer1.interval();
    parts_.engines.video.armFade(length);
    prepareNeighbours();
    if (length <= 0) {
        // It cannot be played: the show goes on.
        quickStep();
    } else if (parts_.choices.MUTE.value() == 1) {
        parts_.engines.video.RampToVideo();
    }
}

// The picture on the screen stays, and the step is made again at once, in the direction it had.
void Slideshow::passOver() {
    const auto back = backIndex(parts_.state.pictureIndex);
    if (backFrom_ && back) {
        parts_.state.pictureIndex = *back;
    } else {
        backFrom_.reset();
    }
    quickStep();
}

void Slideshow::prepareNeighbours() {
    const int count = parts_.choices.File1.count();
    std::vector<std::wstring> wanted;
    const auto want = [&](int index) {
        if (index < 0 || index >= count || files::isVideoName(pathOf(index))) {
            return;
        }
        if (std::find(wanted.begin(), wanted.end(), pathOf(index)) == wanted.end()) {
            wanted.push_back(pathOf(index));
        }
    };
    const int shown = parts_.state.pictureIndex;
    for (int i = 1; i <= kAhead; ++i) {
        const bool wraps = shown + i >= count && parts_.choices.LoopC.value() == 1;
        want(wraps ? (shown + i) % count : shown + i);
    }
    want(shown - 1);
    parts_.pictures.prepare(wanted);
}

}  // namespace show
