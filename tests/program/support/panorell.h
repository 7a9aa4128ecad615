#pragma once

#include <map>
#include <string>
#include <vector>

#include "program/support/control.h"
#include "program/support/program.h"

namespace program {

/// The real program, with the names its users know for what they do.
class Panorell : public Program {
  public:
    Panorell();

    /// Writes the settings of one set (1 to 4) into the settings file, as SAVE would have left them.
    void keepSettings(int set, const std::map<std::wstring, std::wstring>& values) const;

    /// What the first set says of a show.
    struct Show {
        const wchar_t* delay = L"1";    ///< pause in seconds
        const wchar_t* loop = L"0";     ///< L"1": endlessly
        const wchar_t* effects = L"0";  ///< L"1": with effects; else plain cuts
    };
    /// Writes a first set that shows `folder` without dates and music.
    void keepShow(const std::wstring& folder, const Show& show) const;

    /// Starts the program and waits for the set-up window to be complete and to answer.
    testing::AssertionResult openSetUp(const std::wstring& arguments = {});

    /// The main window now; nullptr when there is none.
    HWND form() const { return windowNow(L"Form1"); }

    /// A control of the main window by its id from ui/control_ids.h.
    Control at(int id) const { return control(form(), id); }

    /// Clicks the control with the mouse.
    testing::AssertionResult clickOn(int id) const;

    /// Ticks the box or takes the tick away, with the mouse, and waits until it is so.
    testing::AssertionResult setTick(int id, bool ticked) const;

    /// Replaces what stands in a text box by typing.
    testing::AssertionResult retype(int id, const std::wstring& text) const;

    /// The number of the option set whose button is on; 0 when none is.
    int chosenSet() const;

    /// Whether the main window stands there with its set-up controls.
    bool inSetUpState() const;
};

/// The text on the clipboard, empty when there is none.
std::wstring clipboardText();

/// Puts `text` on the clipboard, so that a test sees what is left there afterwards.
testing::AssertionResult setClipboardText(const std::wstring& text);

}  // namespace program
