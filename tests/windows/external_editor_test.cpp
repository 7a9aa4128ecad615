#include "edit/external_editor.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <atomic>
#include <thread>

#include "overview/thumbnail_store.h"
#include "platform/directory.h"
#include "platform/file_time.h"
#include "platform/profile_file.h"
#include "support/edit_scene.h"
#include "support/import_hook.h"
#include "support/picture_writer.h"
#include "support/test_form.h"

namespace edit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The program that stands for the user's; it lies beside the tests.
std::wstring testEditor() {
    wchar_t path[MAX_PATH]{};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring own(path);
    return own.substr(0, own.rfind(L'\\') + 1) + L"picture_editor.exe";
}

std::string narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

int beeps = 0;
BOOL WINAPI countBeep(UINT) {
    ++beeps;
    return TRUE;
}

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

TEST_F(ExternalEditorTest, ThePictureIsChangedAndKeepsItsTimes) {
    job("append");
    const files::FileStamp former = scene_.record(0).stamp;
    editor().run(0);
    EXPECT_EQ(scene_.facts(kName).times, before_);
    EXPECT_EQ(content(), "a pictureedited");
    EXPECT_THAT(log_, ElementsAre("remove Mein Bild.jpg", "block Warten auf \xABpicture_editor\xBB ...",
                                  "redraw 0", "unblock"));
    EXPECT_THAT(scene_.told, IsEmpty());
    EXPECT_EQ(scene_.record(0).stamp.size, former.size + 6);
    EXPECT_EQ(scene_.record(0).stamp.written, former.written);
    EXPECT_FALSE(scene_.records.changed);
}

TEST_F(ExternalEditorTest, ItIsEditedAgainWithoutAnObjection) {
    job("replace");
    editor().run(0);
    scene_.folder.remove(L"editor-started.txt");
    job("append");
    editor().run(0);
    EXPECT_EQ(scene_.facts(kName).times, before_);
    EXPECT_EQ(content(), "written anewedited");
    EXPECT_THAT(scene_.told, IsEmpty());
}

TEST_F(ExternalEditorTest, TheCommandLineNeedsNoQuotesForThePicture) {
    const std::wstring program = programs_.folder(L"Mal Programm") + L"\\picture editor.exe";
    ASSERT_TRUE(CopyFileW(testEditor().c_str(), program.c_str(), TRUE));
    editorPath_ = program;
    job("append");
    editor().run(0);
    const std::wstring line = commandLine();
    EXPECT_TRUE(line.starts_with(L"\"" + program + L"\" ")) << line;
    EXPECT_EQ(line.find_first_of(L" \"", program.size() + 3), std::wstring::npos) << line;
    EXPECT_EQ(content(), "a pictureedited");
}

DWORD WINAPI noShortName(LPCWSTR, LPWSTR, DWORD) {
    return 0;
}

TEST_F(ExternalEditorTest, WithoutAShortNameTheLongOneIsQuoted) {
    const support::ImportHook hook("GetShortPathNameW", noShortName);
    job("append");
    editor().run(0);
    EXPECT_TRUE(commandLine().ends_with(L" \"" + (scene_.folder / kName) + L"\"")) << commandLine();
    EXPECT_EQ(content(), "a pictureedited");
}

/// Files have a creation time of their own, whatever the file system keeps, and what is set is noted.
class TimesOfCreation {
  public:
    static constexpr FILETIME kCreated{123456789, 29000000};
    std::vector<platform::FileTimes> set;

    TimesOfCreation() : ask_("GetFileInformationByHandle", &ask), set_("SetFileTime", &note) { one = this; }

  private:
    static BOOL WINAPI ask(HANDLE file, BY_HANDLE_FILE_INFORMATION* told) {
        const BOOL done = one->ask_.original<decltype(GetFileInformationByHandle)>()(file, told);
        told->ftCreationTime = kCreated;
        return done;
    }
    static BOOL WINAPI note(HANDLE file, const FILETIME* created, const FILETIME* accessed,
                            const FILETIME* written) {
        one->set.push_back({platform::fileTimeNumber(*created), platform::fileTimeNumber(*accessed),
                            platform::fileTimeNumber(*written)});
        return one->set_.original<decltype(SetFileTime)>()(file, created, accessed, written);
    }
    inline static TimesOfCreation* one = nullptr;
    support::ImportHook ask_;
    support::ImportHook set_;
};

TEST_F(ExternalEditorTest, TheTimeOfCreationIsPutBackAsWell) {
    TimesOfCreation times;
    job("replace");
    editor().run(0);
    const platform::FileTimes expected{platform::fileTimeNumber(TimesOfCreation::kCreated), before_.accessed,
                                       before_.written};
    EXPECT_THAT(times.set, ElementsAre(expected));
}

TEST_F(ExternalEditorTest, ALockedPictureStaysHidden) {
    scene_.folder.hide(kName);
    scene_.load();
    job("replace");
    editor().run(0);
    EXPECT_EQ(scene_.facts(kName).times, before_);
    EXPECT_TRUE(scene_.facts(kName).hidden);
    EXPECT_EQ(content(), "written anew");
}

