// The program is left from inside the loops that the system runs by itself: each one ends, and the handler
// that waited in it does not go on.
#include <gmock/gmock.h>

#include <functional>
#include <string>

#include "platform/handles.h"
#include "support/test_form.h"
#include "ui/button.h"
#include "ui/file_list.h"
#include "ui/message_box.h"
#include "ui/scroll_bar.h"
#include "ui/text_box.h"

namespace ui {
namespace {

constexpr UINT kLookEveryMs = 10;
constexpr ULONGLONG kStuckAfterMs = 5000;

GUITHREADINFO threadState() {
    GUITHREADINFO state{};
    state.cbSize = sizeof(state);
    GetGUIThreadInfo(GetCurrentThreadId(), &state);
    return state;
}

bool inMenu() {
    return (threadState().flags & GUI_INMENUMODE) != 0;
}

bool moving() {
    return (threadState().flags & GUI_INMOVESIZE) != 0;
}

HWND openBox() {
    const HWND box = FindWindowW(L"#32770", L" Frage");
    return box != nullptr && IsWindowVisible(box) != FALSE ? box : nullptr;
}

/// Leaves as soon as a state is reached, looking from a window timer: nothing else of ours runs in the
/// system's loops. A loop that goes on all the same is ended by hand, so that a failure does not hang.
class LeaveWhen {
  public:
    LeaveWhen(support::TestForm& test, std::function<bool()> reached)
        : test_(test), reached_(std::move(reached)) {
        one = this;
        timer_ = SetTimer(nullptr, 0, kLookEveryMs, [](HWND, UINT, UINT_PTR, DWORD) { one->look(); });
    }
    ~LeaveWhen() {
        KillTimer(nullptr, timer_);
        one = nullptr;
    }
    LeaveWhen(const LeaveWhen&) = delete;
    LeaveWhen& operator=(const LeaveWhen&) = delete;

    bool left() const { return left_; }
    bool stuck() const { return stuck_; }

  private:
    void look() {
        if (!left_ && reached_()) {
            left_ = true;
            test_.loop.leave();
            since_ = GetTickCount64();
        }
        if (GetTickCount64() - since_ > kStuckAfterMs) {
            stuck_ = true;
            PostMessageW(test_.form.hwnd(), WM_KEYDOWN, VK_ESCAPE, 1);
            PostMessageW(test_.form.hwnd(), WM_LBUTTONUP, 0, 0);
            if (openBox() != nullptr) {
                EndDialog(openBox(), IDCANCEL);
            }
        }
    }

    static inline LeaveWhen* one = nullptr;
    support::TestForm& test_;
    std::function<bool()> reached_;
    UINT_PTR timer_ = 0;
    ULONGLONG since_ = GetTickCount64();
    bool left_ = false;
    bool stuck_ = false;
};

class ModalLoops : public testing::Test {
  protected:
    /// Runs `enter`, which is to wait in a loop of the system, as a handler, and leaves from inside.
    void leaveFrom(const std::function<void()>& enter, const std::function<bool()>& inside) {
        std::string went;
        const LeaveWhen leaver(test, inside);
        test.loop.guarded([&] {
            enter();
            went += "ended ";
            test.loop.doEvents();
            went += "went on ";
        });
        EXPECT_TRUE(leaver.left()) << "the system's loop was never entered";
        EXPECT_FALSE(leaver.stuck()) << "leaving did not end it";
        EXPECT_EQ(went, "ended ");
        EXPECT_TRUE(test.loop.leaving());
    }
    void openMenu() {
        const HMENU menu = CreatePopupMenu();
        AppendMenuW(menu, MF_STRING, 1, L"Eintrag");
        AppendMenuW(menu, MF_STRING, 2, L"Noch einer");
        TrackPopupMenu(menu, TPM_LEFTALIGN, 200, 200, 0, test.form.hwnd(), nullptr);
        DestroyMenu(menu);
    }
    support::TestForm test;
};

TEST_F(ModalLoops, APopupMenu) {
    leaveFrom([&] { openMenu(); }, inMenu);
}

TEST_F(ModalLoops, TheSystemMenuByKeyboard) {
    leaveFrom([&] { SendMessageW(test.form.hwnd(), WM_SYSCOMMAND, SC_KEYMENU, L' '); }, inMenu);
}

TEST_F(ModalLoops, TheSystemMenuByMouse) {
    leaveFrom(
        [&] {
            SendMessageW(test.form.hwnd(), WM_SYSCOMMAND, SC_MOUSEMENU | HTSYSMENU, MAKELPARAM(200, 200));
        },
        inMenu);
}

TEST_F(ModalLoops, TheMenuOfATextBox) {
    TextBox box(test.args(1));
    leaveFrom(
        [&] {
            SendMessageW(box.hwnd(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(box.hwnd()),
                         MAKELPARAM(200, 200));
        },
        inMenu);
}

// A window manager moves windows in its own way; one that it does not know is moved by the system's loop.
TEST_F(ModalLoops, AWindowBeingMoved) {
    class Loose : public Window {
      public:
        Loose() {
            Style style;
            style.className = L"PanorellTestLoose";
            style.style = WS_POPUP;
            style.exStyle = WS_EX_TOOLWINDOW;
            style.width = style.height = 100;
            create(style);
            ShowWindow(hwnd(), SW_SHOWNOACTIVATE);
        }
    };
    const Loose window;
    test.loop.settle();
    leaveFrom([&] { SendMessageW(window.hwnd(), WM_SYSCOMMAND, SC_MOVE | HTCAPTION, 0); }, moving);
}

TEST_F(ModalLoops, AHeldScrollBar) {
    ScrollBar bar(test.args(1, {150, 150, 300, 3000}), {1, 60, 30});
    leaveFrom([&] { SendMessageW(bar.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4)); },
              [&] { return GetCapture() == bar.hwnd(); });
}

TEST_F(ModalLoops, AMessageBox) {
    // The box throws by itself when it is ended like this, so the handler ends right there.
    std::string went;
    const LeaveWhen leaver(test, [] { return openBox() != nullptr; });
    test.loop.guarded([&] {
        messageBox(&test.form, L"Ja?", L" Frage", MessageIcon::Question, MessageButtons::YesNo);
        went = "went on";
    });
    EXPECT_TRUE(leaver.left());
    EXPECT_FALSE(leaver.stuck());
    EXPECT_EQ(went, "");
}

TEST_F(ModalLoops, ABoxAboveAnOpenMenu) {
    static support::TestForm* below = nullptr;
    below = &test;
    SetTimer(nullptr, 0, kLookEveryMs, [](HWND, UINT, UINT_PTR id, DWORD) {
        if (inMenu()) {
            KillTimer(nullptr, id);
            below->loop.guarded([] { messageBox(&below->form, L"Ja?", L" Frage", MessageIcon::None); });
        }
    });
    leaveFrom([&] { openMenu(); }, [] { return openBox() != nullptr; });
}

}  // namespace
}  // namespace ui
