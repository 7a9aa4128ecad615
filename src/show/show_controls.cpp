#include "show/show_controls.h"

#include <utility>

#include "show/pause_time.h"
#include "show/step_rule.h"

namespace show {

namespace {

constexpr wchar_t kEscape = 27;
constexpr int kMsPerSecond = 1000;

void beep() {
    MessageBeep(MB_OK);
}

}  // namespace

ShowControls::ShowControls(const Parts& parts) : parts_(parts) {}

bool ShowControls::keyDown(int key) {
    if (parts_.state.showMode == kNoShow) {
        return false;
    }
    if (key == VK_RETURN || isBystanderKey(key)) {
        return true;
    }
    const bool endsVideo = parts_.state.showMode == kAutomatically && parts_.engines.video.videoShowing == 1;
    arrow(key);
    if (endsVideo) {
        parts_.show.endVideo();
        if (key != VK_DOWN) {
            parts_.show.quickStep();
        }
    }
    return key == VK_DOWN || key == VK_UP || key == VK_LEFT || key == VK_RIGHT;
}

void ShowControls::arrow(int key) {
    switch (key) {
        case VK_DOWN:
            parts_.show.hold();
            break;
        case VK_UP:
            if (!parts_.show.atEnd()) {
                goOnByItself();
            }
            break;
        case VK_LEFT:
            if (parts_.show.stepBack()) {
                parts_.show.quickStep();
            }
            break;
        case VK_RIGHT:
            parts_.show.quickStep();
            break;
        default:
            break;
    }
}

bool ShowControls::keyPress(wchar_t character) {
    if (parts_.state.showMode == kNoShow) {
        return false;
    }
    if (character == kEscape) {
        parts_.show.stop();
        return true;
    }
    if (parts_.show.atEnd()) {
        if (!std::exchange(restarted_, true) && onRestart) {
            onRestart();
        }
        return true;
    }
    if (character == L' ' && parts_.state.showMode == kByHand) {
        parts_.state.pausedFlag = 0;
        parts_.screen.pointer().hide();
        parts_.show.continueAutomatically();
    } else if (character == L'?') {
        parts_.engines.captions.toggleInformation(parts_.engines.runner.currentEffect);
    } else if (const auto seconds = secondsOfKey(character)) {
        pauseKey(*seconds);
    } else if (!effectKey(character)) {
        volumeKey(character);
    }
    return true;
}

void ShowControls::volumeKey(wchar_t character) {
    if (character == L'+') {
        parts_.engines.player.louder();
    } else if (character == L'-') {
        parts_.engines.player.quieter();
    } else if (character == L'.') {
        parts_.engines.player.mute();
    }
}

bool ShowControls::effectKey(wchar_t character) {
    const auto effect = effectOfKey(character);
    if (!effect) {
        return false;
    }
    if (character != L'#') {
        beep();
    }
    parts_.engines.runner.effectNumber = *effect;
    return true;
}

void ShowControls::pauseKey(int seconds) {
    beep();
    if (const auto scroll = show::pauseScrollOfSeconds(seconds)) {
        parts_.choices.IntS.setValue(*scroll);
    }
    // An item that was asked for at once, as by the key that ended a video, does not wait for the new pause.
    if (!parts_.state.quickStepPending) {
        parts_.timers.Timer1.setInterval(seconds * kMsPerSecond);
        parts_.timers.Timer1.restart();
    }
}

void ShowControls::mousePressed(ui::MouseButton button) {
    if (parts_.state.showMode == kNoShow || parts_.show.justStarted()) {
        return;
    }
    parts_.loop.doEvents();
    parts_.stage.Pic2.repaint();
    if (button == ui::MouseButton::Right) {
        rightButton();
    } else if (button == ui::MouseButton::Left) {
        leftButton();
    }
}

void ShowControls::rightButton() {
    if (parts_.show.atEnd()) {
        return;
    }
    goOnByItself();
}

// The next item comes now and the others follow, whatever the show was held by.
void ShowControls::goOnByItself() {
    parts_.state.showMode = kAutomatically;
    parts_.state.pausedFlag = 0;
    parts_.screen.pointer().hide();
    parts_.show.quickStep();
}

void ShowControls::leftButton() {
    if (parts_.show.atEnd()) {
        parts_.screen.pointer().show();
        return;
    }
    // The second of two quick clicks on a show that waits belongs to the step that the first one asked for.
    const bool waits = parts_.state.showMode == kByHand || parts_.state.pausedFlag == 1;
    if (parts_.state.quickStepPending && waits) {
        return;
    }
    if (parts_.timers.Timer1.enabled()) {
        parts_.show.pauseByHand();
        parts_.screen.pointer().show();
        const RECT screen = parts_.screen.rectangle();
        SetCursorPos((screen.left + screen.right) / 2, (screen.top + screen.bottom) / 2);
        return;
    }
    parts_.show.quickStep();
}

}  // namespace show
