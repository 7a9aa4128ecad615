#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "edit/entry_editor.h"
#include "support/scratch_folder.h"
#include "support/test_form.h"

namespace support {

/// The editor of entries beside a form in the overview's place, with a folder of files and recorded calls.
/// Thumbnails lie where `thumbnail` says.
class EntryEditorStage {
  public:
    explicit EntryEditorStage(int count = 3) {
        test.waitFor([this] { return GetForegroundWindow() == test.form.hwnd(); });
        records.folder = folder.path();
        for (int i = 0; i < count; ++i) {
            overview::ThumbRecord record;
            record.fileName = L"Bild" + std::to_wstring(i) + L".jpg";
            record.toolTip = L"alt";
            folder.file(record.fileName, "picture");
            records.thumbRecords.push_back(record);
        }
        form.emplace(test.form);
        editor.emplace(edit::EntryEditor::Parts{
            test.loop, *form, records, [this] { return music; }, [this](int) { return thumbnail; },
            [this](int index) { log("redraw", index); }, [this](int index) { log("tip", index); },
            [this] { log("settings", -1); }, [this](bool allowed) { tips = allowed; }});
        form->onActivation = [this](bool active) { disturbed = disturbed || (!active && editor->isOpen()); };
        editor->onRefused = [this](const std::wstring& sentence) { refused.push_back(sentence); };
    }

    overview::ThumbRecord& record(int index) { return records.thumbRecords[static_cast<std::size_t>(index)]; }
    /// Opens the editor for an entry of the first item.
    void open(const std::wstring& entry) {
        record(0).entry = entry;
        editor->open(0);
        waitForFocus();
    }
    /// Whether the focus comes into the title. A window manager gives it in its own time, and to the window
    /// shown before where that one was shown just before.
    bool waitForFocus() {
        return test.waitFor([this] {
            if (GetForegroundWindow() != form->hwnd()) {
                SetForegroundWindow(form->hwnd());
            }
            return form->UTT.hasFocus();
        });
    }
    void accept() {
        form->OK.click();
        test.loop.settle();
    }
    /// What OK without a change makes of an entry.
    std::wstring accepted(const std::wstring& entry) {
        open(entry);
        accept();
        return record(0).entry;
    }
    std::wstring caption() const {
        wchar_t text[100]{};
        GetWindowTextW(form->hwnd(), text, 100);
        return text;
    }
    void type(const std::wstring& text) {
        for (const wchar_t character : text) {
            PostMessageW(GetFocus(), WM_CHAR, character, 1);
            test.loop.settle();
        }
    }
    /// What a scenario of keys answers. A window manager may take the focus away for a moment after a window
    /// was shown; a scenario that this disturbed is played again.
    template <typename Scenario>
    auto undisturbed(Scenario scenario) {
        constexpr int kTries = 20;
        for (int i = 1;; ++i) {
            disturbed = false;
            auto answer = scenario();
            if (!disturbed || i == kTries) {
                return answer;
            }
        }
    }
    int focused() const { return GetDlgCtrlID(GetFocus()); }
    /// The window's place on the screen.
    RECT place() const {
        RECT own{};
        GetWindowRect(form->hwnd(), &own);
        return own;
    }

    TestForm test;
    ScratchFolder folder;
    overview::ThumbRecords records;
    std::vector<std::wstring> music;
    RECT thumbnail{300, 300, 460, 420};
    std::optional<edit::Form3> form;
    std::optional<edit::EntryEditor> editor;
    std::vector<std::string>
        calls;  ///< "redraw 0", "tip 0", "settings", with "!" while the editor is visible
    std::vector<std::wstring> refused;
    bool tips = true;        ///< thumbnails may show theirs
    bool disturbed = false;  ///< the open editor was no longer the active window

  private:
    void log(const std::string& call, int index) {
        calls.push_back(call + (index < 0 ? "" : " " + std::to_string(index)) + (form->visible() ? "!" : ""));
    }
};

}  // namespace support
