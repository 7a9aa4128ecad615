#include <gmock/gmock.h>

#include "app/version.h"
#include "platform/records.h"
#include "platform/tray_icon.h"
#include "support/app_stage.h"

namespace app {
namespace {

using support::AppStage;
using testing::ElementsAre;

TEST(Load, ComesUpInItsOrder) {
    AppStage stage;
    EXPECT_EQ(stage.application->music().musicVolume, 200);
    bool paintedFirst = false;
    bool ready = true;
    stage.system.onCall = [&](const std::string& call) {
        if (call == "read Prog/Name") {
            RECT open{};
            paintedFirst = stage.form().visible() && stage.form().File1.path().empty() &&
                           GetUpdateRect(stage.form().hwnd(), &open, FALSE) == FALSE;
        } else if (call == "tray add") {
            ready = stage.form().CTRL.enabled();
        }
    };
    stage.load();
    EXPECT_TRUE(paintedFirst) << "the window is painted before the lists are filled";
    EXPECT_FALSE(ready) << "the overview is offered last";
    EXPECT_TRUE(stage.form().CTRL.enabled());
    EXPECT_THAT(stage.system.log,
                ElementsAre("region", "show", "read Prog/Name", "read Set1/Delay", "read Set1/Loop",
                            "read Set1/Date", "read Set1/Sound", "read Set1/Music", "read Set1/Effekte",
                            "read Set1/Drive", "read Set1/Dir", "read Set1/Dir", "read Set2/Dir",
                            "read Set3/Dir", "read Set4/Dir", "tray add"));
}

TEST(Load, WhatWaitsIsDoneBeforeAnythingIsRead) {
    AppStage stage;
    bool done = false;
    stage.system.onCall = [&](const std::string& call) {
        done = done || (call == "read Prog/Name" && stage.form().LoopC.value() == 1);
    };
    PostMessageW(stage.form().LoopC.hwnd(), BM_CLICK, 0, 0);
    stage.load();
    EXPECT_TRUE(done);
}

TEST(Load, WithParametersReadsOnlyTheSetTheyName) {
    AppStage stage;
    stage.load(L"C:\\ P=7");
    EXPECT_EQ(stage.system.count("read Set1/Delay"), 0);
    EXPECT_EQ(stage.state().CurrentSet, L"Set1");
    stage.application.reset();
    stage.create();
    stage.load(L"S=3");
    EXPECT_EQ(stage.system.count("read Set3/Delay"), 1);
    EXPECT_EQ(stage.state().CurrentSet, L"Set3");
}

TEST(Load, WithoutFileAndParametersHasTheDefaults) {
    AppStage stage;
    stage.load();
    EXPECT_EQ(stage.state().CurrentSet, L"Set1");
    EXPECT_TRUE(stage.form().Option1[0].selected());
    EXPECT_EQ(stage.form().IntS.value(), 56);
    EXPECT_EQ(stage.form().IntT.text(), L"5");
    EXPECT_EQ(stage.form().Drive1.drive(), L"C:");
    EXPECT_EQ(stage.form().Dir1.path(), L"C:\\");
    EXPECT_EQ(stage.form().File1.path(), L"C:\\");
    EXPECT_EQ(stage.form().File2.path(), L"C:\\");
    for (const ui::OptionButton& option : stage.form().Option1) {
        EXPECT_EQ(option.toolTip(), L"");
    }
    EXPECT_EQ(stage.form().Screen2.value(), 0);
    EXPECT_TRUE(stage.form().Pic2.visible());
    EXPECT_EQ(stage.showState().showMode, show::kNoShow);
}

TEST(Load, TheFolderOfTheProgramEndsInOneBackslash) {
    AppStage stage;
    EXPECT_EQ(stage.state().ProgramDir, stage.program.path() + L"\\");
    stage.application.reset();
    stage.application.emplace(stage.loop, stage.control, L"C:\\");
    EXPECT_EQ(stage.state().ProgramDir, L"C:\\");
}

TEST(Load, AnEditorThatIsThereIsKept) {
    AppStage stage;
    const std::wstring editor = stage.program.file(L"Editor.exe");
    stage.program.file(L"Panorell.ini", "[Prog]\r\nName=" + std::string(editor.begin(), editor.end()));
    stage.load();
    EXPECT_EQ(stage.state().EditorPath, editor);
    stage.program.remove(L"Editor.exe");
    stage.application.reset();
    stage.create();
    stage.load();
    EXPECT_EQ(stage.state().EditorPath, L"");
}

TEST(Load, AFolderIsNoEditor) {
    AppStage stage;
    const std::wstring folder = stage.program.folder(L"Editor");
    stage.program.file(L"Panorell.ini", "[Prog]\r\nName=" + std::string(folder.begin(), folder.end()));
    stage.load();
    EXPECT_EQ(stage.state().EditorPath, L"");
}

TEST(Region, RoundsTheCornersOfTheWholeWindow) {
    AppStage stage;
    stage.load();
    RECT window{};
    GetWindowRect(stage.form().hwnd(), &window);
    const int width = window.right - window.left;
    const int height = window.bottom - window.top;
    const platform::Region expected(CreateRoundRectRgn(0, 0, width, height, 50, 50));
    const platform::Region actual(CreateRectRgn(0, 0, 0, 0));
    ASSERT_NE(GetWindowRgn(stage.form().hwnd(), actual.get()), ERROR);
    int different = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const BOOL inside = y < 50 || y >= height - 50 ? PtInRegion(expected.get(), x, y) : TRUE;
            different += x < 50 && PtInRegion(actual.get(), x, y) != inside ? 1 : 0;
        }
    }
    EXPECT_EQ(different, 0);
    EXPECT_FALSE(PtInRegion(actual.get(), 0, 0));
    EXPECT_FALSE(PtInRegion(actual.get(), width - 1, height - 1));
}

