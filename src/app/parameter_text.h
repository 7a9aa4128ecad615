#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace app {

/// What the parameter text carries from one process to the next, as the set-up window shows it.
struct ParameterState {
    std::wstring folder;             ///< path of `Dir1`
    std::wstring pauseText;          ///< text of `IntT`
    int date = 0;                    ///< `ShowFN`, 0 ... 2 as all check boxes
    int loop = 0;                    ///< `LoopC`
    int videoSound = 0;              ///< `MUTE`
    int music = 0;                   ///< `Musik`
    std::optional<int> optionIndex;  ///< index 0 ... 3 of the selected set button
};

/// What a parameter text asks for; what it does not name, or names unusably, is absent.
struct Parameters {
    std::optional<int> optionIndex;         ///< "S=": index 0 ... 3 of the set button
    std::optional<std::wstring> drive;      ///< two characters, as "C:"; present exactly when `folder` is
    std::optional<std::wstring> folder;     ///< full path
    std::optional<std::wstring> pauseText;  ///< "P=": trimmed text for `IntT`, not checked
    std::optional<int> date;                ///< "D=": 0 ... 2
    std::optional<int> loop;                ///< "E="
    std::optional<int> videoSound;          ///< "V="
    std::optional<int> music;               ///< "M="
    std::optional<int> startIndex;          ///< "L=": one digit, 0 ... 9; no digit reads as 0
    bool runAtOnce = false;                 ///< "R=1" anywhere
    friend bool operator==(const Parameters&, const Parameters&) = default;
};

/// The parameter text of a state, without a picture index.
std::wstring buildParameterText(const ParameterState& state);

/// The command that starts the program with a state: `programDir` ends in "\" and is not quoted.
std::wstring buildCommand(std::wstring_view programDir, const ParameterState& state);

/// The same with " L=" and the index of the picture to preselect: the command of a restart.
std::wstring buildRestartCommand(std::wstring_view programDir, const ParameterState& state, int startIndex);

/// Reads a parameter text. Each key is looked for on its own, case-sensitively, and its first occurrence
/// anywhere counts, so keys stand in any order behind the folder.
///
/// The folder begins one character before the first ":" and ends two characters before the next "=", or
/// at the end. Quotes around it are dropped; a quoted folder may hold "=".
Parameters parseParameters(std::wstring_view text);

/// The parameters in a whole command line: what stands behind the program's name, which is quoted or ends
/// at the first blank, without the blanks at both ends.
std::wstring_view parametersOfCommandLine(std::wstring_view commandLine);

}  // namespace app
