#pragma once

#include <functional>

#include "app/program_state.h"
#include "app/setup_controls.h"
#include "platform/profile_file.h"
#include "ui/event_loop.h"
#include "ui/picture_box.h"

namespace app {

/// The four option sets of the settings file and the controls that they fill. Nothing is kept between reads,
/// and an unusable value is passed over in silence.
class OptionSets {
  public:
    struct Parts {
        ui::EventLoop& loop;
        ProgramState& state;
        const platform::ProfileFile& settings;
        FolderLists lists;
        Options options;
        ui::PictureBox& Pic2;
        ui::PictureBox& Pic3;
        ui::Control& SAVE;
    };
    explicit OptionSets(const Parts& parts) : parts_(parts) {}

    /// Reads the set named CurrentSet into the controls.
    void load();
    /// Writes the controls into the set named CurrentSet, and confirms with a beep. Where the settings file
    /// cannot be written nothing confirms it, and the tooltip of SAVE says so.
    void store();
    /// Makes set `index` (0 ... 3) the active one and loads it; what was not stored is lost.
    void choose(int index);
    /// Fills the lists where the folder of a set is the one that they begin with, which tells of no change.
    std::function<void()> onListsWanted;
    /// Gives every set button the name of its folder as tooltip.
    void showFolderNames();

  private:
    Parts parts_;
};

}  // namespace app
