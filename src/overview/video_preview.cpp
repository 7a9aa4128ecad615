#include "overview/video_preview.h"

#include <string_view>
#include <utility>

#include "text/text_number.h"

namespace overview {

namespace {

enum Button : std::size_t { kClose, kBack, kPause, kPlay, kNothing, kInfo };

constexpr const wchar_t* kSoundOn = L"Ton ein";
constexpr const wchar_t* kSoundOff = L"Ton aus";
/// Often enough for tenths of a second to be seen to run.
constexpr int kPositionMs = 100;

}  // namespace

VideoPreview::VideoPreview(media::MediaControl& control, const PreviewControls& controls)
    : control_(control), controls_(controls) {
    for (std::size_t i = 0; i < kPreviewButtons; ++i) {
        controls_.Command[i]->onClick = [this, i] { clicked(i); };
    }
    controls_.Ton.onClick = [this] { soundClicked(); };
    controls_.Timer1.setInterval(kPositionMs);
    controls_.Timer1.onTimer = [this] { showPosition(); };
}

void VideoPreview::begin(PreviewTexts texts) {
    texts_ = std::move(texts);
    videoLengthText.clear();
    previewInfoMode = firstPreviewInfo(texts_);
    if (!texts_.film) {
        showInfo();
    }
}

void VideoPreview::setLength(double ms) {
    videoLengthText = secondsText(ms);
    controls_.Command[kInfo]->setText(positionText(0, videoLengthText));
    controls_.Timer1.setEnabled(true);
}

void VideoPreview::applySound() {
    if (controls_.Ton.value() == 1) {
        control_.send("set VIDEO audio all on");
    }
}

void VideoPreview::stop() {
    controls_.Timer1.setEnabled(false);
    control_.send("stop VIDEO");
    control_.send("close VIDEO");
}

void VideoPreview::clicked(std::size_t button) {
    lastClicked_ = button;
    switch (button) {
        case kClose:
            onClose();
            return;
        case kBack:
            control_.send("play VIDEO from 0");
            control_.send("pause VIDEO");
            break;
        case kPause:
            control_.send("pause VIDEO");
            break;
        case kPlay:
            control_.send("play VIDEO");
            break;
        case kInfo:
            nextInfo();
            break;
        default:
            break;
    }
    focusButton();
}

void VideoPreview::soundClicked() {
    const bool on = controls_.Ton.value() == 1;
    control_.send(on ? "set VIDEO audio all on" : "set VIDEO audio all off");
    controls_.Ton.setText(on ? kSoundOff : kSoundOn);
    focusButton();
}

void VideoPreview::focusButton() {
    controls_.Command[lastClicked_]->setFocus();
}

void VideoPreview::nextInfo() {
    previewInfoMode = nextPreviewInfo(previewInfoMode, texts_);
    showInfo();
}

void VideoPreview::showInfo() {
    const bool position = previewInfoMode == PreviewInfo::Position;
    controls_.Timer1.setEnabled(position);
    if (position) {
        showPosition();
    } else {
        controls_.Command[kInfo]->setText(previewText(previewInfoMode, texts_));
    }
}

void VideoPreview::showPosition() {
    const media::MediaReply reply = control_.send("status VIDEO position", media::kReplySize);
    const double position = text::numericValue(std::string_view(reply.text));
    controls_.Command[kInfo]->setText(positionText(position, videoLengthText));
}

}  // namespace overview
