#pragma once

#include <array>
#include <functional>
#include <string>

#include "media/media_control.h"
#include "overview/preview_rule.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/picture_box.h"
#include "ui/timer.h"

namespace overview {

/// What belongs to the enlarged view of an item.
struct PreviewControls {
    ui::PictureBox& Pic3;                                  ///< the big box
    std::array<ui::PushButton*, kPreviewButtons> Command;  ///< the row below it; see kPreviewButtons
    ui::CheckBox& Ton;                                     ///< the film's sound
    ui::Timer& Timer1;                                     ///< shows how far the film is
};

/// The buttons below the enlarged view: they steer the film that is open under VIDEO, and the last one shows
/// something about the item. Opening and showing an item is the enlarged view's job.
class VideoPreview {
  public:
    VideoPreview(media::MediaControl& control, const PreviewControls& controls);

    /// An item was enlarged: what there is to show of it. Where that is nothing the last button is empty.
    void begin(PreviewTexts texts);
    /// The open film's length in ms; its position is shown from now on.
    void setLength(double ms);
    /// Sends the film the state that Ton shows, where it is not the silence in which each film begins.
    void applySound();
    /// Stops the display and closes what is open under VIDEO.
    void stop();

    /// What the last button shows.
    PreviewInfo previewInfoMode = PreviewInfo::Date;
    /// The film's length in seconds, as text.
    std::wstring videoLengthText;

    /// The user wants the enlarged view closed.
    std::function<void()> onClose;

  private:
    void clicked(std::size_t button);
    void soundClicked();
    void nextInfo();
    void showInfo();
    void showPosition();
    void focusButton();

    media::MediaControl& control_;
    PreviewControls controls_;
    PreviewTexts texts_;
    std::size_t lastClicked_ = 0;
};

}  // namespace overview
