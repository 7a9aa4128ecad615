#include "edit/external_editor.h"

#include <gmock/gmock.h>

#include "external_editor_fixture.h"
#include "overview/thumbnail_store.h"
#include "platform/file_time.h"

namespace edit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
    EXPECT_THAT(log_, ElementsAre("remove Mein Bild.jpg", "block Warten auf \xABkein Programm\xBB ...",
                                  "redraw 0", "unblock"))
        << "its stored thumbnail comes back";
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

}  // namespace
}  // namespace edit
