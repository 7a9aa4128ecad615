// A show that the parameters start: nothing of the set-up is seen, and its first picture is begun before
// there is a window.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include "app/first_picture.h"
#include "app/form1_layout.h"
#include "files/journal.h"
#include "platform/handles.h"
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
    std::optional<show::ShowPicture> take(const std::wstring& path) override {
        taken.push_back(path);
        if (damaged) {
            return std::nullopt;
        }
        return show::ShowPicture{400, 300, picture::Surface(surface.width, surface.height)};
    }
    void giveBack(picture::Surface) override {}
    bool ready(const std::wstring&) override { return false; }
    void prepare(const std::vector<std::wstring>& paths) override { prepared = paths; }

    show::ShowSurface surface;
    std::vector<std::wstring> prepared;
    std::vector<std::wstring> taken;
    bool damaged = false;
};

class StartAtOnce : public testing::Test {
  protected:
    StartAtOnce() { stage.application.reset(); }
    void create(const std::wstring& text) {
        stage.application.emplace(stage.loop, stage.control, stage.program.path(), parseParameters(text));
    }
    void start(const std::wstring& parameters) {
        const std::wstring text = stage.pictures.path() + parameters;
        create(text);
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
    create(text);
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

/// The colour that a window shows in the middle of the monitor.
std::uint32_t colourOn(HWND window) {
    const platform::WindowDc dc(window);
    const COLORREF colour = GetPixel(dc.get(), 320, 240);
    return static_cast<std::uint32_t>(GetRValue(colour) << 16 | GetGValue(colour) << 8 | GetBValue(colour));
}

TEST_F(StartAtOnce, HasThePictureOnTheScreenBeforeItsControls) {
    stage.picture(L"a.jpg", 0xC04020);
    create(stage.pictures.path() + L" R=1");
    ASSERT_NE(IsWindowVisible(form().hwnd()), FALSE);
    EXPECT_FALSE(form().visible()) << "that is its curtain";
    EXPECT_EQ(form().clientSize().cx, 640);
    EXPECT_TRUE(support::alike(colourOn(form().hwnd()), 0xC04020));
    for (const ui::Control* control : form().controls()) {
        EXPECT_FALSE(onScreen(*control)) << GetDlgCtrlID(control->hwnd());
    }
    // What is painted anew meanwhile is the picture again.
    RedrawWindow(form().hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    EXPECT_TRUE(support::alike(colourOn(form().hwnd()), 0xC04020));
    stage.load(stage.pictures.path() + L" R=1");
    EXPECT_TRUE(form().visible());
    EXPECT_TRUE(support::alike(stage.shown(), 0xC04020));
    EXPECT_EQ(stage.system.count("show"), 1);
    EXPECT_EQ(stage.system.count("region"), 0) << "a show has no round corners";
}

TEST_F(StartAtOnce, WhatIsTypedBeforeTheShowIsMeantForIt) {
    stage.picture(L"a.jpg", 0xC04020);
    create(stage.pictures.path() + L" R=1");
    PostMessageW(form().hwnd(), WM_CHAR, L'?', 1);
    PostMessageW(form().hwnd(), WM_KEYDOWN, VK_DOWN, 1);
    stage.load(stage.pictures.path() + L" R=1");
    EXPECT_TRUE(onScreen(form().Text1));
    EXPECT_EQ(stage.showState().pausedFlag, 1);
}

TEST_F(StartAtOnce, TakesThePictureBackWhereTheFolderIsEmptyByNow) {
    stage.picture(L"a.jpg", 0xC04020);
    create(stage.pictures.path() + L" R=1");
    ASSERT_NE(DeleteFileW((stage.pictures / L"a.jpg").c_str()), FALSE);
    stage.load(stage.pictures.path() + L" R=1");
    EXPECT_TRUE(form().visible());
    EXPECT_TRUE(onScreen(form().Start));
    EXPECT_EQ(stage.system.count("region"), 1);
    RECT place{};
    GetWindowRect(form().hwnd(), &place);
    EXPECT_EQ(place.right - place.left, ui::toPixels(layout::kWindow.width, form().dpi()));
    EXPECT_EQ(place.bottom - place.top, ui::toPixels(layout::kWindow.height, form().dpi()));
    EXPECT_FALSE(support::alike(colourOn(form().hwnd()), 0xC04020));
}

class FirstPictureTest : public StartAtOnce {
  protected:
    /// Whether a window is to be covered by the picture.
    bool begin(const std::wstring& parameters) {
        first.emplace(pictures, surfaces, parseParameters(parameters));
        return first->curtain() != nullptr;
    }
    platform::ProfileFile settings{stage.program / L"Panorell.ini"};
    SurfaceSettings surfaces{settings};
    NotedPictures pictures;
    std::optional<FirstPicture> first;
};

TEST_F(FirstPictureTest, IsTheOneThatTheListWillSelect) {
    for (const wchar_t* name : {L"b10.jpg", L"b9.jpg", L"c.mpg", L"a.txt"}) {
        stage.pictures.file(name);
    }
    stage.pictures.file(L"b1.jpg");
    stage.pictures.hide(L"b1.jpg");
    EXPECT_TRUE(begin(stage.pictures.path() + L" R=1"));
    EXPECT_THAT(pictures.prepared, ElementsAre(stage.pictures / L"b9.jpg"))
        << "neither by the alphabet nor hidden";
    EXPECT_EQ(pictures.surface.width, 640);
    EXPECT_EQ(pictures.surface.height, 480);
    EXPECT_TRUE(begin(stage.pictures.path() + L" L=1 R=1"));
    EXPECT_THAT(pictures.prepared, ElementsAre(stage.pictures / L"b10.jpg"));
}

TEST_F(FirstPictureTest, IsNotBegunWhereThereIsNone) {
    stage.pictures.file(L"a.mpg");
    stage.pictures.file(L"b.jpg");
    EXPECT_FALSE(begin(stage.pictures.path())) << "no show is asked for";
    EXPECT_FALSE(begin(stage.pictures.path() + L" R=1")) << "a film comes first";
    EXPECT_FALSE(begin(stage.pictures.path() + L" L=7 R=1"));
    EXPECT_FALSE(begin(stage.pictures.path() + L"\\nicht da R=1"));
    EXPECT_FALSE(begin(L"R=1"));
    EXPECT_THAT(pictures.prepared, IsEmpty());
}

TEST_F(FirstPictureTest, IsWaitedForOnceAndHandedOutOnce) {
    stage.pictures.file(L"a.jpg");
    stage.pictures.file(L"b.jpg");
    const std::wstring path = stage.pictures / L"a.jpg";
    ASSERT_TRUE(begin(stage.pictures.path() + L" R=1"));
    EXPECT_THAT(pictures.taken, IsEmpty());
    const picture::Surface* surface = first->curtain()->picture();
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(first->curtain()->picture(), surface);
    first->prepare({path, stage.pictures / L"b.jpg"});
    EXPECT_THAT(pictures.prepared, ElementsAre(stage.pictures / L"b.jpg")) << "the other is there already";
    first->setSurface(pictures.surface);
    const auto taken = first->take(path);
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->nativeWidth, 400);
    EXPECT_EQ(first->curtain()->picture(), nullptr);
    EXPECT_THAT(pictures.taken, ElementsAre(path));
    first->prepare({path});
    EXPECT_THAT(pictures.prepared, ElementsAre(path));
    EXPECT_TRUE(first->take(path));
    EXPECT_THAT(pictures.taken, ElementsAre(path, path));
}

TEST_F(FirstPictureTest, IsThrownAwayWhereTheGuessWasWrong) {
    stage.pictures.file(L"a.jpg");
    ASSERT_TRUE(begin(stage.pictures.path() + L" R=1"));
    ASSERT_NE(first->curtain()->picture(), nullptr);
    EXPECT_TRUE(first->take(L"C:\\other.jpg"));
    EXPECT_EQ(pictures.taken.back(), L"C:\\other.jpg");
    EXPECT_EQ(first->curtain()->picture(), nullptr);

    ASSERT_TRUE(begin(stage.pictures.path() + L" R=1"));
    ASSERT_NE(first->curtain()->picture(), nullptr);
    show::ShowSurface other = pictures.surface;
    other.width += 160;
    first->setSurface(other);
    EXPECT_EQ(pictures.surface.width, other.width);
    EXPECT_EQ(first->curtain()->picture(), nullptr);

    pictures.damaged = true;
    ASSERT_TRUE(begin(stage.pictures.path() + L" R=1"));
    EXPECT_EQ(first->curtain()->picture(), nullptr);
}

TEST_F(FirstPictureTest, WaitsForAnInterruptedChangeOfTheFolder) {
    stage.pictures.file(L"a.jpg");
    const std::string whole = files::journalBytes({});
    stage.pictures.file(files::kJournalFile, whole);
    EXPECT_FALSE(begin(stage.pictures.path() + L" R=1")) << "its files are still to be put right";
    stage.pictures.file(files::kJournalFile, whole + files::phaseMark(files::Phase::Second) +
                                                 files::phaseMark(files::Phase::Done));
    EXPECT_TRUE(begin(stage.pictures.path() + L" R=1"));
}

}  // namespace
}  // namespace app