TEST(Tray, TheIconTellsThatTheProgramRuns) {
    AppStage stage;
    stage.load();
    platform::TrayRecord record{};
    ASSERT_EQ(stage.system.trayRecord.size(), sizeof(record));
    stage.system.trayRecord.copy(reinterpret_cast<char*>(&record), sizeof(record));
    EXPECT_EQ(record.window, stage.form().hwnd());
    EXPECT_EQ(record.id, 1U);
    EXPECT_EQ(record.flags, 7U);
    EXPECT_EQ(record.callbackMessage, 0x401U);
    EXPECT_STREQ(record.tip, "Panorell");
    EXPECT_EQ(stage.system.count("tray add"), 1);
}

TEST(Tray, TheIconComesBackWithTheTaskBar) {
    AppStage stage;
    SendMessageW(stage.form().hwnd(), platform::TrayIcon::taskBarCreated(), 0, 0);
    EXPECT_EQ(stage.system.count("tray add"), 0) << "not before the program has come up";
    stage.load();
    SendMessageW(stage.form().hwnd(), platform::TrayIcon::taskBarCreated(), 0, 0);
    EXPECT_EQ(stage.system.count("tray add"), 2);
    stage.application.reset();
    EXPECT_EQ(stage.system.count("tray delete"), 1);
}

TEST(Title, VersionOverTheEmblemAndTitleBesideIt) {
    AppStage stage;
    stage.load();
    const Form1& form = stage.form();
    SendMessageW(form.Pic3.hwnd(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(form.Label1.text(), L"Panorell\r\nV " + std::to_wstring(PANORELL_VERSION_MAJOR) + L"." +
                                      std::to_wstring(PANORELL_VERSION_MINOR));
    EXPECT_LT(form.Label1.fontSpec().points, 36.0F);
    SendMessageW(form.hwnd(), WM_MOUSEMOVE, 0, MAKELPARAM(600, 40));
    EXPECT_EQ(form.Label1.text(), L"Panorell");
    EXPECT_EQ(form.Label1.fontSpec().points, 36.0F);
    EXPECT_EQ(form.Label1.fontSpec().face, L"Comic Sans MS");
}

TEST(Title, StaysAsItIsInAShow) {
    AppStage stage;
    stage.picture(L"a.jpg");
    stage.loadFolder();
    stage.form().Start.click();
    ASSERT_EQ(stage.showState().showMode, show::kByHand);
    SendMessageW(stage.form().Pic3.hwnd(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(stage.form().Label1.text(), L"Panorell");
}

class RunAtOnce : public testing::TestWithParam<const wchar_t*> {};

TEST_P(RunAtOnce, StartsTheShowWhereverItStands) {
    AppStage stage;
    stage.pictures.folder(L"xR=1");
    stage.picture(L"a.jpg", 0xC04020);
    stage.picture(L"xR=1\\a.jpg", 0xC04020);
    std::wstring text = GetParam();
    text.replace(text.find(L'@'), 1, stage.pictures.path());
    stage.load(text);
    EXPECT_EQ(stage.showState().showMode, show::kAutomatically);
    EXPECT_FALSE(stage.form().Start.visible());
    EXPECT_TRUE(support::alike(stage.shown(), 0xC04020));
    EXPECT_EQ(stage.system.count("tray add"), 1) << "the start comes after all else";
}

INSTANTIATE_TEST_SUITE_P(Places, RunAtOnce,
                         testing::Values(L"@ R=1", L"R=1 @", L"@ P=7 D=0 R=1 E=0", L"@\\xR=1", L"\"@\" R=1"));

TEST(RunAtOnce, WithoutPicturesTheWindowStays) {
    AppStage stage;
    stage.load(stage.pictures.path() + L" R=1");
    EXPECT_EQ(stage.showState().showMode, show::kNoShow);
    EXPECT_TRUE(stage.form().Start.visible());
}

// The preview of the first picture is still on its way when the show begins, and must not come into it.
TEST(RunAtOnce, APreviewThatComesLateIsDropped) {
    AppStage stage;
    stage.picture(L"a.jpg", 0xC04020, 3000, 2000);
    stage.picture(L"b.jpg", 0x20A040);
    stage.load(stage.pictures.path() + L" P=1 L=0 R=1");
    ASSERT_EQ(stage.showState().showMode, show::kAutomatically);
    EXPECT_FALSE(stage.application->previewLoading());
    const SIZE size = stage.form().clientSize();
    ASSERT_TRUE(stage.until([&] {
        EXPECT_EQ(stage.form().Pic2.clientSize().cx, size.cx) << "the preview's place";
        return stage.showState().pictureIndex == 1 || stage.form().Pic2.clientSize().cx != size.cx;
    }));
    stage.loop.advance(900);
    EXPECT_EQ(stage.form().Pic2.image().width(), size.cx);
    EXPECT_TRUE(support::alike(stage.shown(), 0x20A040));
}

TEST(ApplicationLoad, Screen2FollowsTheProgramsState) {
    for (const int state : {0, 1}) {
        AppStage stage;
        stage.state().SecondScreen = state;
        stage.load();
        EXPECT_EQ(stage.form().Screen2.value(), state);
        EXPECT_EQ(stage.state().SecondScreen, state);
    }
}

}  // namespace
}  // namespace app
