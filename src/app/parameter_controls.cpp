#include "app/parameter_controls.h"

#include <utility>

#include "app/folder_choice.h"
#include "show/pause_time.h"

namespace app {

ParameterControls::ParameterControls(Parts parts) : parts_(std::move(parts)) {}

void ParameterControls::apply(const Parameters& parameters) {
    // The set comes first, so that everything else overrides what it loads.
    if (parameters.optionIndex) {
        parts_.chooseSet(*parameters.optionIndex);
        parts_.options.Option1[static_cast<std::size_t>(*parameters.optionIndex)]->setSelected(true);
    }
    if (parameters.drive) {
        chooseFolder(parts_.lists.Drive1, parts_.lists.Dir1, *parameters.drive, parameters.folder);
    }
    if (parameters.pauseText) {
        parts_.options.IntT.setText(*parameters.pauseText);
        if (const auto scroll = show::pauseScrollOf(*parameters.pauseText)) {
            parts_.options.IntS.setValue(*scroll);
        }
    }
    const auto tick = [](ui::CheckBox& box, const std::optional<int>& value) {
        if (value) {
            box.setValue(*value);
        }
    };
    tick(parts_.options.ShowFN, parameters.date);
    tick(parts_.options.LoopC, parameters.loop);
    tick(parts_.options.MUTE, parameters.videoSound);
    tick(parts_.options.Musik, parameters.music);
    parts_.fillLists();
    if (parameters.startIndex && parts_.lists.File1.count() > 0) {
        parts_.state.StartIndex = *parameters.startIndex;
        if (*parameters.startIndex < parts_.lists.File1.count()) {
            parts_.lists.File1.setSelectedIndex(*parameters.startIndex);
        }
    }
}

ParameterState ParameterControls::now() const {
    ParameterState state;
    state.folder = parts_.lists.Dir1.path();
    state.pauseText = parts_.options.IntT.text();
    state.date = parts_.options.ShowFN.value();
    state.loop = parts_.options.LoopC.value();
    state.videoSound = parts_.options.MUTE.value();
    state.music = parts_.options.Musik.value();
    for (std::size_t i = 0; i < parts_.options.Option1.size(); ++i) {
        if (parts_.options.Option1[i]->selected()) {
            state.optionIndex = static_cast<int>(i);
        }
    }
    return state;
}

std::wstring ParameterControls::command() const {
    return buildCommand(parts_.state.ProgramDir, now());
}

std::wstring ParameterControls::restartCommand() const {
    return buildRestartCommand(parts_.state.ProgramDir, now(), parts_.state.StartIndex);
}

}  // namespace app
