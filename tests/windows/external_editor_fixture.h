#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "edit/external_editor.h"
#include "platform/directory.h"
#include "platform/profile_file.h"
#include "support/edit_scene.h"
#include "support/import_hook.h"
#include "support/picture_writer.h"
#include "support/test_form.h"

namespace edit {

/// The program that stands for the user's; it lies beside the tests.
inline std::wstring testEditor() {
    wchar_t path[MAX_PATH]{};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring own(path);
    return own.substr(0, own.rfind(L'\\') + 1) + L"picture_editor.exe";
}

inline std::string narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

inline int beeps = 0;
inline BOOL WINAPI countBeep(UINT) {
    ++beeps;
    return TRUE;
}

/// An external editor on a scratch folder with one picture, "Mein Bild.jpg".
class ExternalEditorTest : public testing::Test {
  protected:
    ExternalEditorTest() {
        beeps = 0;
        scene_.folder.file(kName, "a picture");
        before_ = scene_.setTimes(kName);
        scene_.load();
        editorPath_ = testEditor();
    }

    ExternalEditor::Desk desk() {
        return {[this](const std::wstring& notice) { log_.push_back("block " + narrow(notice)); },
                [this] { log_.emplace_back("unblock"); },
                [this](const std::wstring& name) {
                    EXPECT_EQ(commandLine(), L"") << "the editor runs already";
                    log_.push_back("remove " + narrow(name));
                },
                [this](int index) { log_.push_back("redraw " + std::to_string(index)); }};
    }
    ExternalEditor editor() {
        return ExternalEditor({test_.loop, scene_.records, editorPath_, scene_.dialogue(), desk(),
                               [this](const std::wstring& path) {
                                   log_.emplace_back("keep");
                                   return settings_.write(L"Prog", L"Name", path);
                               }});
    }
    /// What the editor is to do with the picture.
    void job(const char* words) { scene_.folder.file(L"editor-job.txt", words); }
    void letGoOn() { scene_.folder.file(L"editor-go.txt"); }
    bool started() const { return platform::fileExists(scene_.folder / L"editor-started.txt"); }
    /// How the editor was called; empty when it was not.
    std::wstring commandLine() const {
        if (!started()) {
            return {};
        }
        const auto bytes = support::readBytes(scene_.folder / L"editor-started.txt");
        return {reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t)};
    }
    std::string content() const {
        const auto bytes = support::readBytes(scene_.folder / kName);
        return {bytes.begin(), bytes.end()};
    }

    static constexpr const wchar_t* kName = L"Mein Bild.jpg";

    support::TestForm test_;
    support::EditScene scene_;
    support::ScratchFolder programs_;
    platform::ProfileFile settings_{programs_ / L"Panorell.ini"};
    platform::FileTimes before_;
    std::wstring editorPath_;
    std::vector<std::string> log_;
    support::ImportHook beep_{"MessageBeep", countBeep};
};

}  // namespace edit
