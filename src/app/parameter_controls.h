#pragma once

#include <functional>
#include <string>

#include "app/parameter_text.h"
#include "app/program_state.h"
#include "app/setup_controls.h"

namespace app {

/// Carries the settings of the set-up window over into a parameter text and back.
class ParameterControls {
  public:
    struct Parts {
        ProgramState& state;
        FolderLists lists;
        Options options;
        /// Makes an option set (index 0 ... 3) the active one and loads it.
        std::function<void(int index)> chooseSet;
        /// Fills the lists, where no folder was given.
        std::function<void()> fillLists;
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
