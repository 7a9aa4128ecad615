#include "app/parameter_controls.h"

#include <utility>

#include "app/folder_choice.h"
#include "app/pause_time.h"

namespace app {

ParameterControls::ParameterControls(Parts parts) : parts_(std::move(parts)) {}

void ParameterControls::apply(const Parameters& parameters) {
    // The set comes first, so that everything else overrides what it loads.
    if (parameters.optionIndex) {
        parts_.chooseSet(*parameters.optionIndex);
        parts_.Option1[static_cast<std::size_t>(*parameters.optionIndex)]->setSelected(true);
    }
    if (parameters.drive) {
        chooseFolder(parts_.Drive1, parts_.Dir1, *parameters.drive, parameters.folder);
    }
    if (parameters.pauseText) {
        parts_.IntT.setText(*parameters.pauseText);
        if (const auto scroll = pauseScrollOf(*parameters.pauseText)) {
            parts_.IntS.setValue(*scroll);
        }
    }
    const auto tick = [](ui::CheckBox& box, const std::optional<int>& value) {
        if (value) {
            box.setValue(*value);
        }
    };
    tick(parts_.ShowFN, parameters.date);
    tick(parts_.LoopC, parameters.loop);
    tick(parts_.MUTE, parameters.videoSound);
    tick(parts_.Musik, parameters.music);
    if (parameters.startIndex && parts_.File1.count() > 0) {
        parts_.state.StartIndex = *parameters.startIndex;
        if (*parameters.startIndex < parts_.File1.count()) {
            parts_.File1.setSelectedIndex(*parameters.startIndex);
        }
    }
}

ParameterState ParameterControls::now() const {
    ParameterState state;
    state.folder = parts_.Dir1.path();
    state.pauseText = parts_.IntT.text();
    state.date = parts_.ShowFN.value();
    state.loop = parts_.LoopC.value();
    state.videoSound = parts_.MUTE.value();
    state.music = parts_.Musik.value();
    for (std::size_t i = 0; i < parts_.Option1.size(); ++i) {
        if (parts_.Option1[i]->selected()) {
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
