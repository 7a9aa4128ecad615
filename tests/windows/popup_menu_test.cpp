#include "ui/popup_menu.h"

#include <gmock/gmock.h>

#include <deque>
#include <functional>
#include <string>

#include "support/test_form.h"
#include "ui/button.h"
#include "ui/windows_loop.h"

namespace ui {
namespace {

using testing::ElementsAre;
using testing::Optional;

constexpr UINT kStepEveryMs = 20;
constexpr ULONGLONG kStuckAfterMs = 5000;
constexpr UINT kGetMenuOfWindow = 0x01E1;  // MN_GETHMENU

bool inMenu() {
    GUITHREADINFO state{};
    state.cbSize = sizeof(state);
    GetGUIThreadInfo(GetCurrentThreadId(), &state);
    return (state.flags & GUI_INMENUMODE) != 0;
}

/// The windows of the open menus of this thread.
std::vector<HWND> menuWindows() {
    std::vector<HWND> found;
    EnumWindows(
        [](HWND window, LPARAM target) -> BOOL {
            wchar_t name[16]{};
            GetClassNameW(window, name, 16);
            if (std::wstring(name) == L"#32768" && IsWindowVisible(window) != FALSE &&
                GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId()) {
                reinterpret_cast<std::vector<HWND>*>(target)->push_back(window);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

HMENU menuOf(HWND window) {
    return reinterpret_cast<HMENU>(SendMessageW(window, kGetMenuOfWindow, 0, 0));
}

/// Works an open menu as its user does, one step a tick, from a window timer: the menu has a loop of its own.
/// A menu that stays open all the same is closed, so that a failure does not hang.
class MenuUser {
  public:
    MenuUser() {
        one = this;
        timer_ = SetTimer(nullptr, 0, kStepEveryMs, [](HWND, UINT, UINT_PTR, DWORD) { one->tick(); });
    }
    ~MenuUser() {
        KillTimer(nullptr, timer_);
        one = nullptr;
    }
    MenuUser(const MenuUser&) = delete;
    MenuUser& operator=(const MenuUser&) = delete;

    MenuUser& then(std::function<void()> step) {
        steps_.push_back(std::move(step));
        return *this;
    }
    MenuUser& key(WORD virtualKey) {
        return then([virtualKey] {
            INPUT input[2]{};
            for (INPUT& event : input) {
                event.type = INPUT_KEYBOARD;
                event.ki.wVk = virtualKey;
            }
            input[1].ki.dwFlags = KEYEVENTF_KEYUP;
            SendInput(2, &input[0], sizeof(INPUT));
        });
    }
    MenuUser& clickItem(int index) {
        then([index] {
            RECT place{};
            GetMenuItemRect(nullptr, menuOf(menuWindows().at(0)), static_cast<UINT>(index), &place);
            SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
        });
        return then([] { button(MOUSEEVENTF_LEFTDOWN); }).then([] { button(MOUSEEVENTF_LEFTUP); });
    }
    bool stuck() const { return stuck_; }
    bool finished() const { return steps_.empty(); }

  private:
    static void button(DWORD flag) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flag;
        SendInput(1, &input, sizeof(INPUT));
    }
    void tick() {
        if (!inMenu() || menuWindows().empty()) {
            since_ = GetTickCount64();
            return;
        }
        if (!steps_.empty()) {
            const auto step = std::move(steps_.front());
            steps_.pop_front();
            step();
        } else if (GetTickCount64() - since_ > kStuckAfterMs) {
            stuck_ = true;
            EndMenu();
        }
    }

    static inline MenuUser* one = nullptr;
    std::deque<std::function<void()>> steps_;
    UINT_PTR timer_ = 0;
    ULONGLONG since_ = GetTickCount64();
    bool stuck_ = false;
};

class PopupMenuTest : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(test.waitFor([&] { return GetForegroundWindow() == test.form.hwnd(); }));
    }
    void TearDown() override { EXPECT_FALSE(user.stuck()) << "the menu stayed open"; }

    std::optional<int> open() { return popupMenu(test.form, items, {300, 300}); }

    support::TestForm test;
    MenuUser user;
    std::vector<MenuItem> items{
        {.id = 11, .caption = L"Bild &vergrößern"},
        {.id = 12, .caption = L"Bild &sperren", .enabled = false},
        {.id = 13, .caption = L"unsichtbar", .visible = false},
        menuSeparator(),
        {.id = 14, .caption = L"&Datum ändern", .checked = true},
        {.caption = L"Bild &bearbeiten",
         .submenu = {{.id = 21, .caption = L"Programm &starten"},
                     {.id = 22, .caption = L"Programm aus&wählen"}}},
    };
};

TEST_F(PopupMenuTest, ShowsTheItemsWithTheirStates) {
    std::vector<std::wstring> captions;
    std::vector<UINT> states;
    POINT corner{};
    user.then([&] {
            const HWND window = menuWindows().at(0);
            const HMENU menu = menuOf(window);
            for (int i = 0; i < GetMenuItemCount(menu); ++i) {
                wchar_t text[80]{};
                GetMenuStringW(menu, static_cast<UINT>(i), text, 80, MF_BYPOSITION);
                captions.emplace_back(text);
                const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
                states.push_back((state & MF_SEPARATOR) != 0 ? UINT{MF_SEPARATOR} : state & 0xFFU);
            }
            RECT place{};
            GetWindowRect(window, &place);
            corner = {place.left, place.top};
        })
        .key(VK_ESCAPE);
    EXPECT_EQ(open(), std::nullopt);
    EXPECT_THAT(captions, ElementsAre(L"Bild &vergrößern", L"Bild &sperren", L"", L"&Datum ändern",
                                      L"Bild &bearbeiten"));
    EXPECT_THAT(states,
                ElementsAre(0U, UINT{MF_GRAYED}, UINT{MF_SEPARATOR}, UINT{MF_CHECKED}, UINT{MF_POPUP}));
    EXPECT_EQ(corner.x, 300);
    EXPECT_EQ(corner.y, 300);
}

TEST_F(PopupMenuTest, ChosenWithTheMouse) {
    user.clickItem(3);
    EXPECT_THAT(open(), Optional(14));
}

TEST_F(PopupMenuTest, ADisabledItemCannotBeChosen) {
    user.clickItem(1).key(VK_ESCAPE);
    EXPECT_EQ(open(), std::nullopt);
}

TEST_F(PopupMenuTest, ChosenWithTheArrowKeys) {
    user.key(VK_UP).key(VK_UP).key(VK_RETURN);
    EXPECT_THAT(open(), Optional(14));
}

TEST_F(PopupMenuTest, ChosenByItsLetter) {
    user.key('D');
    EXPECT_THAT(open(), Optional(14));
}

TEST_F(PopupMenuTest, ChosenFromASubmenu) {
    user.key('B').key('W');
    EXPECT_THAT(open(), Optional(22));
}

TEST_F(PopupMenuTest, EscapeChoosesNothing) {
    user.key(VK_DOWN).key(VK_ESCAPE);
    EXPECT_EQ(open(), std::nullopt);
    EXPECT_FALSE(inMenu());
}

TEST_F(PopupMenuTest, AMenuWithoutItemsIsNotOpened) {
    for (MenuItem& item : items) {
        item.visible = false;
    }
    EXPECT_EQ(open(), std::nullopt);
    items.clear();
    EXPECT_EQ(open(), std::nullopt);
}

TEST_F(PopupMenuTest, LeavingClosesItAndEndsTheHandler) {
    user.then([&] { test.loop.leave(); });
    std::string went;
    test.loop.guarded([&] {
        open();
        went = "went on";
    });
    EXPECT_TRUE(user.finished());
    EXPECT_EQ(went, "");
    EXPECT_FALSE(inMenu());
}

TEST_F(PopupMenuTest, LeavingClosesASubmenuToo) {
    user.key('B').then([&] { test.loop.leave(); });
    EXPECT_THROW(open(), Leaving);
    EXPECT_TRUE(menuWindows().empty());
}

TEST(PopupMenuOnTheRealLoop, TimersGoOnMeanwhile) {
    WindowsLoop loop;
    Form form({.className = L"PanorellTestForm", .title = L"Test", .width = 9000, .height = 6000});
    form.show();
    Timer timer(loop, 20);
    int ticks = 0;
    timer.onTimer = [&] {
        if (inMenu() && ++ticks == 5) {
            EndMenu();
        }
    };
    timer.setEnabled(true);
    MenuUser user;
    EXPECT_EQ(popupMenu(form, {{.id = 1, .caption = L"Eintrag"}}, {300, 300}), std::nullopt);
    EXPECT_FALSE(user.stuck());
    EXPECT_GE(ticks, 5);
}

}  // namespace
}  // namespace ui
