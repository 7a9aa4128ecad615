// The overview's window: its way in and out, the keyboard, the mouse, size and zoom.
#include <gmock/gmock.h>

#include "support/app_stage.h"
#include "support/overview_stage.h"

namespace overview {
namespace {

using support::alike;
using support::AppStage;
using support::OverviewStage;
using testing::ElementsAre;

class CtrlTest : public testing::Test {
  protected:
    void load(int pictures) {
        for (int i = 0; i < pictures; ++i) {
            stage.picture(L"b" + std::to_wstring(i) + L".jpg");
        }
        stage.loadFolder();
    }
    Form2& form2() { return stage.application->overview()->form(); }
    AppStage stage;
};

TEST_F(CtrlTest, WithoutFilesDoesNothing) {
    load(0);
    stage.form().CTRL.click();
    EXPECT_EQ(stage.application->overview(), nullptr);
    EXPECT_TRUE(stage.form().visible());
    EXPECT_EQ(stage.system.count("tray delete"), 0);
}

TEST_F(CtrlTest, LeavesTheSetUpForTheOverview) {
    load(3);
    stage.pictures.hide(L"b1.jpg");
    for (ui::Timer* timer : {&stage.form().Timer1, &stage.form().Timer3, &stage.form().Timer5}) {
        timer->setEnabled(true);
    }
    stage.control.clear();
    stage.form().CTRL.click();
    ASSERT_NE(stage.application->overview(), nullptr);
    EXPECT_FALSE(stage.form().visible());
    EXPECT_TRUE(form2().visible());
    EXPECT_EQ(GetWindow(form2().hwnd(), GW_OWNER), nullptr);
    wchar_t title[40]{};
    GetWindowTextW(form2().hwnd(), title, 40);
    EXPECT_EQ(std::wstring(title), L"   Übersicht");
    for (ui::Timer* timer : {&stage.form().Timer1, &stage.form().Timer2, &stage.form().Timer3,
                             &stage.form().Timer4, &stage.form().Timer5}) {
        EXPECT_FALSE(timer->enabled());
    }
    EXPECT_EQ(stage.application->music().musicFolder, stage.pictures.path() + L"\\");
    EXPECT_EQ(stage.system.count("tray delete"), 1);
    EXPECT_TRUE(stage.form().File1.withHidden());
    EXPECT_EQ(stage.application->overview()->records().thumbCount(), 3) << "locked ones too";
    EXPECT_THAT(stage.control.commands(), ElementsAre("stop VIDEO", "close VIDEO")) << "a preview ends";
}

TEST_F(CtrlTest, ShowsWhatTheFilterShows) {
    load(2);
    stage.pictures.file(L"film.mpg", "film");
    stage.form().Typ[1].press();
    stage.form().CTRL.click();
    EXPECT_EQ(stage.application->overview()->records().thumbCount(), 2);
}

TEST_F(CtrlTest, ClosingStartsTheProgramAnew) {
    load(3);
    stage.form().CTRL.click();
    ASSERT_TRUE(stage.until([&] { return !stage.application->overview()->grid().loading(); }));
    form2().Timer1.setEnabled(true);
    stage.control.clear();
    SendMessageW(form2().hwnd(), WM_CLOSE, 0, 0);
    EXPECT_THAT(stage.control.commands(), ElementsAre("stop VIDEO", "close VIDEO"));
    ASSERT_EQ(stage.system.started.size(), 1U);
    EXPECT_NE(stage.system.started[0].find(stage.pictures.path()), std::wstring::npos);
    EXPECT_NE(stage.system.started[0].find(L" L=0"), std::wstring::npos) << "the picture it began with";
    EXPECT_FALSE(form2().visible());
    EXPECT_FALSE(form2().Timer1.enabled());
    EXPECT_TRUE(stage.loop.leaving());
}

/// How long it takes in ms until a program that fills its overview is gone after its window was closed.
ULONGLONG closeInTheMiddle() {
    AppStage stage;
    stage.picture(L"b0.jpg", 0x808080, 1600, 1200);
    for (int i = 1; i < 300; ++i) {
        CopyFileW((stage.pictures / L"b0.jpg").c_str(),
                  (stage.pictures / (L"b" + std::to_wstring(i) + L".jpg")).c_str(), TRUE);
    }
    stage.loadFolder();
    stage.form().CTRL.click();
    EXPECT_TRUE(stage.until([&] { return stage.application->overview()->grid().filled(0); }));
    EXPECT_TRUE(stage.application->overview()->grid().loading());
    const Form2& form = stage.application->overview()->form();
    const ULONGLONG begin = GetTickCount64();
    SendMessageW(form.hwnd(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(form.visible());
    stage.application.reset();
    EXPECT_EQ(stage.system.started.size(), 1U);
    return GetTickCount64() - begin;
}

// On a machine that has other things to do it may take longer now and then, but not every time.
TEST(Ctrl, ClosingInTheMiddleOfLoadingIsQuick) {
    constexpr ULONGLONG kQuick = 500;
    constexpr int kTries = 10;
    ULONGLONG least = closeInTheMiddle();
    for (int i = 1; i < kTries && least >= kQuick && !testing::Test::HasFailure(); ++i) {
        least = std::min(least, closeInTheMiddle());
    }
    EXPECT_LT(least, kQuick);
}

class OverviewWindowTest : public testing::Test {
  protected:
    void open(int count) {
        for (int i = 0; i < count; ++i) {
            stage.picture(L"b" + std::to_wstring(100 + i) + L".jpg",
                          0x0A0A0AU * static_cast<unsigned>(i % 20 + 3));
        }
        ASSERT_TRUE(stage.open());
    }
    int selected() { return stage.overview->records().pressedIndex; }
    bool visible(int index) { return IsWindowVisible(stage.box(index)) != FALSE; }
    void wheel(int notches, bool control) {
        SendMessageW(stage.panel(), WM_MOUSEWHEEL,
                     MAKEWPARAM(control ? MK_CONTROL : 0, notches * WHEEL_DELTA), 0);
        stage.loop.settle();
    }
    OverviewStage stage;
};

TEST_F(OverviewWindowTest, TheMusicListAndTheVideoRowAreHidden) {
    stage.titles = {L"01 Lied.mp3"};
    open(1);
    Form2& form = stage.overview->form();
    for (const ui::Control* control : std::initializer_list<const ui::Control*>{
             &form.List1, &form.List1Caption, &form.OK, &form.CAN, &form.Pic2, &form.Pic3, &form.Ton,
             &form.Command[0], &form.Command[5]}) {
        EXPECT_FALSE(control->visible());
    }
    const int before = static_cast<int>(form.Grid.width());
    stage.overview->music().show();
    EXPECT_TRUE(form.List1.visible() && form.List1Caption.visible() && form.OK.visible() &&
                form.CAN.visible());
    EXPECT_LT(form.Grid.width(), before);
    EXPECT_LE(form.Grid.left() + form.Grid.width(), form.List1.left());
    form.CAN.click();
    EXPECT_EQ(static_cast<int>(form.Grid.width()), before);
}

TEST_F(OverviewWindowTest, ArrowKeysMoveAVisibleSelection) {
    open(10);
    EXPECT_EQ(selected(), -1);
    stage.key(VK_RIGHT);
    EXPECT_EQ(selected(), 0);
    EXPECT_TRUE(stage.mentions(0, kSelectionColour));
    stage.key(VK_DOWN);
    EXPECT_EQ(selected(), 4);
    EXPECT_FALSE(stage.mentions(0, kSelectionColour));
    EXPECT_TRUE(stage.mentions(4, kSelectionColour));
    stage.key(VK_END);
    EXPECT_EQ(selected(), 7);
    stage.controlKey(VK_END);
    EXPECT_EQ(selected(), 9);
    stage.controlKey(VK_HOME);
    EXPECT_EQ(selected(), 0);
}

TEST_F(OverviewWindowTest, ReturnAndADoubleClickEnlarge) {
    open(5);
    stage.key(VK_RETURN);
    EXPECT_EQ(stage.overview->enlarged().index(), -1) << "nothing is selected";
    stage.key(VK_RIGHT);
    stage.key(VK_RIGHT);
    stage.key(VK_RETURN);
    EXPECT_EQ(stage.overview->enlarged().index(), 1);
    stage.key(VK_ESCAPE);
    EXPECT_FALSE(stage.overview->enlarged().isOpen());
    stage.press(3);
    stage.dropAt(stage.middleOf(3));
    stage.press(3, WM_LBUTTONDBLCLK);
    EXPECT_EQ(stage.overview->enlarged().index(), 3);
    EXPECT_EQ(selected(), 3);
}

TEST_F(OverviewWindowTest, ReturnThatIsHeldDownSinceABoxEnlargesNothing) {
    open(5);
    stage.key(VK_RIGHT);
    constexpr LPARAM kRepeated = (1L << 30) | 1;
    SendMessageW(stage.panel(), WM_KEYDOWN, VK_RETURN, kRepeated);
    EXPECT_FALSE(stage.overview->enlarged().isOpen());
}

TEST_F(OverviewWindowTest, TheRightButtonAsksForTheMenuOfItsItem) {
    open(5);
    stage.press(2, WM_RBUTTONDOWN);
    EXPECT_EQ(selected(), 2);
    stage.press(2, WM_RBUTTONUP);
    EXPECT_EQ(stage.menuIndex, 2);
    EXPECT_NEAR(stage.menuPlace.x, stage.middleOf(2).x, 1);
    EXPECT_NEAR(stage.menuPlace.y, stage.middleOf(2).y, 1);
    EXPECT_FALSE(stage.overview->drag().dragging());
}

TEST_F(OverviewWindowTest, TheMenuKeyAsksForTheMenuOfTheSelection) {
    open(5);
    SendMessageW(stage.panel(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(stage.panel()), -1);
    EXPECT_EQ(stage.menuIndex, -1) << "nothing is selected";
    stage.key(VK_RIGHT);
    SendMessageW(stage.panel(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(stage.panel()), -1);
    EXPECT_EQ(stage.menuIndex, 0);
    EXPECT_EQ(stage.menuPlace.x, stage.middleOf(0).x);
}

TEST_F(OverviewWindowTest, TheRightButtonOnTheGroundAsksForNoMenu) {
    open(5);
    stage.key(VK_RIGHT);
    RECT panel{};
    GetWindowRect(stage.panel(), &panel);
    SendMessageW(stage.panel(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(stage.panel()),
                 MAKELPARAM(panel.left + 1, panel.top + 1));
    EXPECT_EQ(stage.menuIndex, -1) << "none was pressed";
}

TEST_F(OverviewWindowTest, ANameOnBlackStandsInTheMiddleOfItsCellAtEverySize) {
    stage.pictures.file(L"a.jpg", "no picture");
    stage.film(L"a.mpg");
    stage.paintsFrames = false;
    open(6);
    const auto nameIsCentred = [&](int index) {
        const picture::Pixels box = stage.seen(index);
        RECT name{box.width, box.height, 0, 0};
        for (int y = 0; y < box.height; ++y) {
            for (int x = 0; x < box.width; ++x) {
                if (box.row(y)[x] == 0xB8B8B8) {
                    const RECT pixel{x, y, x + 1, y + 1};
                    UnionRect(&name, &name, &pixel);
                }
            }
        }
        // Letters are smoothed, and not all of them have the full colour.
        constexpr int kSmoothed = 6;
        EXPECT_NEAR((name.left + name.right) / 2, box.width / 2, kSmoothed) << index << ", " << box.width;
        EXPECT_NEAR((name.top + name.bottom) / 2, box.height / 2, kSmoothed) << index << ", " << box.width;
    };
    const auto check = [&] {
        ASSERT_TRUE(stage.loaded());
        nameIsCentred(0);
        nameIsCentred(1);
    };
    check();
    const int before = stage.overview->view().layout().cellWidth;
    stage.controlKey(VK_ADD);
    ASSERT_GT(stage.overview->view().layout().cellWidth, before);
    check();
    stage.controlKey('0');
    SetWindowPos(stage.overview->form().hwnd(), nullptr, 0, 0, 800, 600, SWP_NOMOVE | SWP_NOZORDER);
    ASSERT_TRUE(stage.until([&] { return stage.overview->view().layout().cellWidth < before; }));
    check();
}

TEST_F(OverviewWindowTest, TheRowOfAFilmHasRoomBesideTheMusicListInTheSmallestWindow) {
    stage.titles = {L"01 Lied.mp3"};
    stage.film(L"a.mpg");
    open(2);
    Form2& form = stage.overview->form();
    stage.overview->music().show();
    SetWindowPos(form.hwnd(), nullptr, 0, 0, 100, 100, SWP_NOMOVE | SWP_NOZORDER);
    stage.loop.settle();
    stage.overview->enlarged().enlarge(0);
    for (const ui::Control* control :
         std::initializer_list<const ui::Control*>{&form.Ton, &form.Command[0], &form.Command[5]}) {
        EXPECT_TRUE(control->visible());
        EXPECT_GE(control->left(), form.places().grid.left);
        EXPECT_LE(control->left() + control->width(), form.places().card.left);
    }
    EXPECT_GT(form.List1.height(), form.OK.height() * 4) << "some titles are seen";
}

TEST_F(OverviewWindowTest, EscapeDoesNothing) {
    open(2);
    stage.key(VK_ESCAPE);
    EXPECT_TRUE(stage.overview->form().visible());
    EXPECT_FALSE(stage.loop.leaving());
}

TEST_F(OverviewWindowTest, TheCellUnderThePointerHasAClearFrame) {
    open(4);
    SendMessageW(stage.box(1), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    EXPECT_TRUE(stage.mentions(1, kHotColour));
    SendMessageW(stage.box(1), WM_MOUSELEAVE, 0, 0);
    EXPECT_FALSE(stage.mentions(1, kHotColour));
}

TEST_F(OverviewWindowTest, ANewSizeIsLaidOutWhenItIsAtRest) {
    open(10);
    const GridLayout before = stage.overview->view().layout();
    const int made = stage.overview->grid().image(0).width;
    RECT window{};
    GetWindowRect(stage.overview->form().hwnd(), &window);
    const auto resize = [&](int width, int height) {
        SetWindowPos(stage.overview->form().hwnd(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
        stage.loop.settle();
    };
    resize(900, 700);
    EXPECT_EQ(stage.overview->view().layout(), before) << "not while it changes";
    ASSERT_TRUE(stage.until([&] { return stage.overview->view().layout() != before; }));
    const GridLayout small = stage.overview->view().layout();
    EXPECT_LT(small.cellWidth, before.cellWidth);
    ASSERT_TRUE(stage.loaded());
    RECT box{};
    GetClientRect(stage.box(0), &box);
    EXPECT_EQ(box.right, small.cellWidth);
    resize(window.right - window.left, window.bottom - window.top);
    ASSERT_TRUE(stage.until([&] { return stage.overview->view().layout() == before; }));
    ASSERT_TRUE(stage.loaded());
    EXPECT_EQ(stage.overview->grid().image(0).width, made);
    EXPECT_TRUE(alike(stage.colour(5), 0x0A0A0A * 8));
}

TEST_F(OverviewWindowTest, ControlAndTheWheelEnlargeAndTheGridScrolls) {
    open(30);
    const int fitted = stage.overview->view().layout().imageWidth();
    for (int i = 0; i < 5; ++i) {
        wheel(1, true);
    }
    ASSERT_TRUE(stage.loaded());
    GridView& view = stage.overview->view();
    EXPECT_TRUE(view.isEnlarged());
    EXPECT_GT(view.layout().imageWidth(), fitted * 5 / 4);
    EXPECT_EQ(stage.overview->grid().image(0).width, view.layout().imageWidth()) << "decoded anew";
    EXPECT_FALSE(visible(29));
    EXPECT_EQ(view.scroll(), 0);
    wheel(-2, false);
    EXPECT_GT(view.scroll(), 0);
    RECT box{};
    GetWindowRect(stage.box(view.inView().first), &box);
    EXPECT_EQ(box.top, view.onScreen(view.inView().first).top);
    stage.controlKey(VK_END);
    EXPECT_TRUE(visible(29));
    EXPECT_FALSE(visible(0));
    EXPECT_EQ(selected(), 29);
    stage.controlKey('0');
    EXPECT_FALSE(view.isEnlarged());
    EXPECT_EQ(view.layout().imageWidth(), fitted);
    ASSERT_TRUE(stage.loaded());
    for (int i = 0; i < 30; ++i) {
        EXPECT_TRUE(visible(i)) << i;
        GetWindowRect(stage.box(i), &box);
        EXPECT_EQ(box.left, view.onScreen(i).left);
        EXPECT_TRUE(alike(stage.colour(i), 0x0A0A0AU * static_cast<unsigned>(i % 20 + 3))) << i;
    }
}

TEST_F(OverviewWindowTest, PartsOfANotchAddUp) {
    open(12);
    const auto turn = [&](int delta) {
        SendMessageW(stage.panel(), WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, delta), 0);
    };
    turn(50);
    turn(50);
    EXPECT_FALSE(stage.overview->view().isEnlarged());
    turn(50);
    EXPECT_TRUE(stage.overview->view().isEnlarged());
}

TEST_F(OverviewWindowTest, PlusAndMinusEnlargeAndReduce) {
    open(12);
    const int fitted = stage.overview->view().layout().imageWidth();
    stage.controlKey(VK_ADD);
    EXPECT_GT(stage.overview->view().layout().imageWidth(), fitted);
    stage.controlKey(VK_OEM_PLUS);
    stage.controlKey(VK_OEM_MINUS);
    stage.controlKey(VK_SUBTRACT);
    EXPECT_EQ(stage.overview->view().layout().imageWidth(), fitted);
}

TEST_F(OverviewWindowTest, ImagesOutOfViewAreKeptSmall) {
    open(60);
    const int fitted = stage.overview->view().layout().imageWidth();
    for (int i = 0; i < 7; ++i) {
        stage.controlKey(VK_ADD);
    }
    ASSERT_TRUE(stage.loaded());
    const int large = stage.overview->view().layout().imageWidth();
    ASSERT_GT(large, 2 * fitted);
    EXPECT_EQ(stage.overview->grid().image(0).width, large);
    stage.controlKey(VK_END);
    ASSERT_TRUE(stage.loaded());
    EXPECT_EQ(stage.overview->grid().image(59).width, large);
    EXPECT_EQ(stage.overview->grid().image(0).width, fitted);
}

TEST_F(OverviewWindowTest, DraggingScrollsAtTheEdge) {
    open(60);
    for (int i = 0; i < 4; ++i) {
        stage.controlKey(VK_ADD);
    }
    ASSERT_TRUE(stage.loaded());
    POINT before{};
    GetCursorPos(&before);
    RECT panel{};
    GetWindowRect(stage.panel(), &panel);
    const POINT edge{(panel.left + panel.right) / 2, panel.bottom - 2};
    stage.press(0);
    SetCursorPos(edge.x, edge.y);
    stage.dragTo(edge);
    ASSERT_TRUE(stage.overview->drag().dragging());
    ASSERT_TRUE(stage.until([&] { return stage.overview->view().scroll() > 200; }));
    const auto target = stage.overview->view().itemAt(edge);
    ASSERT_TRUE(target);
    stage.dropAt(edge);
    SetCursorPos(before.x, before.y);
    EXPECT_EQ(stage.record(*target).fileName, L"b100.jpg");
}

TEST_F(OverviewWindowTest, FollowsItsDpi) {
    open(4);
    const GridLayout before = stage.overview->view().layout();
    RECT window{};
    GetWindowRect(stage.overview->form().hwnd(), &window);
    support::FakeMonitors monitors;
    monitors.dpi = 192;
    platform::Monitors::replace(&monitors);
    SendMessageW(stage.overview->form().hwnd(), WM_DPICHANGED, MAKEWPARAM(192, 192),
                 reinterpret_cast<LPARAM>(&window));
    ASSERT_TRUE(stage.loaded());
    EXPECT_EQ(stage.overview->view().layout().columns, before.columns);
    EXPECT_EQ(stage.overview->view().layout().gap, 2 * before.gap);
    RECT grid{};
    GetWindowRect(stage.panel(), &grid);
    EXPECT_LT(grid.right - grid.left, stage.overview->form().clientSize().cx) << "it fits its window";
    EXPECT_EQ(grid.right - grid.left, ui::toPixels(stage.overview->form().places().grid.width, 192));
    EXPECT_FLOAT_EQ(stage.overview->form().Grid.left(), stage.overview->form().places().grid.left);
    EXPECT_FLOAT_EQ(stage.overview->form().Grid.width(), stage.overview->form().places().grid.width);
    for (int i = 0; i < 4; ++i) {
        RECT box{};
        GetWindowRect(stage.box(i), &box);
        EXPECT_EQ(box.left, stage.overview->view().onScreen(i).left);
    }
    platform::Monitors::replace(nullptr);
}

}  // namespace
}  // namespace overview
