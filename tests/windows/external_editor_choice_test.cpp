#include <gmock/gmock.h>

#include "external_editor_fixture.h"

namespace edit {
namespace {

using testing::IsEmpty;

TEST_F(ExternalEditorTest, ThePathIsAskedForUntilThereIsSuchAFile) {
    const std::wstring former = editorPath_;
    // It is there, but only as long as the current drive stays the same.
    const std::wstring withoutDrive = testEditor().substr(2);
    ASSERT_TRUE(platform::fileExists(withoutDrive));
    scene_.answers = {L"C:\\gibt es nicht.exe", withoutDrive, L"\"" + testEditor() + L"\""};
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
    EXPECT_EQ(scene_.asked[2].text, withoutDrive);
    EXPECT_EQ(beeps, 2);
    EXPECT_EQ(editorPath_, former);
    EXPECT_EQ(content(), "a pictureedited") << "it is started at once";
    EXPECT_EQ(log_.back(), "keep");
    EXPECT_EQ(settings_.read(L"Prog", L"Name", L"", 255), former);
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

}  // namespace
}  // namespace edit
