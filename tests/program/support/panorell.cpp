#include "program/support/panorell.h"

#include <cstring>

#include "program/support/environment.h"
#include "program/support/input.h"
#include "ui/control_ids.h"

namespace program {
namespace {

namespace id = ui::id;

/// Opens the clipboard, which another program may hold for a moment.
bool openClipboard() {
    return static_cast<bool>(
        waitFor([] { return OpenClipboard(nullptr) != 0; }, kPatience, "the clipboard opens"));
}

}  // namespace

Panorell::Panorell() : Program(panorellExe()) {}

void Panorell::keepSettings(int set, const std::map<std::wstring, std::wstring>& values) const {
    const std::wstring section = L"Set" + std::to_wstring(set);
    for (const auto& [key, value] : values) {
        EXPECT_TRUE(
            WritePrivateProfileStringW(section.c_str(), key.c_str(), value.c_str(), settingsFile().c_str()));
    }
}

void Panorell::keepShow(const std::wstring& folder, const Show& show) const {
    keepSettings(1, {{L"Drive", folder.substr(0, 2)},
                     {L"Dir", folder},
                     {L"Delay", show.delay},
                     {L"Loop", show.loop},
                     {L"Date", L"0"},
                     {L"Music", L"0"},
                     {L"Effekte", show.effects}});
}

testing::AssertionResult Panorell::openSetUp(const std::wstring& arguments) {
    start(arguments);
    const HWND window = this->window();
    if (!window) {
        return testing::AssertionFailure()
               << (running() ? "no window came" : "the program ended, code ")
               << (running() ? std::string() : std::to_string(exitCode().value_or(0)));
    }
    // CTRL is enabled near the end of the window's loading; an answer after that comes from its event loop.
    return waitFor([&] { return inSetUpState() && at(id::kCTRL).enabled() && responds(form()); }, kPatience,
                   "the set-up window is complete");
}

testing::AssertionResult Panorell::clickOn(int id) const {
    // A control may be off for a moment, as Run is while a preview loads.
    auto ready = waitFor([&] { return at(id).enabled(); }, kPatience, "the control can be worked");
    const HWND window = form();
    ready = ready ? bringToFront(window) : ready;
    return ready ? click(control(window, id)) : ready;
}

testing::AssertionResult Panorell::setTick(int id, bool ticked) const {
    const int wanted = ticked ? BST_CHECKED : BST_UNCHECKED;
    if (at(id).checkState() == wanted) {
        return testing::AssertionSuccess();
    }
    const auto clicked = clickOn(id);
    return clicked ? waitFor([&] { return at(id).checkState() == wanted; }, kPatience, "the box changes")
                   : clicked;
}

testing::AssertionResult Panorell::retype(int id, const std::wstring& text) const {
    auto done = clickOn(id);
    const HWND window = form();
    const Control box = at(id);
    done = done ? waitFor([&] { return focusIn(window) == box.handle(); }, kPatience, "the box has the focus")
                : done;
    done = done ? pressKey(window, VK_END) : done;
    for (std::size_t i = box.text().size(); i > 0 && done; --i) {
        done = pressKey(window, VK_BACK);
    }
    done = done ? waitFor([&] { return box.text().empty(); }, kPatience, "the box is empty") : done;
    return done ? typeText(window, text) : done;
}

int Panorell::chosenSet() const {
    for (int i = 0; i < 4; ++i) {
        if (at(id::kOption1 + i).checkState() == BST_CHECKED) {
            return i + 1;
        }
    }
    return 0;
}

bool Panorell::inSetUpState() const {
    return form() && at(id::kStart).visible();
}

std::wstring clipboardText() {
    if (!openClipboard()) {
        return {};
    }
    std::wstring text;
    if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(GlobalLock(data));
        GlobalUnlock(data);
    }
    CloseClipboard();
    return text;
}

testing::AssertionResult setClipboardText(const std::wstring& text) {
    if (!openClipboard()) {
        return testing::AssertionFailure() << "the clipboard does not open";
    }
    EmptyClipboard();
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    std::memcpy(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    const bool set = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    CloseClipboard();
    return set ? testing::AssertionSuccess() : testing::AssertionFailure() << "SetClipboardData failed";
}

}  // namespace program
