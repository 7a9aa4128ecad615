#include "show/show_end.h"

#include <windows.h>

#include <utility>

#include "media/fade_rule.h"
#include "ui/button.h"

namespace show {

namespace {

constexpr int kEndWaitMs = 1000;
/// Diameter of the end button's corners: a little more than it draws them with, whose edge is smoothed.
constexpr ui::Twips kEndButtonCorner = 2 * ui::kButtonRadius + 30;

}  // namespace

void ShowEnd::begin() {
    awake_ = std::make_unique<platform::DisplayAwake>();
}

void ShowEnd::come() {
    standing_ = true;
    awake_.reset();
    parts_.timers.Timer1.setEnabled(false);
    parts_.timers.Timer5.setEnabled(false);
    parts_.stage.Text1.hide();
    SetCursorPos(0, 0);
    parts_.engines.captions.end();
    roundButton();
    parts_.stage.EOT.toFront();
    parts_.stage.EOT.show();
    // The end button is there to be clicked.
    hidePointerAgain_ = parts_.screen.pointer().pointerHidden() != 0;
    parts_.screen.pointer().show();
    parts_.stage.Pic2.setFocus();
    parts_.stage.Pic3.drop();
    parts_.loop.doEvents();
    parts_.loop.sleep(kEndWaitMs);
    if (standing_ && parts_.engines.player.playing()) {
        fadeMusicOut();
    }
}

void ShowEnd::fadeMusicOut() {
    const int volume = parts_.engines.music.musicVolume;
    for (int step = 0; step < media::endFadeSteps(volume); ++step) {
        parts_.engines.player.sendVolume(media::endFadeVolume(step, volume));
        parts_.loop.doEvents();
        if (!standing_) {
            return;
        }
        parts_.loop.sleep(media::kEndFadePauseMs);
    }
}

void ShowEnd::leave() {
    if (!std::exchange(standing_, false)) {
        return;
    }
    begin();
    parts_.stage.EOT.hide();
    if (hidePointerAgain_) {
        parts_.screen.pointer().hide();
    }
    if (parts_.engines.player.playing()) {
        parts_.engines.player.sendVolume(parts_.engines.music.musicVolume);
        parts_.timers.Timer5.setEnabled(true);
    }
}

void ShowEnd::forget() {
    standing_ = false;
    awake_.reset();
}

void ShowEnd::surfaceChanged() {
    if (parts_.stage.EOT.visible()) {
        roundButton();
    }
}

// Beside its round corners the button would paint the window's black onto the picture.
void ShowEnd::roundButton() {
    const SIZE size = parts_.stage.EOT.clientSize();
    const int corner = ui::toPixels(kEndButtonCorner, parts_.stage.EOT.dpi());
    // The window owns the region from here on.
    SetWindowRgn(parts_.stage.EOT.hwnd(), CreateRoundRectRgn(0, 0, size.cx + 1, size.cy + 1, corner, corner),
                 TRUE);
}

}  // namespace show
