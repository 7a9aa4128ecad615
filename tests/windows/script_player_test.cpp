#include "show/script_player.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "platform/handles.h"
#include "support/app_stage.h"
#include "support/show_stage.h"

namespace show {
namespace {

using support::ShowStage;

/// A stage whose current picture is "Bild1.jpg".
class ScriptPlayerTest : public testing::Test {
  protected:
    ScriptPlayerTest() {
        stage.state.currentPicture = stage.pathOf(L"Bild1.jpg");
        stage.state.showMode = show::kAutomatically;
        stage.state.screenWidth = 160;
        stage.state.screenHeight = 120;
        stage.Pic2.movePixels(0, 0, 160, 120);
        stage.Pic2.clear();
    }
    void write(const std::string& content) { stage.writeScript(content); }
    std::wstring scriptFile() const { return stage.pathOf(L"Panorell.txt"); }
    void apply(int mode) { stage.script.ApplyScriptEntry(mode); }
    std::wstring title() const { return stage.UT.visible() ? stage.UT.text() : L""; }
    bool dateStands() {
        GdiFlush();
        const picture::Surface& image = stage.Pic2.image();
        return std::count(image.bits(), image.bits() + image.width() * image.height(), 0x00FFFFU) > 0;
    }
    ShowStage stage{{L"Bild1.jpg", L"Bild10.jpg", L"Bild2.jpg"}};
};

TEST_F(ScriptPlayerTest, WithoutAFileNothingHappens) {
    stage.Timer1.setInterval(5000);
    stage.Timer1.setEnabled(true);
    stage.runner.effectNumber = 7;
    apply(1);
    EXPECT_EQ(title(), L"");
    EXPECT_TRUE(stage.Timer1.enabled());
    EXPECT_EQ(stage.Timer1.interval(), 5000);
    EXPECT_EQ(stage.runner.effectNumber, 7);
    EXPECT_FALSE(stage.Timer3.enabled());
    EXPECT_FALSE(dateStands());
}

struct Case {
    const char* script;
    const wchar_t* title;
    int interval;  ///< 0: Timer1 fires no more; -1: it is left alone
    int effect;    ///< 99: left alone
};

class FullEntry : public ScriptPlayerTest, public testing::WithParamInterface<Case> {};

TEST_P(FullEntry, IsApplied) {
    write(GetParam().script);
    stage.Timer1.setInterval(7000);  // no entry's pause
    stage.Timer1.setEnabled(true);
    stage.runner.effectNumber = 99;
    apply(1);
    EXPECT_EQ(title(), GetParam().title);
    EXPECT_EQ(stage.Timer3.enabled(), *GetParam().title != 0);
    EXPECT_EQ(stage.runner.effectNumber, GetParam().effect);
    EXPECT_TRUE(stage.Timer1.enabled());
    EXPECT_EQ(stage.Timer1.interval(), GetParam().interval < 0 ? 7000 : GetParam().interval);
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, FullEntry,
    testing::Values(Case{"Bild1 Am Strand *P=8 *E=C *D *M=Meer.mp3\r\n", L"Am Strand ", 8000, 3},
                    Case{"Bild1  *P=5\r\n", L"", 5000, 99}, Case{"Bild1 \r\n", L"", -1, 99},
                    Case{"Bild1\r\n", L"", -1, 99}, Case{"Bild1 *P=2.5\r\n", L"", 2500, 99},
                    Case{"Bild1 *P=2,5\r\n", L"", 2000, 99}, Case{"Bild1 *P=0.0125\r\n", L"", 12, 99},
                    Case{"Bild1 *P=0.0135\r\n", L"", 14, 99}, Case{"Bild1 *P=x\r\n", L"", 0, 99},
                    Case{"Bild1 *P=\r\n", L"", -1, 99}, Case{"Bild1 *E=#\r\n", L"", -1, 0},
                    Case{"Bild1 *E=b\r\n", L"", -1, 34}, Case{"Bild1 *E=Z\r\n", L"", -1, 26},
                    Case{"Bild1 Alt *P=9\r\nBild1 Titel\r\n", L"Titel", 9000, 99},
                    Case{"Bild1 Titel\r\nBild10 Zehn *P=3\r\n", L" Zehn ", 3000, 99},
                    Case{"Bild10 Zehn\r\nBild1 Titel\r\n", L"Titel", -1, 99},
                    Case{"bild1 klein *P=3\r\n", L"", -1, 99}, Case{"Bild2 Zwei *P=3\r\n", L"", -1, 99},
                    Case{"Bild1_Titel *P=3", L"Titel ", 3000, 99},
                    Case{"Bild1 Titel\nBild2 x\n", L"Titel", -1, 99},
                    Case{"Bild1 Stra\xDF"
                         "e\r\n",
                         L"Straße", -1, 99},
                    Case{"\xEF\xBB\xBF"
                         "Bild1 Stra\xC3\x9F"
                         "e \xE2\x98\x83 *P=4\r\n",
                         L"Straße \u2603 ", 4000, 99}));

TEST_F(ScriptPlayerTest, MarkersBehindANulAreRead) {
    write(std::string("x\0y\r\nBild1 A\0B *P=3\r\n", 21));
    stage.Timer1.setEnabled(true);
    apply(1);
    EXPECT_EQ(title().substr(0, 1), L"A");
    EXPECT_EQ(stage.Timer1.interval(), 3000);
}

TEST_F(ScriptPlayerTest, MusicIsLookedUpInModeTwoOnly) {
    write("Bild1 Titel *P=3 *E=C *D *M=Mein Lied\r\n");
    stage.Musik.setValue(1);
    stage.music.musicEndTime = 500;
    apply(1);
    EXPECT_EQ(stage.music.musicRequest, L"");
    EXPECT_FALSE(stage.Timer5.enabled());
    stage.UT.hide();
    stage.Timer1.setInterval(5000);
    stage.runner.effectNumber = 9;
    stage.Pic2.clear();
    apply(2);
    EXPECT_EQ(stage.music.musicRequest, L"Mein Lied");
    EXPECT_TRUE(stage.Timer5.enabled());
    EXPECT_EQ(stage.Timer5.interval(), 1);
    EXPECT_EQ(stage.music.musicEndTime, 0);
    EXPECT_EQ(title(), L"") << "nothing else in this mode";
    EXPECT_EQ(stage.Timer1.interval(), 5000);
    EXPECT_EQ(stage.runner.effectNumber, 9);
    EXPECT_FALSE(dateStands());
}

struct Box {
    int musik;
    bool acts;
};

class MusicBox : public ScriptPlayerTest, public testing::WithParamInterface<Box> {};

TEST_P(MusicBox, GreyedCountsAsTicked) {
    write("Bild1 *M=Lied\r\n");
    stage.Musik.setValue(GetParam().musik);
    apply(2);
    EXPECT_EQ(stage.music.musicRequest, L"Lied");
    EXPECT_EQ(stage.Timer5.enabled() && stage.Timer5.interval() == 1, GetParam().acts);
}

INSTANTIATE_TEST_SUITE_P(States, MusicBox, testing::Values(Box{0, false}, Box{1, true}, Box{2, true}));

TEST_F(ScriptPlayerTest, AnEarlierRequestCountsInBothModes) {
    stage.Musik.setValue(1);
    for (const int mode : {1, 2, 5}) {
        stage.music.musicRequest = L"Lied";
        stage.Timer5.setEnabled(false);
        stage.Timer5.setInterval(2000);
        apply(mode);
        EXPECT_TRUE(stage.Timer5.enabled()) << mode;
        EXPECT_EQ(stage.Timer5.interval(), 1) << mode;
    }
}

TEST_F(ScriptPlayerTest, AnEntryWithoutMusicKeepsTheRequest) {
    write("Bild1 Titel *P=3\r\n");
    stage.music.musicRequest = L"Lied";
    apply(2);
    EXPECT_EQ(stage.music.musicRequest, L"Lied");
}

TEST_F(ScriptPlayerTest, ByHandAPauseLeavesTheTimerStopped) {
    write("Bild1 Titel *P=3\r\n");
    stage.state.showMode = show::kByHand;
    stage.Timer1.setInterval(5000);
    stage.Timer1.setEnabled(true);
    apply(1);
    EXPECT_FALSE(stage.Timer1.enabled());
    EXPECT_EQ(stage.Timer1.interval(), 5000);
    EXPECT_EQ(title(), L"Titel ");
}

TEST_F(ScriptPlayerTest, APauseStartsAStoppedTimer) {
    write("Bild1 *P=3\r\n");
    apply(1);
    EXPECT_TRUE(stage.Timer1.enabled());
    EXPECT_EQ(stage.Timer1.interval(), 3000);
}

struct Stamp {
    int mode;
    int showMode;
    int box;
    const char* script;
    bool stands;
};

class DateStamp : public ScriptPlayerTest, public testing::WithParamInterface<Stamp> {};

TEST_P(DateStamp, StandsOnRequest) {
    write(GetParam().script);
    stage.state.showMode = GetParam().showMode;
    stage.ShowFN.setValue(GetParam().box);
    apply(GetParam().mode);
    EXPECT_EQ(dateStands(), GetParam().stands);
    EXPECT_EQ(stage.Timer3.enabled(), GetParam().stands);
}

INSTANTIATE_TEST_SUITE_P(
    Requests, DateStamp,
    testing::Values(Stamp{1, 2, 1, "", true}, Stamp{1, 1, 1, "", true}, Stamp{1, 0, 1, "", false},
                    Stamp{1, 2, 0, "", false}, Stamp{1, 2, 0, "Bild1 *D\r\n", true},
                    Stamp{1, 1, 0, "Bild1 *D\r\n", true}, Stamp{1, 0, 0, "Bild1 *D\r\n", false},
                    Stamp{2, 2, 1, "Bild1 *D\r\n", false}, Stamp{3, 2, 1, "Bild1 *D\r\n", false},
                    Stamp{0, 2, 1, "Bild1 *D\r\n", false}));

TEST_F(ScriptPlayerTest, AnyOtherModeIsFullButForTheDate) {
    write("Bild1 Titel *P=3 *E=C *D *M=Lied\r\n");
    for (const int mode : {0, 3, -1}) {
        stage.UT.hide();
        stage.runner.effectNumber = 0;
        apply(mode);
        EXPECT_EQ(title(), L"Titel ");
        EXPECT_EQ(stage.Timer1.interval(), 3000);
        EXPECT_EQ(stage.runner.effectNumber, 3);
        EXPECT_EQ(stage.music.musicRequest, L"");
    }
}

TEST_F(ScriptPlayerTest, TheCleanScreenIsKeptBeforeTheDateIsPrinted) {
    write("Bild1 *D\r\n");
    stage.Pic2.draw([](HDC dc) {
        const RECT all{0, 0, 160, 120};
        FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    });
    apply(1);
    ASSERT_TRUE(dateStands());
    GdiFlush();
    const picture::Surface& kept = stage.Pic3.image();
    ASSERT_EQ(kept.width(), 160);
    EXPECT_EQ(std::count(kept.bits(), kept.bits() + 160 * 120, 0xFFFFFFU), 160 * 120);
}

platform::File openShared(const std::wstring& path, DWORD share) {
    return platform::File(
        CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, share, nullptr, OPEN_EXISTING, 0, nullptr));
}

TEST_F(ScriptPlayerTest, AFileThatAnotherProgramWritesIsRead) {
    write("Bild1 Titel *P=3\r\n");
    const platform::File held = openShared(scriptFile(), FILE_SHARE_READ);
    ASSERT_TRUE(held);
    apply(1);
    EXPECT_EQ(title(), L"Titel ");
}

TEST_F(ScriptPlayerTest, AFileThatNobodyElseMayReadIsSkipped) {
    write("Bild1 Titel *P=3\r\n");
    const platform::File held = openShared(scriptFile(), 0);
    ASSERT_TRUE(held);
    stage.ShowFN.setValue(1);
    apply(1);
    EXPECT_EQ(title(), L"");
    EXPECT_TRUE(dateStands()) << "the rest goes on";
}

TEST_F(ScriptPlayerTest, TheFileIsClosedAfterwards) {
    write("Bild1 Titel\r\n");
    apply(1);
    EXPECT_TRUE(openShared(scriptFile(), 0));
}

TEST_F(ScriptPlayerTest, EditsActAtTheNextPicture) {
    write("Bild1 Alt\r\n");
    apply(1);
    write("Bild1 Neu\r\n");
    apply(1);
    EXPECT_EQ(title(), L"Neu");
}

TEST_F(ScriptPlayerTest, AHiddenFileOrAFolderOfTheNameIsNoScript) {
    write("Bild1 Titel\r\n");
    SetFileAttributesW(scriptFile().c_str(), FILE_ATTRIBUTE_HIDDEN);
    apply(1);
    EXPECT_EQ(title(), L"");
    SetFileAttributesW(scriptFile().c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(scriptFile().c_str());
    CreateDirectoryW(scriptFile().c_str(), nullptr);
    apply(1);
    EXPECT_EQ(title(), L"");
}

TEST_F(ScriptPlayerTest, TenThousandLinesAndLongOnes) {
    std::string content;
    for (int i = 0; i < 10'000; ++i) {
        content += "Foto" + std::to_string(i) + " Titel *P=3\r\n";
    }
    content += "Bild1 " + std::string(20'000, 'x') + " *P=7\r\n";
    for (int i = 0; i < 100; ++i) {
        content += "Zeile" + std::to_string(i) + "\r\n";
    }
    write(content);
    apply(1);
    EXPECT_EQ(stage.Timer1.interval(), 7000);
    EXPECT_EQ(title().front(), L'x');
    EXPECT_EQ(title().back(), L'\u2026') << "what the screen cannot hold ends in an ellipsis";
}

TEST_F(ScriptPlayerTest, AnEmptyFileSaysNothing) {
    write("");
    apply(1);
    EXPECT_EQ(title(), L"");
    write("\r\n\r\n");
    apply(1);
    EXPECT_EQ(title(), L"");
}

TEST_F(ScriptPlayerTest, TheFirstDotEndsTheKey) {
    write("a Titel\r\n");
    stage.state.currentPicture = stage.pathOf(L"a.b.jpg");
    apply(1);
    EXPECT_EQ(title(), L"Titel");
}

TEST_F(ScriptPlayerTest, ADotInAFoldersNameIsNoPartOfTheKey) {
    write("Bild1 Titel\r\n");
    stage.state.currentPicture = L"C:\\Fotos.2003\\Bild1.jpg";
    apply(1);
    EXPECT_EQ(title(), L"Titel");
}

TEST(Script, AFolderWithADotInItsNameHasTitlesAndPauses) {
    support::AppStage stage;
    stage.pictures.folder(L"Fotos.2003");
    stage.picture(L"Fotos.2003\\a.jpg", 0xC02020);
    stage.picture(L"Fotos.2003\\b.jpg", 0x20C020);
    stage.pictures.file(L"Fotos.2003\\Panorell.txt", "a Erstes\r\nb Titel *P=9\r\n");
    stage.load(stage.pictures / L"Fotos.2003" + L" P=1 R=1");
    ASSERT_TRUE(support::alike(stage.shown(), 0xC02020));
    EXPECT_TRUE(stage.form().UT.visible());
    EXPECT_EQ(stage.form().UT.text(), L"Erstes");
    stage.loop.advance(6000);
    EXPECT_TRUE(support::alike(stage.shown(), 0x20C020));
    EXPECT_EQ(stage.form().UT.text(), L"Titel ");
    EXPECT_EQ(stage.form().Timer1.interval(), 9000);
}

}  // namespace
}  // namespace show
