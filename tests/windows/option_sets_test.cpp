#include "app/option_sets.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>
#include <vector>

#include "platform/code_page.h"
#include "support/app_stage.h"

namespace app {
namespace {

using support::AppStage;
using testing::ElementsAre;
using testing::HasSubstr;

std::string narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

class OptionSetsTest : public testing::Test {
  protected:
    void settings(const std::string& content) { stage.program.file(L"Panorell.ini", content); }
    std::string written() {
        const auto bytes = support::readBytes(stage.program / L"Panorell.ini");
        return {bytes.begin(), bytes.end()};
    }
    Form1& form() { return stage.form(); }
    void choose(int index) {
        stage.click(form().Option1[static_cast<std::size_t>(index)]);
        stage.previewed();
    }
    /// LoopC, ShowFN, MUTE, Musik, Check1.
    std::vector<int> boxes() {
        return {form().LoopC.value(), form().ShowFN.value(), form().MUTE.value(), form().Musik.value(),
                form().Check1.value()};
    }
    AppStage stage;
};

TEST_F(OptionSetsTest, WithoutAFileEverySetHasTheDefaults) {
    stage.load();
    for (int i = 0; i < 4; ++i) {
        form().LoopC.setValue(1);
        form().ShowFN.setValue(1);
        form().MUTE.setValue(0);
        form().Musik.setValue(0);
        form().Check1.setValue(0);
        form().IntS.setValue(3);
        choose(i);
        EXPECT_EQ(stage.state().CurrentSet, L"Set" + std::to_wstring(i + 1));
        EXPECT_EQ(form().IntT.text(), L"5");
        EXPECT_EQ(form().IntS.value(), 56);
        EXPECT_THAT(boxes(), ElementsAre(0, 0, 1, 1, 1));
        EXPECT_EQ(form().Drive1.drive(), L"C:");
        EXPECT_EQ(form().Dir1.path(), L"C:\\");
        EXPECT_TRUE(form().Option1[static_cast<std::size_t>(i)].selected());
    }
}

TEST_F(OptionSetsTest, StoredValuesComeBackExactly) {
    stage.load(L"S=3 " + stage.pictures.path());
    form().IntT.setText(L"42");
    form().LoopC.setValue(1);
    form().ShowFN.setValue(2);
    form().MUTE.setValue(0);
    form().Musik.setValue(2);
    form().Check1.setValue(0);
    form().SAVE.click();
    EXPECT_EQ(stage.system.count("beep"), 1);
    choose(0);
    EXPECT_EQ(form().Dir1.path(), L"C:\\");
    EXPECT_EQ(form().IntT.text(), L"5");
    choose(2);
    EXPECT_EQ(form().IntT.text(), L"42");
    EXPECT_EQ(form().IntS.value(), 19);
    EXPECT_THAT(boxes(), ElementsAre(1, 2, 0, 2, 0));
    EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
}

TEST_F(OptionSetsTest, TheFileHoldsItsKeysInTheirOrder) {
    stage.load(stage.pictures.path() + L" P=7 D=1 E=1 V=0 M=1");
    form().SAVE.click();
    EXPECT_EQ(written(), "[Set1]\r\nDrive=C:\r\nDir=" + narrow(stage.pictures.path()) +
                             "\r\nDelay=7\r\nLoop=1\r\nDate=1\r\nSound=0\r\nMusic=1\r\nEffekte=1\r\n");
}

TEST_F(OptionSetsTest, OtherSetsAndKeysOfTheFileStay) {
    settings("[Set2]\r\nDelay=9\r\n[Prog]\r\nName=C:\\x.exe\r\n[Mine]\r\na=b\r\n");
    stage.load();
    form().SAVE.click();
    const std::string file = written();
    EXPECT_THAT(file, HasSubstr("[Set2]\r\nDelay=9"));
    EXPECT_THAT(file, HasSubstr("Name=C:\\x.exe"));
    EXPECT_THAT(file, HasSubstr("[Mine]\r\na=b"));
}

TEST_F(OptionSetsTest, ValuesAreReadToTheirLengths) {
    settings("[Set1]\r\nDelay=100\r\nLoop=12\r\nDrive=C:\\Windows\r\nSound=05\r\n");
    stage.load();
    EXPECT_EQ(form().IntT.text(), L"10");
    EXPECT_EQ(form().IntS.value(), 51);
    EXPECT_EQ(form().LoopC.value(), 1);
    EXPECT_EQ(form().MUTE.value(), 0);
    EXPECT_EQ(form().Drive1.drive(), L"C:");
}

TEST_F(OptionSetsTest, AFolderIsReadToSeventyNineCharacters) {
    std::wstring name(79 - stage.pictures.path().size() - 1, L'x');
    const std::wstring folder = stage.pictures.folder(name);
    ASSERT_EQ(folder.size(), 79U);
    settings("[Set1]\r\nDir=" + narrow(folder) + "yyy\r\n");
    stage.load();
    EXPECT_EQ(form().Dir1.path(), folder);
}

TEST_F(OptionSetsTest, UnusableValuesDoNoHarm) {
    settings("[Set1]\r\nDelay=ab\r\nLoop=x\r\nDate=9\r\nSound=-\r\nMusic=\r\nEffekte=7\r\n");
    stage.load();
    EXPECT_EQ(form().IntT.text(), L"ab");
    EXPECT_EQ(form().IntS.value(), 56);
    EXPECT_THAT(boxes(), ElementsAre(0, 0, 1, 1, 1));
    EXPECT_EQ(stage.system.count("tray add"), 1) << "the program has come up";
}

TEST_F(OptionSetsTest, AMissingDriveOrFolderLeavesTheListsWithoutAMessage) {
    settings("[Set2]\r\nDrive=Q:\r\nDir=" + narrow(stage.program.path()) +
             "\r\n[Set3]\r\nDrive=C:\r\nDir=C:\\nowhere\\at\\all\r\n");
    stage.loadFolder();
    choose(1);
    EXPECT_EQ(form().Drive1.drive(), L"C:");
    EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
    choose(2);
    EXPECT_EQ(form().Drive1.drive(), L"C:");
    EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
    EXPECT_EQ(stage.state().CurrentSet, L"Set3");
}

TEST_F(OptionSetsTest, AFileThatCannotBeWrittenDoesNoHarm) {
    // Nothing can be written where a folder has the name.
    stage.program.folder(L"Panorell.ini");
    stage.load(stage.pictures.path());
    form().IntT.setText(L"33");
    form().SAVE.click();
    EXPECT_EQ(stage.system.count("beep"), 0) << "nothing pretends that it was";
    EXPECT_EQ(form().Option1[0].toolTip(), L"");
    EXPECT_EQ(form().SAVE.toolTip(), L"Panorell.ini kann nicht geschrieben werden");
    EXPECT_EQ(form().IntT.text(), L"33");
    EXPECT_EQ(form().IntS.value(), 28);
    choose(0);
    EXPECT_EQ(form().IntT.text(), L"5");
    EXPECT_NE(GetFileAttributesW((stage.program / L"Panorell.ini").c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0U);
}

TEST_F(OptionSetsTest, AFileThatCanBeWrittenAgainIsConfirmedAgain) {
    stage.program.folder(L"Panorell.ini");
    stage.load(stage.pictures.path());
    form().SAVE.click();
    stage.program.remove(L"Panorell.ini");
    form().SAVE.click();
    EXPECT_EQ(stage.system.count("beep"), 1);
    EXPECT_EQ(form().SAVE.toolTip(), L"Einstellungen speichern");
    EXPECT_NE(form().Option1[0].toolTip(), L"");
}

TEST_F(OptionSetsTest, AFolderThatTheCodePageCannotNameComesBack) {
    const std::wstring folder = stage.pictures.folder(L"\u65E5\u672C");
    ASSERT_FALSE(platform::toCodePageExactly(folder));
    stage.picture(L"\u65E5\u672C\\a.jpg");
    stage.load(folder);
    form().SAVE.click();
    EXPECT_EQ(written().find('?'), std::string::npos) << written();
    choose(1);
    ASSERT_NE(form().Dir1.path(), folder);
    choose(0);
    EXPECT_EQ(form().Dir1.path(), folder);
    EXPECT_EQ(form().File1.count(), 1);
    EXPECT_EQ(form().Option1[0].toolTip(), L"\u65E5\u672C");
    stage.application.reset();
    stage.create();
    stage.load();
    EXPECT_EQ(form().Dir1.path(), folder) << "by the next start too";
    EXPECT_EQ(form().Option1[0].toolTip(), L"\u65E5\u672C");
}

// As by a program that has it open.
TEST_F(OptionSetsTest, AFileThatNobodyElseMayWriteKeepsWhatItHas) {
    settings("[Set1]\r\nDelay=7\r\n");
    stage.load(stage.pictures.path());
    form().IntT.setText(L"33");
    {
        const platform::File held(CreateFileW((stage.program / L"Panorell.ini").c_str(), GENERIC_READ,
                                              FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        form().SAVE.click();
    }
    EXPECT_EQ(stage.system.count("beep"), 0);
    EXPECT_EQ(form().Option1[0].toolTip(), L"");
    EXPECT_EQ(form().SAVE.toolTip(), L"Panorell.ini kann nicht geschrieben werden");
    EXPECT_EQ(written(), "[Set1]\r\nDelay=7\r\n");
}

TEST_F(OptionSetsTest, AFolderThatIsGoneLeavesTheListsAsTheyAre) {
    stage.picture(L"a.jpg");
    settings(
        "[Set2]\r\nDrive=C:\r\nDir=C:\\gibt\\es\\nicht\r\n[Set3]\r\nDrive=Z:\r\nDir=Z:\\gibt es nicht\r\n"
        "[Set4]\r\nDrive=Z:\r\nDir=C:\\gibt\\es\\nicht\r\n");
    stage.loadFolder();
    for (const int index : {1, 2, 3}) {
        choose(index);
        EXPECT_EQ(form().Drive1.drive(), L"C:");
        EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
        EXPECT_EQ(form().File1.count(), 1);
    }
}

TEST_F(OptionSetsTest, TheFormerSetsPictureIsNotSeenInTheNewOnesPlace) {
    const std::wstring other = stage.pictures.folder(L"andere");
    stage.picture(L"a.jpg", 0xC02020, 600, 200);
    stage.picture(L"andere\\b.jpg", 0x20C020, 400, 300);
    settings("[Set2]\r\nDir=" + narrow(other) + "\r\n");
    stage.loadFolder();
    ASSERT_TRUE(support::alike(stage.shown(), 0xC02020));
    stage.click(form().Option1[1]);
    ASSERT_TRUE(stage.application->previewLoading());
    EXPECT_TRUE(form().Pic2.image().empty()) << "the box is empty until its picture is there";
    ASSERT_TRUE(stage.previewed());
    EXPECT_TRUE(support::alike(stage.shown(), 0x20C020));
}

TEST_F(OptionSetsTest, AChosenSetGivesTheFocusToTheEmblem) {
    stage.loadFolder();
    form().Dir1.setFocus();
    // Set 1 by code, as the command line chooses it: the button is not pressed.
    form().Option1[0].onChosen();
    EXPECT_EQ(GetFocus(), form().Pic3.hwnd());
}

TEST_F(OptionSetsTest, UmlautsOfAFolderComeBack) {
    const std::wstring folder = stage.pictures.folder(L"Süße Grüße");
    stage.load(folder);
    form().SAVE.click();
    EXPECT_EQ(form().Option1[0].toolTip(), L"Süße Grüße");
    choose(1);
    choose(0);
    EXPECT_EQ(form().Dir1.path(), folder);
}

TEST_F(OptionSetsTest, ButtonsTellTheirFolders) {
    settings(
        "[Set1]\r\nDir=C:\\Bilder\\Urlaub\r\n[Set2]\r\nDir=C:\\Fotos.2003\\Urlaub\r\n"
        "[Set3]\r\nDir=C:\\Bilder\\Alt.neu\r\n[Set4]\r\nDir=D:\\\r\n");
    stage.load(L"C:\\");
    EXPECT_EQ(form().Option1[0].toolTip(), L"Urlaub");
    EXPECT_EQ(form().Option1[1].toolTip(), L"");
    EXPECT_EQ(form().Option1[2].toolTip(), L"Alt");
    EXPECT_EQ(form().Option1[3].toolTip(), L"");
}

TEST_F(OptionSetsTest, StoringNamesTheButtonOfTheActiveSetAfterItsFolder) {
    const std::wstring folder = stage.pictures.folder(L"Sommer");
    stage.load(L"S=4 " + folder);
    form().SAVE.click();
    EXPECT_EQ(form().Option1[3].toolTip(), L"Sommer");
    EXPECT_EQ(form().Option1[0].toolTip(), L"");
}

TEST_F(OptionSetsTest, ChoosingASetLosesWhatWasNotStored) {
    stage.load();
    form().LoopC.setValue(1);
    choose(1);
    choose(0);
    EXPECT_EQ(form().LoopC.value(), 0);
    EXPECT_FALSE(GetFileAttributesW((stage.program / L"Panorell.ini").c_str()) != INVALID_FILE_ATTRIBUTES);
}

TEST_F(OptionSetsTest, ChoosingTheActiveSetLoadsItAgain) {
    settings("[Set1]\r\nDelay=9\r\n");
    stage.load();
    form().IntT.setText(L"20");
    choose(0);
    EXPECT_EQ(form().IntT.text(), L"9");
    EXPECT_TRUE(form().Pic2.visible()) << "also where no other folder is opened";
}

TEST_F(OptionSetsTest, WhatWaitsIsDoneBeforeTheNewSetIsLoaded) {
    stage.load();
    form().IntT.setText(L"20");
    bool hidden = false;
    std::wstring set;
    form().LoopC.onClick = [&] {
        if (set.empty()) {
            hidden = !form().Pic2.visible();
            set = stage.state().CurrentSet;
        }
    };
    PostMessageW(form().LoopC.hwnd(), BM_CLICK, 0, 0);
    form().Option1[1].onChosen();
    EXPECT_TRUE(hidden);
    EXPECT_EQ(set, L"Set1");
    EXPECT_EQ(form().LoopC.value(), 0) << "and overridden by what the set holds";
}

TEST_F(OptionSetsTest, TheMouseChoosesWhenItGoesDownAndTheEmblemTakesTheFocus) {
    stage.load();
    SendMessageW(form().Option1[2].hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
    EXPECT_EQ(stage.state().CurrentSet, L"Set3");
    SendMessageW(form().Option1[2].hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
    EXPECT_EQ(stage.system.count("read Set3/Delay"), 1) << "it is loaded once";
}

// One arrow key after the other, as in any group of option buttons.
TEST_F(OptionSetsTest, TheArrowKeysWalkThroughTheSets) {
    stage.load();
    form().Option1[0].setFocus();
    for (int i = 1; i <= 4; ++i) {
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_RIGHT, 1);
        stage.loop.settle();
        const std::size_t next = static_cast<std::size_t>(i % 4);
        EXPECT_EQ(stage.state().CurrentSet, L"Set" + std::to_wstring(next + 1));
        EXPECT_TRUE(form().Option1[next].selected());
        EXPECT_TRUE(form().Option1[next].hasFocus());
    }
}

TEST_F(OptionSetsTest, ChoosingSelectsTheFirstFile) {
    stage.picture(L"a.jpg");
    stage.picture(L"b.jpg");
    settings("[Set2]\r\nDir=" + narrow(stage.pictures.path()) + "\r\n");
    stage.loadFolder(L" L=1");
    ASSERT_EQ(stage.state().StartIndex, 1);
    choose(1);
    EXPECT_EQ(stage.state().StartIndex, 0);
    EXPECT_EQ(form().File1.selectedIndex(), 0);
    EXPECT_TRUE(form().Pic2.visible());
}

TEST_F(OptionSetsTest, AShowRemembersItsFolderUntilASetIsChosen) {
    stage.picture(L"a.jpg");
    stage.loadFolder();
    form().Start.click();
    EXPECT_EQ(stage.state().rememberedDrive, L"C:");
    EXPECT_EQ(stage.state().rememberedFolder, stage.pictures.path());
    form().Option1[1].onChosen();
    EXPECT_EQ(stage.state().rememberedDrive, L"");
    EXPECT_EQ(stage.state().rememberedFolder, L"");
    EXPECT_EQ(form().Dir1.path(), L"C:\\");
}

// A window that is loaded again after a show comes back to the folder of that show.
class LoadedAgain : public OptionSetsTest {
  protected:
    LoadedAgain() {
        for (const wchar_t* name : {L"a.jpg", L"b.jpg", L"c.jpg"}) {
            stage.picture(name);
        }
        settings("[Set1]\r\nDir=C:\\Windows\r\n");
        stage.load(L"C:\\");
        stage.state().rememberedDrive = L"C:";
        stage.state().rememberedFolder = stage.pictures.path();
    }
    void loadSet() {
        const platform::ProfileFile file(stage.program / L"Panorell.ini");
        Form1& f = form();
        OptionSets({stage.loop, stage.state(), file, f.lists(), f.options(), f.Pic2, f.Pic3, f.SAVE}).load();
        stage.previewed();
    }
};

TEST_F(LoadedAgain, ComesBackToTheFolderAndPictureOfTheShow) {
    stage.state().StartIndex = 2;
    loadSet();
    EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
    EXPECT_EQ(form().File1.selectedIndex(), 2);
    EXPECT_EQ(stage.state().StartIndex, 2);
    EXPECT_EQ(stage.state().rememberedFolder, L"") << "once";
    EXPECT_EQ(stage.state().rememberedDrive, L"");
}

TEST_F(LoadedAgain, RemembersOnWhenTheFirstPictureIsTheOne) {
    loadSet();
    EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
    EXPECT_EQ(form().File1.selectedIndex(), 0);
    EXPECT_EQ(stage.state().rememberedFolder, stage.pictures.path());
}

TEST_F(LoadedAgain, ShowsThePictureBeforeTheOneOnTopOfTheList) {
    for (int i = 0; i < 60; ++i) {
        stage.pictures.file(L"n" + std::to_wstring(100 + i) + L".jpg", "no picture");
    }
    stage.state().StartIndex = 20;
    loadSet();
    EXPECT_EQ(form().File1.selectedIndex(), 20);
    EXPECT_EQ(SendMessageW(form().File1.hwnd(), LB_GETTOPINDEX, 0, 0), 19);
}

TEST_F(LoadedAgain, AnIndexBeyondTheListSelectsNothing) {
    stage.state().StartIndex = 9;
    loadSet();
    EXPECT_EQ(form().File1.selectedIndex(), -1);
}

}  // namespace
}  // namespace app