TEST_F(ExternalEditorTest, APictureThatWasWrittenAnewKeepsItsLongName) {
    job("replace");
    editor().run(0);
    std::vector<std::wstring> names;
    for (const platform::DirectoryEntry& entry : platform::listDirectory(scene_.folder.path())) {
        if (entry.name.ends_with(L"jpg") || entry.name.ends_with(L"JPG")) {
            names.push_back(entry.name);
        }
    }
    EXPECT_THAT(names, ElementsAre(kName));
    EXPECT_EQ(content(), "written anew");
}

TEST_F(ExternalEditorTest, APictureThatTheEditorRemovedIsToldOf) {
    job("delete");
    editor().run(0);
    ASSERT_EQ(scene_.told.size(), 1u);
    EXPECT_EQ(scene_.told[0].text, L"Die Datei «Mein Bild.jpg» ist nicht mehr da.");
    EXPECT_EQ(log_.back(), "unblock");
}

TEST_F(ExternalEditorTest, AProgramThatCannotBeStartedIsToldOf) {
    editorPath_ = programs_.file(L"kein Programm.exe", "text");
    editor().run(0);
    ASSERT_EQ(scene_.told.size(), 1u);
    EXPECT_TRUE(scene_.told[0].text.starts_with(L"«kein Programm» kann nicht gestartet werden: "))
        << scene_.told[0].text;
    EXPECT_EQ(scene_.facts(kName).times, before_);
    EXPECT_EQ(content(), "a picture");
    EXPECT_EQ(log_.back(), "unblock");
    EXPECT_EQ(log_[2], "redraw 0") << "its stored thumbnail comes back";
}

TEST_F(ExternalEditorTest, APictureThatChangedMeanwhileIsNotOpened) {
    scene_.folder.file(kName, "of another program");
    editor().run(0);
    EXPECT_EQ(scene_.told.size(), 1u);
    EXPECT_THAT(log_, IsEmpty());
    EXPECT_FALSE(started());
}

TEST_F(ExternalEditorTest, WithoutAProgramNothingHappens) {
    editorPath_.clear();
    EXPECT_FALSE(editor().known());
    editor().run(0);
    EXPECT_THAT(log_, IsEmpty());
    EXPECT_THAT(scene_.told, IsEmpty());
}

TEST_F(ExternalEditorTest, TheStoredThumbnailIsGoneBeforeTheEditorStarts) {
    scene_.folder.folder(L"Mini");
    const std::wstring thumbnail = scene_.folder.file(L"Mini\\Mein Bild.bmp");
    scene_.folder.file(L"Mini\\Anderes.bmp");
    overview::ThumbnailStore store(scene_.folder.path(), {kName, L"Anderes.jpg"}, true);
    ExternalEditor::Desk with = desk();
    with.removeStored = [&](const std::wstring& name) { store.remove(name); };
    with.block = [&](const std::wstring&) { EXPECT_FALSE(platform::fileExists(thumbnail)); };
    job("append");
    ExternalEditor({test_.loop, scene_.records, editorPath_, scene_.dialogue(), with, {}}).run(0);
    EXPECT_EQ(content(), "a pictureedited");
    EXPECT_FALSE(platform::fileExists(thumbnail));
    EXPECT_EQ(store.pathOf(kName), L"");
    EXPECT_TRUE(platform::fileExists(scene_.folder / L"Mini\\Anderes.bmp"));
}

TEST_F(ExternalEditorTest, ThePathIsAskedForUntilThereIsSuchAFile) {
    const std::wstring former = editorPath_;
    scene_.answers = {L"C:\\gibt es nicht.exe", L"picture_editor.exe", L"\"" + testEditor() + L"\""};
    job("append");
    ExternalEditor chooser = editor();
    editorPath_ = L"C:\\frueher.exe";
    chooser.choose(0);
    ASSERT_EQ(scene_.asked.size(), 3u);
    EXPECT_EQ(scene_.asked[0].title, L"  Bearbeiten");
    EXPECT_EQ(scene_.asked[0].prompt,
              L"Programm zum Bearbeiten der Bilder (vollständiger Pfad)\r\n\r\n"
              L"Mit rechter Maustaste Eigenschaften des gewünschten\r\n"
              L"Programms anzeigen und Ziel mit kopieren (Strg-c)\r\n"
              L"und einfügen (Strg-v) übernehmen");
    EXPECT_EQ(scene_.asked[0].text, L"C:\\frueher.exe");
    EXPECT_EQ(scene_.asked[1].text, L"C:\\gibt es nicht.exe");
    EXPECT_EQ(scene_.asked[2].text, L"picture_editor.exe");
    EXPECT_EQ(beeps, 2);
    EXPECT_EQ(editorPath_, former);
    EXPECT_EQ(content(), "a pictureedited") << "it is started at once";
    EXPECT_EQ(log_.back(), "keep");
    EXPECT_EQ(settings_.read(L"Prog", L"Name", L"", 255), former);
    EXPECT_EQ(chooser.caption(), L"«picture_editor» starten");
    EXPECT_TRUE(chooser.known());
}

