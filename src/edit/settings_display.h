#pragma once

#include "edit/settings_text.h"
#include "overview/box_picture.h"
#include "overview/grid_view.h"
#include "overview/thumb_record.h"
#include "picture/pixels.h"
#include "picture/surface.h"

namespace edit {

/// Writes over every thumbnail what is known of its item. The text lies on what the boxes show and not in the
/// thumbnails, so that one that is drawn anew has it again, and a stored one never has it.
class SettingsDisplay {
  public:
    /// Both outlive it; nothing else draws onto the boxes.
    SettingsDisplay(const overview::ThumbRecords& records, overview::GridView& view);
    ~SettingsDisplay();
    SettingsDisplay(const SettingsDisplay&) = delete;
    SettingsDisplay& operator=(const SettingsDisplay&) = delete;

    bool shown() const { return shown_; }
    void setShown(bool shown);
    /// The items have changed: what is shown of them is written anew.
    void refresh();

  private:
    void repaintAll();
    void draw(int index, picture::Pixels& box, const overview::ImagePlace& place);
    void drawPiece(const SettingsPiece& piece, const RECT& place, int halo) const;

    const overview::ThumbRecords& records_;
    overview::GridView& view_;
    picture::Surface canvas_;
    bool shown_ = false;
};

}  // namespace edit
