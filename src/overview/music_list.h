#pragma once

#include <functional>
#include <string>
#include <vector>

#include "media/media_control.h"
#include "media/music_state.h"
#include "overview/music_order.h"
#include "ui/button.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/timer.h"

namespace overview {

/// The list in which the folder's music is put in order, locked and listened to. The controls are hidden
/// until it is shown; nothing is permanent before OK.
class MusicList {
  public:
    struct Parts {
        ui::ListBox& List1;  ///< of a multiple selection: the titles that play are highlighted
        ui::Label& caption;
        ui::Button& OK;
        ui::Button& CAN;
        ui::Timer& Timer2;  ///< sets the highlights right after the list's own toggling
        media::MediaControl& control;
        media::MusicState& music;
        RenameMusic rename;
        /// The list and its buttons were shown or hidden.
        std::function<void()> toggled;
        /// What had the keyboard was hidden: it belongs elsewhere now.
        std::function<void()> focusLeft;
        /// Told one German sentence when OK was refused; the list stays as it is.
        std::function<void(const std::wstring& sentence)> refused;
    };
    explicit MusicList(Parts parts);

    /// Takes the folder's titles from the names of its music files, in their order, and hides the list. Where
    /// the folder cannot be written OK is off.
    void load(const std::vector<std::wstring>& fileNames, bool folderWritable);
    /// Whether there is something to show.
    bool hasTitles() const { return !saved_.empty(); }
    /// Shows the list with its buttons; without titles it stays hidden.
    void show();
    /// Whether the list or one of its buttons has the keyboard.
    bool hasFocus() const;

  private:
    void fill();
    void setVisible(bool visible);
    void stopAudition();
    int rowOf(const ui::MouseEvent& event) const;
    void pressed(const ui::MouseEvent& event);
    void released(const ui::MouseEvent& event);
    void doubleClicked(const ui::MouseEvent& event);
    void flipByKey();
    void audition(int row);
    void flipLock(int row);
    void move(int from, int to);
    void setHighlights();
    void confirm();
    void cancel();

    Parts parts_;
    std::vector<MusicEntry> saved_;  ///< as the files have it
    std::vector<MusicEntry> order_;  ///< as the list has it
    int dragSourceIndex_ = kBelowRows;
};

}  // namespace overview
