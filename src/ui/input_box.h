#pragma once

#include <optional>
#include <string>

#include "ui/window.h"

namespace ui {

/// What an input box asks.
struct InputQuestion {
    std::wstring title;
    std::wstring prompt;  ///< lines end in CR LF, and break at blanks where they are too wide
    std::wstring text;    ///< stands in the box and is selected, so that typing replaces it
    int longest = 0;      ///< most characters that can be typed; 0: no bound
};

/// Asks for a line of text and waits for the answer: the text as it stands there for "OK" and Enter, none for
/// "Abbruch", Escape and closing. `owner` may be null; it takes no input meanwhile. When the program is being
/// left the box closes and Leaving is thrown.
std::optional<std::wstring> inputBox(const Window* owner, const InputQuestion& question);

}  // namespace ui
