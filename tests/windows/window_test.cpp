// How a window finds its object, and how a control of the system is taken over and given back.
#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>

#include "support/test_form.h"
#include "ui/button.h"
#include "ui/combo_box.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/option_button.h"
#include "ui/picture_box.h"
#include "ui/text_box.h"

namespace ui {
namespace {

using support::TestForm;
using testing::ElementsAre;

constexpr UINT kTell = WM_APP + 1;

WNDPROC procedureOf(HWND window) {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

HWND plainStatic(HWND parent) {
    return CreateWindowExW(0, L"Static", L"", WS_CHILD, 0, 0, 10, 10, parent, nullptr, nullptr, nullptr);
}

/// A text box with a handler for one message.
class ToldBox : public TextBox {
  public:
    explicit ToldBox(const CreateArgs& args) : TextBox(args, {}) {}

    std::function<bool(LRESULT& result)> onTold;
    std::function<void()> onEnd;
    LRESULT systemText() { return callSystem(WM_GETTEXTLENGTH, 0, 0); }

  protected:
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override {
        if (message == kTell && onTold) {
            // The handler may end this object, and with it the member.
            const auto handler = onTold;
            return handler(result);
        }
        return TextBox::onMessage(message, w, l, result);
    }
    void onDestroyed() override {
        const auto handler = onEnd;
        if (handler) {
            handler();
        }
    }
};

/// Looks at every message of this thread's windows, before (WH_CALLWNDPROC) or after (WH_CALLWNDPROCRET) it
/// is handled.
class MessageWatch {
  public:
    using Look = std::function<void(HWND window, UINT message)>;
    MessageWatch(int kind, Look look) {
        current() = std::move(look);
        hook_ =
            SetWindowsHookExW(kind, kind == WH_CALLWNDPROC ? before : after, nullptr, GetCurrentThreadId());
    }
    ~MessageWatch() {
        UnhookWindowsHookEx(hook_);
        current() = nullptr;
    }
    MessageWatch(const MessageWatch&) = delete;
    MessageWatch& operator=(const MessageWatch&) = delete;

  private:
    static Look& current() {
        static Look look;
        return look;
    }
    static LRESULT CALLBACK before(int code, WPARAM w, LPARAM l) {
        const auto& call = *reinterpret_cast<const CWPSTRUCT*>(l);
        current()(call.hwnd, call.message);
        return CallNextHookEx(nullptr, code, w, l);
    }
    static LRESULT CALLBACK after(int code, WPARAM w, LPARAM l) {
        const auto& call = *reinterpret_cast<const CWPRETSTRUCT*>(l);
        current()(call.hwnd, call.message);
        return CallNextHookEx(nullptr, code, w, l);
    }
    HHOOK hook_;
};

TEST(Window, IsFoundByItsHandle) {
    TestForm test;
    TextBox box(test.args(1), {});
    PictureBox picture(test.args(2));
    EXPECT_EQ(Window::from(test.form.hwnd()), &test.form);
    EXPECT_EQ(Window::from(box.hwnd()), &box);
    EXPECT_EQ(Window::from(picture.hwnd()), &picture);
}

TEST(Window, WindowsOfOthersHaveNoObject) {
    TestForm test;
    ComboBox combo(test.args(1));
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof(parts);
    ASSERT_TRUE(GetComboBoxInfo(combo.hwnd(), &parts));
    const HWND plain = plainStatic(test.form.hwnd());
    ASSERT_NE(plain, nullptr);
    ASSERT_NE(parts.hwndList, nullptr);
    for (const HWND foreign : {plain, parts.hwndList, GetDesktopWindow(), HWND{nullptr},
                               reinterpret_cast<HWND>(static_cast<INT_PTR>(0x7FFE)), HWND_MESSAGE}) {
        EXPECT_EQ(Window::from(foreign), nullptr) << foreign;
    }
    // A message that names such a window as its source is passed to none.
    SendMessageW(test.form.hwnd(), WM_COMMAND, MAKEWPARAM(7, BN_CLICKED), reinterpret_cast<LPARAM>(plain));
    DestroyWindow(plain);
    EXPECT_EQ(Window::from(plain), nullptr);
}

TEST(Window, IsFoundWhileItDiesAndNotAfterwards) {
    TestForm test;
    auto box = std::make_unique<ToldBox>(test.args(1));
    const HWND window = box->hwnd();
    Window* found = nullptr;
    box->onEnd = [&] { found = Window::from(window); };
    DestroyWindow(window);
    EXPECT_EQ(found, box.get());
    EXPECT_EQ(Window::from(window), nullptr);
    EXPECT_EQ(box->hwnd(), nullptr);
    EXPECT_EQ(box->systemText(), 0) << "nobody is left who could be asked";

    auto form =
        std::make_unique<Form>(Form::Args{.className = L"PanorellTestForm", .width = 1500, .height = 1500});
    const HWND outer = form->hwnd();
    Label label({.parent = *form, .id = 1, .place = {0, 0, 600, 300}});
    const HWND inner = label.hwnd();
    form.reset();
    EXPECT_EQ(Window::from(outer), nullptr);
    EXPECT_EQ(Window::from(inner), nullptr);
    EXPECT_EQ(label.hwnd(), nullptr) << "a control ends with its form";
}

/// Counts what reaches the system's own text boxes, for those that are made while it lives.
class SystemCalls {
  public:
    explicit SystemCalls(HWND parent)
        : plain_(
              CreateWindowExW(0, L"Edit", L"", WS_CHILD, 0, 0, 10, 10, parent, nullptr, nullptr, nullptr)) {
        told() = 0;
        procedure() = reinterpret_cast<WNDPROC>(
            SetClassLongPtrW(plain_, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(count)));
    }
    ~SystemCalls() {
        SetClassLongPtrW(plain_, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure()));
        DestroyWindow(plain_);
    }
    SystemCalls(const SystemCalls&) = delete;
    SystemCalls& operator=(const SystemCalls&) = delete;

    static int& told() {
        static int calls = 0;
        return calls;
    }

  private:
    static WNDPROC& procedure() {
        static WNDPROC system = nullptr;
        return system;
    }
    static LRESULT CALLBACK count(HWND window, UINT message, WPARAM w, LPARAM l) {
        told() += message == kTell ? 1 : 0;
        return CallWindowProcW(procedure(), window, message, w, l);
    }
    HWND plain_;
};

TEST(SystemControl, AHandlerMayEndTheWindow) {
    TestForm test;
    const SystemCalls system(test.form.hwnd());
    ToldBox box(test.args(1));
    SendMessageW(box.hwnd(), kTell, 0, 0);
    EXPECT_EQ(SystemCalls::told(), 1);
    for (const bool used : {true, false}) {
        ToldBox one(test.args(2));
        one.onTold = [&](LRESULT& result) {
            DestroyWindow(one.hwnd());
            result = 5;
            return used;
        };
        EXPECT_EQ(SendMessageW(one.hwnd(), kTell, 0, 0), used ? 5 : 0);
        EXPECT_EQ(one.hwnd(), nullptr);
    }
    EXPECT_EQ(SystemCalls::told(), 1) << "a window that has ended handles nothing";
    SendMessageW(box.hwnd(), kTell, 0, 0);
    EXPECT_EQ(SystemCalls::told(), 2) << "the others live on";
}

TEST(SystemControl, AHandlerMayEndTheObject) {
    TestForm test;
    auto box = std::make_unique<ToldBox>(test.args(1));
    const HWND window = box->hwnd();
    box->onTold = [&](LRESULT& result) {
        box.reset();
        result = 6;
        return true;
    };
    EXPECT_EQ(SendMessageW(window, kTell, 0, 0), 6);
    EXPECT_EQ(box, nullptr);
    EXPECT_FALSE(IsWindow(window));
}

TEST(SystemControl, ItsObjectMayEndWhileTheWindowDoes) {
    TestForm test;
    auto box = std::make_unique<ToldBox>(test.args(1));
    const HWND window = box->hwnd();
    box->onEnd = [&] {
        if (box != nullptr) {
            const std::unique_ptr<ToldBox> ends = std::move(box);
        }
    };
    DestroyWindow(window);
    EXPECT_EQ(box, nullptr);
    EXPECT_EQ(Window::from(window), nullptr);
    EXPECT_FALSE(IsWindow(window));
}

TEST(SystemControl, AUsersClickMayEndIt) {
    TestForm test;
    PushButton button(test.args(1));
    int clicks = 0;
    button.onClick = [&] {
        ++clicks;
        DestroyWindow(button.hwnd());
    };
    test.click(button);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(button.hwnd(), nullptr);

    OptionGroup group;
    OptionButton option(test.args(2), group);
    option.onChosen = [&] { DestroyWindow(option.hwnd()); };
    test.click(option);
    EXPECT_EQ(option.hwnd(), nullptr);

    ListBox list(test.args(3, {150, 150, 3000, 3000}));
    list.add(L"one");
    int presses = 0;
    list.onClick = [&] { DestroyWindow(list.hwnd()); };
    list.onPressed = [&](const MouseEvent&) { ++presses; };
    SendMessageW(list.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
    if (list.hwnd() != nullptr) {
        SendMessageW(list.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
    }
    EXPECT_EQ(list.hwnd(), nullptr);
    EXPECT_EQ(presses, 1);
}

TEST(SystemControl, AFailingHandlerIsTrappedAndTheControlLivesOn) {
    TestForm test;
    std::vector<std::string> trapped;
    test.loop.onTrapped = [&](const std::exception& failure) { trapped.emplace_back(failure.what()); };
    ToldBox box(test.args(1));
    box.onTold = [](LRESULT&) -> bool { throw std::runtime_error("deliberate"); };
    EXPECT_EQ(SendMessageW(box.hwnd(), kTell, 0, 0), 0);
    EXPECT_THAT(trapped, ElementsAre("deliberate"));
    box.setText(L"12");
    EXPECT_EQ(box.systemText(), 2);
}

TEST(SystemControl, MayBeAskedWithinItsOwnHandler) {
    TestForm test;
    ToldBox box(test.args(1));
    int depth = 0;
    box.onTold = [&](LRESULT& result) {
        const bool deep = ++depth == 3;
        result = deep ? box.systemText() : SendMessageW(box.hwnd(), kTell, 0, 0);
        return true;
    };
    box.setText(L"12345");
    EXPECT_EQ(SendMessageW(box.hwnd(), kTell, 0, 0), 5);
}

TEST(SystemControl, GetsItsProcedureBackAtItsEnd) {
    TestForm test;
    const HWND plain =
        CreateWindowExW(0, L"Edit", L"", WS_CHILD, 0, 0, 10, 10, test.form.hwnd(), nullptr, nullptr, nullptr);
    const WNDPROC system = procedureOf(plain);
    DestroyWindow(plain);
    TextBox box(test.args(1), {});
    const HWND window = box.hwnd();
    EXPECT_NE(procedureOf(window), system);
    WNDPROC last = nullptr;
    {
        const MessageWatch watch(WH_CALLWNDPROCRET, [&](HWND of, UINT message) {
            if (of == window && message == WM_NCDESTROY) {
                last = procedureOf(of);
            }
        });
        DestroyWindow(window);
    }
    EXPECT_EQ(last, system);
}

// Whoever takes a control's messages after us, as the system's tips do, keeps them to the end.
WNDPROC taken = nullptr;
int messagesTaken = 0;

LRESULT CALLBACK takeOver(HWND window, UINT message, WPARAM w, LPARAM l) {
    ++messagesTaken;
    const LRESULT result = CallWindowProcW(taken, window, message, w, l);
    if (message == WM_NCDESTROY) {
        EXPECT_EQ(procedureOf(window), takeOver);
        EXPECT_EQ(CallWindowProcW(taken, window, kTell, 0, 0), 0) << "there is no object any more";
    }
    return result;
}

TEST(SystemControl, MayBeTakenOverByOthersToItsEnd) {
    TestForm test;
    ToldBox box(test.args(1));
    const HWND window = box.hwnd();
    int told = 0;
    box.onTold = [&](LRESULT&) {
        ++told;
        return true;
    };
    messagesTaken = 0;
    taken = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(takeOver)));
    SendMessageW(window, kTell, 0, 0);
    EXPECT_EQ(messagesTaken, 1);
    EXPECT_EQ(told, 1);
    DestroyWindow(window);
    EXPECT_EQ(told, 1);
    EXPECT_GT(messagesTaken, 1);
    EXPECT_EQ(Window::from(window), nullptr);
}

TEST(Tooltip, ShowsWhereThePointerRestsAndEndsWithAPress) {
    TestForm test;
    TextBox box(test.args(1), {});
    box.setToolTip(L"Sekunden");
    const HWND tip = Tooltip::of(test.form.hwnd()).hwnd();
    RECT place{};
    GetWindowRect(box.hwnd(), &place);
    POINT before{};
    GetCursorPos(&before);
    SetCursorPos(static_cast<int>(place.left + place.right) / 2,
                 static_cast<int>(place.top + place.bottom) / 2);
    EXPECT_TRUE(test.waitFor([&] { return IsWindowVisible(tip) != FALSE; }));
    wchar_t shown[40]{};
    GetWindowTextW(tip, shown, 40);
    EXPECT_STREQ(shown, L"Sekunden");
    test.press(box);
    EXPECT_FALSE(IsWindowVisible(tip));
    test.release(box);
    SetCursorPos(before.x, before.y);
    test.loop.settle();
}

// Each placement costs as much as a window.
TEST(Control, IsMadeAtItsPlaceAndNotPlacedAgain) {
    TestForm test;
    std::vector<UINT> moves;
    const MessageWatch watch(WH_CALLWNDPROC, [&](HWND, UINT message) {
        if (message == WM_WINDOWPOSCHANGING || message == WM_MOVE) {
            moves.push_back(message);
        }
    });
    CreateArgs args = test.args(1, {150, 300, 1500, 600});
    args.visible = false;
    Label label(args);
    EXPECT_THAT(moves, ElementsAre(UINT{WM_MOVE})) << "the one of being made";
    RECT place{};
    GetWindowRect(label.hwnd(), &place);
    MapWindowPoints(nullptr, test.form.hwnd(), reinterpret_cast<POINT*>(&place), 2);
    const int dpi = test.form.dpi();
    EXPECT_EQ(place.left, toPixels(150, dpi));
    EXPECT_EQ(place.top, toPixels(300, dpi));
    EXPECT_EQ(place.right, toPixels(1650, dpi));
    EXPECT_EQ(place.bottom, toPixels(900, dpi));
    EXPECT_EQ(SendMessageW(label.hwnd(), WM_GETFONT, 0, 0),
              reinterpret_cast<LRESULT>(font(label.fontSpec(), dpi)));
}

}  // namespace
}  // namespace ui
