#pragma once

#include <array>
#include <functional>
#include <string>

#include "app/parameter_text.h"
#include "app/program_state.h"
#include "ui/check_box.h"
#include "ui/drive_list.h"
#include "ui/file_list.h"
#include "ui/folder_list.h"
#include "ui/option_button.h"
#include "ui/scroll_bar.h"
#include "ui/text_box.h"

namespace app {

/// Carries the settings of the set-up window over into a parameter text and back.
class ParameterControls {
  public:
    struct Parts {
        ProgramState& state;
        ui::DriveList& Drive1;
        ui::FolderList& Dir1;
        ui::FileList& File1;
        ui::TextBox& IntT;
        ui::ScrollBar& IntS;
        ui::CheckBox& ShowFN;
        ui::CheckBox& LoopC;
        ui::CheckBox& MUTE;
        ui::CheckBox& Musik;
        std::array<ui::OptionButton*, 4> Option1;
        /// Makes an option set (index 0 ... 3) the active one and loads it.
        std::function<void(int index)> chooseSet;
    };
    explicit ParameterControls(Parts parts);

    /// Applies what a command line asks for; what is missing or unusable leaves its control as it is.
    void apply(const Parameters& parameters);
    /// The command that starts the program in the same folder with the same settings.
    std::wstring command() const;
    /// The same with the index of the picture to preselect.
    std::wstring restartCommand() const;

  private:
    ParameterState now() const;

    Parts parts_;
};

}  // namespace app