TEST_F(ExternalEditorTest, AnEmptyAnswerOrNoneKeepsTheFormerPath) {
    for (const std::optional<std::wstring>& last :
         {std::optional<std::wstring>(), std::optional<std::wstring>(L""), std::optional<std::wstring>(L"  "),
          std::optional<std::wstring>(L"\"\"")}) {
        editorPath_ = L"C:\\frueher.exe";
        scene_.answers = {last, L"C:\\gibt es nicht.exe", last};
        editor().choose(0);
        editor().choose(0);
        EXPECT_EQ(editorPath_, L"C:\\frueher.exe");
    }
    EXPECT_THAT(log_, IsEmpty());
    EXPECT_EQ(settings_.read(L"Prog", L"Name", L"nichts", 255), L"nichts");
    EXPECT_EQ(beeps, 4);
}

TEST_F(ExternalEditorTest, SettingsThatCannotBeWrittenAreToldOf) {
    scene_.answers = {testEditor()};
    ExternalEditor({test_.loop, scene_.records, editorPath_, scene_.dialogue(), desk(),
                    [](const std::wstring&) { return false; }})
        .choose(0);
    ASSERT_EQ(scene_.told.size(), 1u);
    EXPECT_NE(scene_.told[0].text.find(L"Einstellungen"), std::wstring::npos);
}

/// A form that counts how often it paints.
class PaintedForm : public ui::Form {
  public:
    PaintedForm()
        : Form({.className = L"PanorellTestPainted", .title = L"Test", .width = 6000, .height = 4000}) {}
    std::atomic<int> paints = 0;

  protected:
    void drawGround(ui::Painting&) override { ++paints; }
};

/// What a user does from outside while the editor runs, on a thread of its own.
class Meanwhile {
  public:
    template <typename Actions>
    explicit Meanwhile(Actions actions) : thread_(std::move(actions)) {}
    ~Meanwhile() { thread_.join(); }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

    template <typename State>
    static bool reached(State state) {
        constexpr int kTries = 2000;
        for (int i = 0; i < kTries && !state(); ++i) {
            Sleep(5);
        }
        return state();
    }

  private:
    std::thread thread_;
};

TEST_F(ExternalEditorTest, WhileItRunsTheWindowOnlyPaints) {
    PaintedForm form;
    form.show();
    test_.loop.settle();
    std::vector<std::string> events;
    form.onCloseAsked = [&] { events.emplace_back("close"); };
    form.onPressed = [&](const ui::MouseEvent&) { events.emplace_back("press"); };
    form.onKey = [&](int, bool) {
        events.emplace_back("key");
        return true;
    };
    ui::Timer timer(test_.loop, 1);
    timer.onTimer = [&] { events.emplace_back("timer"); };
    job("wait append");
    bool painted = false;
    {
        const Meanwhile user([&] {
            Meanwhile::reached([&] { return started(); });
            const int before = form.paints;
            PostMessageW(form.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
            PostMessageW(form.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
            PostMessageW(form.hwnd(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
            PostMessageW(form.hwnd(), WM_KEYDOWN, VK_RETURN, 1);
            PostMessageW(form.hwnd(), WM_SYSKEYDOWN, VK_F4, 1 << 29);
            PostMessageW(form.hwnd(), WM_SYSCOMMAND, SC_CLOSE, 0);
            PostMessageW(form.hwnd(), WM_CLOSE, 0, 0);
            InvalidateRect(form.hwnd(), nullptr, FALSE);
            painted = Meanwhile::reached([&] { return form.paints > before; });
            letGoOn();
        });
        timer.setEnabled(true);
        editor().run(0);
    }
    EXPECT_TRUE(painted);
    EXPECT_THAT(events, IsEmpty());
    timer.setEnabled(false);
    test_.loop.settle();
    EXPECT_THAT(events, IsEmpty()) << "nothing is made up for afterwards";
    EXPECT_EQ(content(), "a pictureedited");
    EXPECT_EQ(log_[1], "block Warten auf \xABpicture_editor\xBB ...");
}

TEST_F(ExternalEditorTest, LeavingIsHeldBackUntilTheTimesAreBack) {
    job("wait append");
    const DWORD thread = GetCurrentThreadId();
    {
        const Meanwhile user([&] {
            Meanwhile::reached([&] { return started(); });
            PostThreadMessageW(thread, WM_QUIT, 0, 0);
            letGoOn();
        });
        editor().run(0);
    }
    EXPECT_EQ(scene_.facts(kName).times, before_);
    EXPECT_EQ(content(), "a pictureedited");
    EXPECT_EQ(log_.back(), "unblock");
    EXPECT_TRUE(test_.loop.leaving());
}

}  // namespace
}  // namespace edit
