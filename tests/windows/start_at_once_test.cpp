// A show that the parameters start: nothing of the set-up is seen, and its first picture is begun before
// there is a window.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include "app/first_picture.h"
#include "support/app_stage.h"
#include "support/show_stage.h"

namespace app {
namespace {

using support::AppStage;
using testing::ElementsAre;
using testing::IsEmpty;

/// Notes what is asked for.
class NotedPictures : public show::PictureSource {
  public:
    void setSurface(const show::ShowSurface& given) override { surface = given; }
    std::optional<show::ShowPicture> take(const std::wstring&) override { return std::nullopt; }
    void prepare(const std::vector<std::wstring>& paths) override { prepared = paths; }

    show::ShowSurface surface;
    std::vector<std::wstring> prepared;
};

class StartAtOnce : public testing::Test {
  protected:
    StartAtOnce() { stage.application.reset(); }
    void start(const std::wstring& parameters) {
        const std::wstring text = stage.pictures.path() + parameters;
        stage.application.emplace(stage.loop, stage.control, stage.program.path(), parseParameters(text));
        stage.system.onCall = [this](const std::string& call) {
            setupShown = setupShown || (call == "show" && stage.form().Start.visible());
        };
        stage.load(text);
    }
    Form1& form() { return stage.form(); }
    bool onScreen(const ui::Control& control) { return IsWindowVisible(control.hwnd()) != FALSE; }
    AppStage stage;
    bool setupShown = false;
};

TEST_F(StartAtOnce, ShowsNothingOfTheSetup) {
    stage.picture(L"a.jpg", 0xC04020);
    start(L" R=1");
    EXPECT_EQ(stage.showState().showMode, show::kAutomatically);
    EXPECT_FALSE(setupShown);
    EXPECT_TRUE(form().visible());
    for (const ui::Control* control : form().controls()) {
        EXPECT_EQ(onScreen(*control), control == &form().Pic2) << GetDlgCtrlID(control->hwnd());
    }
    EXPECT_EQ(form().clientSize().cx, 640);
    EXPECT_TRUE(support::alike(stage.shown(), 0xC04020));
    EXPECT_EQ(stage.system.count("show"), 1);
    EXPECT_EQ(stage.system.count("tray add"), 1);
    EXPECT_TRUE(form().Pic2.hasFocus());
}

TEST_F(StartAtOnce, ShowsCaptionsAndTheEndAsEver) {
    stage.picture(L"a.jpg", 0xC04020);
    stage.pictures.file(L"Panorell.txt", "a Am Strand\r\n");
    start(L" P=1 R=1");
    EXPECT_TRUE(onScreen(form().UT));
    stage.type(L'?');
    EXPECT_TRUE(onScreen(form().Text1));
    stage.loop.advance(7000);
    EXPECT_TRUE(onScreen(form().EOT));
}

TEST_F(StartAtOnce, BringsTheSetupUpWhereThereIsNothingToShow) {
    start(L" P=7 R=1");
    EXPECT_EQ(stage.showState().showMode, show::kNoShow);
    EXPECT_TRUE(form().visible());
    EXPECT_TRUE(form().Start.visible());
    EXPECT_EQ(form().IntT.text(), L"7");
    for (const ui::Control* control :
         {static_cast<const ui::Control*>(&form().Drive1), static_cast<const ui::Control*>(&form().Run),
          static_cast<const ui::Control*>(&form().Option1[3]),
          static_cast<const ui::Control*>(&form().Pic3)}) {
        EXPECT_TRUE(onScreen(*control)) << GetDlgCtrlID(control->hwnd());
    }
    for (const ui::Control* control :
         {static_cast<const ui::Control*>(&form().EOT), static_cast<const ui::Control*>(&form().UT),
          static_cast<const ui::Control*>(&form().File2)}) {
        EXPECT_FALSE(onScreen(*control)) << GetDlgCtrlID(control->hwnd());
    }
    // Its tips are the system's by now.
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = form().hwnd();
    tool.uId = reinterpret_cast<UINT_PTR>(form().Run.hwnd());
    wchar_t tip[100]{};
    tool.lpszText = tip;
    SendMessageW(ui::Tooltip::of(form().hwnd()).hwnd(), TTM_GETTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    EXPECT_STREQ(tip, L"Dia-Show starten");
    // And it is worked as ever.
    stage.picture(L"b.jpg", 0x20A040);
    stage.activate();
    form().Run.click();
    EXPECT_EQ(stage.showState().showMode, show::kAutomatically);
    EXPECT_TRUE(support::alike(stage.shown(), 0x20A040));
}

TEST_F(StartAtOnce, AFilmFirstIsPlayedInAWindowThatIsSeen) {
    stage.pictures.file(L"a.mpg", "no film");
    stage.picture(L"b.jpg");
    bool seen = false;
    stage.control.onSend = [&](const std::string& command) {
        seen = seen || (command == "play VIDEO" && form().visible() && onScreen(form().Pic2));
    };
    start(L" R=1");
    EXPECT_TRUE(seen);
    EXPECT_FALSE(setupShown);
}

TEST_F(StartAtOnce, GoesToTheSecondScreenThatASetAsksFor) {
    stage.picture(L"a.jpg", 0xC04020);
    stage.monitors.second = RECT{640, 0, 1440, 600};
    const std::wstring text = stage.pictures.path() + L" R=1";
    stage.application.emplace(stage.loop, stage.control, stage.program.path(), parseParameters(text));
    stage.state().SecondScreen = 1;
    stage.load(text);
    EXPECT_EQ(stage.showState().screenWidth, 800);
    EXPECT_EQ(form().Pic2.image().width(), 800)
        << "decoded for the other screen first, and again for this one";
    EXPECT_TRUE(support::alike(stage.shown(), 0xC04020));
}

TEST_F(StartAtOnce, FillsTheListsOnce) {
    stage.picture(L"a.jpg");
    start(L"");
    EXPECT_THAT(stage.control.commands(),
                ElementsAre("stop VIDEO", "close VIDEO", "stop VIDEO", "close VIDEO"))
        << "the folder is opened, and its first file previewed";
}

class FirstPicture : public StartAtOnce {
  protected:
    bool prepare(const std::wstring& parameters) {
        const platform::ProfileFile settings(stage.program / L"Panorell.ini");
        SurfaceSettings surfaces(settings);
        return prepareFirstPicture(pictures, surfaces, parseParameters(parameters));
    }
    NotedPictures pictures;
};

TEST_F(FirstPicture, IsTheOneThatTheListWillSelect) {
    for (const wchar_t* name : {L"b10.jpg", L"b9.jpg", L"c.mpg", L"a.txt"}) {
        stage.pictures.file(name);
    }
    stage.pictures.file(L"b1.jpg");
    stage.pictures.hide(L"b1.jpg");
    EXPECT_TRUE(prepare(stage.pictures.path() + L" R=1"));
    EXPECT_THAT(pictures.prepared, ElementsAre(stage.pictures / L"b9.jpg"))
        << "neither by the alphabet nor hidden";
    EXPECT_EQ(pictures.surface.width, 640);
    EXPECT_EQ(pictures.surface.height, 480);
    EXPECT_TRUE(prepare(stage.pictures.path() + L" L=1 R=1"));
    EXPECT_THAT(pictures.prepared, ElementsAre(stage.pictures / L"b10.jpg"));
}

TEST_F(FirstPicture, IsNotBegunWhereThereIsNone) {
    stage.pictures.file(L"a.mpg");
    stage.pictures.file(L"b.jpg");
    EXPECT_FALSE(prepare(stage.pictures.path())) << "no show is asked for";
    EXPECT_TRUE(prepare(stage.pictures.path() + L" R=1")) << "a film comes first";
    EXPECT_TRUE(prepare(stage.pictures.path() + L" L=7 R=1"));
    EXPECT_TRUE(prepare(stage.pictures.path() + L"\\nicht da R=1"));
    EXPECT_TRUE(prepare(L"R=1"));
    EXPECT_THAT(pictures.prepared, IsEmpty());
}

}  // namespace
}  // namespace app
