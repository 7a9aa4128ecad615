#pragma once

#include <array>
#include <functional>
#include <string>

#include "app/program_state.h"
#include "platform/profile_file.h"
#include "ui/check_box.h"
#include "ui/drive_list.h"
#include "ui/event_loop.h"
#include "ui/file_list.h"
#include "ui/folder_list.h"
#include "ui/option_button.h"
#include "ui/picture_box.h"
#include "ui/scroll_bar.h"
#include "ui/text_box.h"

namespace app {

/// The four option sets of the settings file and the controls that they fill. Nothing is kept between reads,
/// and an unusable value or an unwritable file is passed over in silence.
class OptionSets {
  public:
    struct Parts {
        ui::EventLoop& loop;
        ProgramState& state;
        const platform::ProfileFile& settings;
        ui::DriveList& Drive1;
        ui::FolderList& Dir1;
        ui::FileList& File1;
        ui::TextBox& IntT;
        ui::ScrollBar& IntS;
        ui::CheckBox& LoopC;
        ui::CheckBox& ShowFN;
        ui::CheckBox& MUTE;
        ui::CheckBox& Musik;
        ui::CheckBox& Check1;
        ui::PictureBox& Pic2;
        ui::PictureBox& Pic3;
        std::array<ui::OptionButton*, 4> Option1;
    };
    explicit OptionSets(const Parts& parts) : parts_(parts) {}

    /// Reads the set named CurrentSet into the controls.
    void load();
    /// Writes the controls into the set named CurrentSet, and confirms with a beep.
    void store();
    /// Makes set `index` (0 ... 3) the active one and loads it; what was not stored is lost.
    void choose(int index);
    /// Gives every set button the name of its folder as tooltip.
    void showFolderNames();

  private:
    Parts parts_;
};

}  // namespace app
