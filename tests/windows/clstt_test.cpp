#include "ui/clstt.h"

#include <commctrl.h>
#include <gmock/gmock.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <vector>

#include "platform/records.h"
#include "support/import_hook.h"
#include "support/test_form.h"
#include "ui/button.h"

namespace ui {
namespace {

using support::ImportHook;
using testing::ElementsAre;

/// One message to a tooltip window, with what lay behind its last parameter.
struct Sent {
    HWND window = nullptr;
    UINT message = 0;
    WPARAM w = 0;
    LPARAM l = 0;
    TOOLINFOA tool{};
    std::string text{};
    RECT margin{};
    LONG value = 0;
};

/// What the program asks of the system for its tooltips; everything is carried out as well.
class TooltipLog {
  public:
    TooltipLog()
        : send_("SendMessageA", sendMessage),
          create_("CreateWindowExA", createWindow),
          init_("InitCommonControls", initCommonControls) {
        one = this;
    }
    ~TooltipLog() { one = nullptr; }
    TooltipLog(const TooltipLog&) = delete;
    TooltipLog& operator=(const TooltipLog&) = delete;

    std::vector<UINT> numbers() const {
        std::vector<UINT> all;
        for (const Sent& message : sent) {
            all.push_back(message.message);
        }
        return all;
    }

    std::vector<Sent> sent;
    std::vector<std::string> calls;
    CREATESTRUCTA created{};
    std::string createdClass;

  private:
    static LRESULT WINAPI sendMessage(HWND window, UINT message, WPARAM w, LPARAM l) {
        Sent note{.window = window, .message = message, .w = w, .l = l};
        if (message == TTM_ADDTOOLA || message == TTM_DELTOOLA || message == TTM_UPDATETIPTEXTA) {
            std::memcpy(&note.tool, reinterpret_cast<const void*>(l), platform::kToolRecordSize);
            note.text = note.tool.lpszText;
        } else if (message == TTM_SETMARGIN) {
            note.margin = *reinterpret_cast<const RECT*>(l);
        } else if (l != 0 && message != TTM_GETMARGIN && message != TTM_SETDELAYTIME) {
            note.value = *reinterpret_cast<const LONG*>(l);
        }
        one->sent.push_back(note);
        return one->send_.original<decltype(sendMessage)>()(window, message, w, l);
    }
    static HWND WINAPI createWindow(DWORD exStyle, LPCSTR name, LPCSTR title, DWORD style, int x, int y,
                                    int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                                    LPVOID data) {
        one->calls.emplace_back("CreateWindowExA");
        one->createdClass = name;
        one->created = {data,  instance, menu,   parent, height, width, y, x, static_cast<LONG>(style),
                        title, name,     exStyle};
        return one->create_.original<decltype(createWindow)>()(exStyle, name, title, style, x, y, width,
                                                               height, parent, menu, instance, data);
    }
    static void WINAPI initCommonControls() {
        one->calls.emplace_back("InitCommonControls");
        one->init_.original<decltype(initCommonControls)>()();
    }

    static inline TooltipLog* one = nullptr;
    ImportHook send_;
    ImportHook create_;
    ImportHook init_;
};

class ClsttTest : public testing::Test {
  protected:
    void create() {
        ASSERT_TRUE(tips.Create(test.form.hwnd()));
        log.sent.clear();
    }
    const Sent& last() const { return log.sent.back(); }
    /// Rests the pointer on the button until its tip is seen.
    bool tipComes() {
        int looks = 0;
        return test.waitFor([&] {
            // A pixel on now and then, as a hand does: a window manager may still move the form.
            if (looks++ % 100 == 0) {
                POINT place{20 + looks / 100 % 2, 20};
                ClientToScreen(button.hwnd(), &place);
                SetCursorPos(place.x, place.y);
            }
            return IsWindowVisible(tips.hWnd()) != FALSE;
        });
    }

    support::TestForm test;
    PushButton button{test.args(1)};
    PushButton other{test.args(2, {150, 1500, 3000, 600})};
    TooltipLog log;
    clstt tips;
};

/// An address whose low 32 bits are a positive number.
testing::Matcher<LPARAM> isLowAddress() {
    return testing::AllOf(testing::Gt(0x10000), testing::Lt(LPARAM{0x7FFFFFFF}));
}

TEST_F(ClsttTest, CreateMakesOneTooltipWindow) {
    EXPECT_EQ(tips.hWnd(), nullptr);
    EXPECT_TRUE(tips.Create(test.form.hwnd()));
    EXPECT_THAT(log.calls, ElementsAre("InitCommonControls", "CreateWindowExA"));
    EXPECT_EQ(log.createdClass, "tooltips_class32");
    EXPECT_EQ(log.created.dwExStyle, 0U);
    EXPECT_EQ(log.created.lpszName, nullptr);
    EXPECT_EQ(log.created.style, 1);
    EXPECT_EQ(log.created.x | log.created.y | log.created.cx | log.created.cy, 0);
    EXPECT_EQ(log.created.hwndParent, test.form.hwnd());
    EXPECT_EQ(log.created.hMenu, nullptr);
    EXPECT_EQ(log.created.hInstance, GetModuleHandleW(nullptr));
    EXPECT_TRUE(log.sent.empty()) << "making it sends nothing";

    wchar_t name[32]{};
    GetClassNameW(tips.hWnd(), name, 32);
    EXPECT_STREQ(name, L"tooltips_class32");
    EXPECT_EQ(GetWindow(tips.hWnd(), GW_OWNER), test.form.hwnd());
    EXPECT_EQ(tips.ToolTipHandle(), tips.hWnd());

    const HWND first = tips.hWnd();
    EXPECT_TRUE(tips.Create(button.hwnd()));
    EXPECT_EQ(tips.hWnd(), first);
    EXPECT_EQ(log.calls.size(), 2U);
}

TEST_F(ClsttTest, ATipNeverTakesTheKeyboard) {
    create();
    ASSERT_TRUE(test.waitFor([&] { return GetForegroundWindow() == test.form.hwnd(); }));
    tips.setDelayTime(TTDT_INITIAL, 1);
    tips.AddTool(button.hwnd(), L"Text");
    EXPECT_TRUE(tipComes());
    // A window manager takes its time.
    for (int i = 0; i < 50; ++i) {
        test.loop.doEvents();
        Sleep(10);
        ASSERT_EQ(GetForegroundWindow(), test.form.hwnd());
    }
    SetCursorPos(0, 0);
}

TEST_F(ClsttTest, TheWindowEndsWithTheInstance) {
    auto brief = std::make_unique<clstt>();
    ASSERT_TRUE(brief->Create(test.form.hwnd()));
    const HWND window = brief->hWnd();
    brief.reset();
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(ClsttTest, BeforeCreateNothingIsSent) {
    tips.AddTool(button.hwnd(), L"Text");
    tips.setToolText(button.hwnd(), L"Text");
    EXPECT_EQ(tips.ToolText(button.hwnd()), L"");
    tips.RemoveTool(button.hwnd());
    tips.setBackColor(0x123456);
    EXPECT_EQ(tips.BackColor(), 0U);
    tips.setForeColor(0x123456);
    EXPECT_EQ(tips.ForeColor(), 0U);
    tips.setDelayTime(TTDT_AUTOPOP, 10'000);
    EXPECT_EQ(tips.DelayTime(TTDT_AUTOPOP), 0);
    tips.setMargin(clstt::Left, 5);
    EXPECT_EQ(tips.Margin(clstt::Left), 0);
    tips.setMaxTipWidth(240);
    EXPECT_EQ(tips.MaxTipWidth(), 0);
    EXPECT_EQ(tips.ToolCount(), 0);
    EXPECT_EQ(tips.ToolTipHandle(), nullptr);
    EXPECT_TRUE(log.sent.empty());
}

TEST_F(ClsttTest, ToolsAreSentAsRecords) {
    create();
    tips.AddTool(button.hwnd(), L"Größe\rzweite Zeile");
    tips.setToolText(button.hwnd(), L"neu");
    tips.RemoveTool(button.hwnd());
    ASSERT_THAT(log.numbers(), ElementsAre(1028U, 1036U, 1029U));
    for (const Sent& message : log.sent) {
        EXPECT_EQ(message.window, tips.hWnd());
        EXPECT_EQ(message.w, 0U);
#ifdef _WIN64
        EXPECT_EQ(message.tool.cbSize, 64U);
#else
        EXPECT_EQ(message.tool.cbSize, 44U);
#endif
        EXPECT_EQ(message.tool.uFlags, 17U);
        EXPECT_EQ(message.tool.hwnd, test.form.hwnd());
        EXPECT_EQ(message.tool.uId, reinterpret_cast<UINT_PTR>(button.hwnd()));
    }
    EXPECT_EQ(log.sent[0].text,
              "Gr\xF6\xDF"
              "e\rzweite Zeile")
        << "in the code page, lines parted by CR";
    EXPECT_EQ(log.sent[1].text, "neu");
}

TEST_F(ClsttTest, TheTooltipKeepsWhatItWasTold) {
    create();
    tips.AddTool(button.hwnd(), L"Größe\rzweite Zeile");
    tips.AddTool(other.hwnd(), L"b");
    EXPECT_EQ(tips.ToolCount(), 2);
    EXPECT_EQ(tips.ToolText(button.hwnd()), L"Größe\rzweite Zeile");
    const auto asked = [&] {
        char text[80]{};
        TOOLINFOA tool{};
        tool.cbSize = static_cast<UINT>(platform::kToolRecordSize);
        tool.hwnd = test.form.hwnd();
        tool.uFlags = TTF_IDISHWND;
        tool.uId = reinterpret_cast<UINT_PTR>(button.hwnd());
        tool.lpszText = &text[0];
        SendMessageW(tips.hWnd(), TTM_GETTEXTA, 80, reinterpret_cast<LPARAM>(&tool));
        return std::string(&text[0]);
    };
    EXPECT_EQ(asked(),
              "Gr\xF6\xDF"
              "e\rzweite Zeile");
    tips.setToolText(button.hwnd(), L"neu");
    EXPECT_EQ(asked(), "neu");
    EXPECT_EQ(tips.ToolText(button.hwnd()), L"neu");
    tips.RemoveTool(button.hwnd());
    EXPECT_EQ(tips.ToolCount(), 1);
    EXPECT_EQ(tips.ToolText(button.hwnd()), L"");
}

TEST_F(ClsttTest, AnEmptyTextAddsNoTool) {
    create();
    tips.AddTool(button.hwnd(), L"");
    EXPECT_TRUE(log.sent.empty());
    EXPECT_EQ(tips.ToolCount(), 0);
    tips.setToolText(button.hwnd(), L"kommt nie an");
    EXPECT_EQ(tips.ToolText(button.hwnd()), L"") << "a control without a tool has no text";
}

TEST_F(ClsttTest, ATextBeyondTheCodePageIsSentAsFarAsItGoes) {
    create();
    tips.AddTool(button.hwnd(), L"日本.jpg");
    EXPECT_EQ(last().text, "??.jpg");
    EXPECT_EQ(tips.ToolText(button.hwnd()), L"日本.jpg");
}

TEST_F(ClsttTest, Colours) {
    create();
    tips.setBackColor(RGB(1, 2, 3));
    EXPECT_EQ(last().message, 1043U);
    EXPECT_EQ(last().w, static_cast<WPARAM>(RGB(1, 2, 3)));
    EXPECT_EQ(last().l, 0);
    EXPECT_EQ(tips.BackColor(), RGB(1, 2, 3));
    EXPECT_EQ(last().message, 1046U);
    EXPECT_EQ(last().w, 0U);
    EXPECT_THAT(last().l, isLowAddress());
    EXPECT_EQ(last().value, 0);

    tips.setForeColor(RGB(4, 5, 6));
    EXPECT_EQ(last().message, 1044U);
    EXPECT_EQ(last().w, static_cast<WPARAM>(RGB(4, 5, 6)));
    EXPECT_EQ(last().l, 0);
    EXPECT_EQ(SendMessageW(tips.hWnd(), TTM_GETTIPTEXTCOLOR, 0, 0), static_cast<LRESULT>(RGB(4, 5, 6)));
}

TEST_F(ClsttTest, ReadingTheTextColourSetsIt) {
    create();
    tips.setForeColor(RGB(4, 5, 6));
    log.sent.clear();
    tips.ForeColor();
    ASSERT_THAT(log.numbers(), ElementsAre(1044U));
    EXPECT_EQ(last().w, 0U);
    EXPECT_THAT(last().l, isLowAddress());
    EXPECT_EQ(SendMessageW(tips.hWnd(), TTM_GETTIPTEXTCOLOR, 0, 0), 0) << "black from now on";
}

TEST_F(ClsttTest, DelayTimes) {
    struct Case {
        int which;
        int sent;
    };
    create();
    for (const auto& [which, sent] : {Case{2, 2}, {5, 1}, {3, 3}, {0, 0}, {4, 0}, {-1, 3}}) {
        tips.setDelayTime(which, 10'000);
        EXPECT_EQ(last().message, 1027U);
        EXPECT_EQ(last().w, static_cast<WPARAM>(sent)) << which;
        EXPECT_EQ(last().l, 10'000);
    }
    tips.setDelayTime(TTDT_AUTOPOP, 9000);
    EXPECT_EQ(tips.DelayTime(TTDT_AUTOPOP), 9000);
    EXPECT_EQ(last().message, 1045U);
    EXPECT_EQ(last().w, 2U);
    EXPECT_EQ(last().l, 0);
}

TEST_F(ClsttTest, MarginsAreReplacedSideBySide) {
    create();
    const int sides[] = {clstt::Left, clstt::Top, clstt::Right, clstt::Bottom};
    for (const int side : sides) {
        log.sent.clear();
        tips.setMargin(side, 10 + side);
        EXPECT_THAT(log.numbers(), ElementsAre(1051U, 1050U)) << side;
    }
    EXPECT_EQ(last().margin.left, 10);
    EXPECT_EQ(last().margin.top, 11);
    EXPECT_EQ(last().margin.right, 12);
    EXPECT_EQ(last().margin.bottom, 13);
    log.sent.clear();
    for (const int side : sides) {
        EXPECT_EQ(tips.Margin(side), 10 + side);
        EXPECT_EQ(last().message, 1051U);
    }
    EXPECT_EQ(log.sent.size(), 4U);
    EXPECT_EQ(tips.Margin(4), 0);
    EXPECT_EQ(tips.Margin(-1), 0);
    tips.setMargin(4, 99);
    EXPECT_EQ(tips.Margin(clstt::Bottom), 13) << "a side that there is not changes none";
}

TEST_F(ClsttTest, TheWidthIsHandedOverAsAnAddress) {
    struct Case {
        int width;
        LONG sent;
    };
    create();
    for (const auto& [width, sent] : {Case{240, 240}, {1, 1}, {0, -1}, {-7, -1}}) {
        tips.setMaxTipWidth(width);
        EXPECT_EQ(last().message, 1048U);
        EXPECT_EQ(last().w, 0U);
        EXPECT_THAT(last().l, isLowAddress());
        EXPECT_EQ(last().value, sent) << width;
    }
    const LPARAM address = last().l;
    EXPECT_EQ(tips.MaxTipWidth(), static_cast<int>(address)) << "the tooltip takes the address for a width";
    EXPECT_EQ(last().message, 1049U);
    EXPECT_EQ(last().w, 0U);
    EXPECT_EQ(last().l, 0);
}

TEST_F(ClsttTest, ToolCountAsksTheTooltip) {
    create();
    EXPECT_EQ(tips.ToolCount(), 0);
    EXPECT_EQ(last().message, 1037U);
}

// The pointer really rests on the control: nobody tells the tooltip of the mouse.
TEST_F(ClsttTest, ShowsLinesThatBreakAtCrOnly) {
    create();
    ASSERT_TRUE(test.waitFor([&] { return GetForegroundWindow() == test.form.hwnd(); }));
    tips.setMaxTipWidth(240);
    tips.setDelayTime(TTDT_INITIAL, 1);
    const auto shownSize = [&](const std::wstring& text) {
        tips.RemoveTool(button.hwnd());
        tips.AddTool(button.hwnd(), text);
        EXPECT_TRUE(tipComes());
        RECT tip{};
        GetWindowRect(tips.hWnd(), &tip);
        return SIZE{tip.right - tip.left, tip.bottom - tip.top};
    };
    const std::wstring line = std::wstring(40, L'm') + L" " + std::wstring(40, L'm');
    const SIZE one = shownSize(line);
    const SIZE two = shownSize(line + L"\r" + line);
    EXPECT_GT(one.cx, 480);
    EXPECT_EQ(two.cx, one.cx);
    EXPECT_GT(two.cy, one.cy + one.cy / 3);
    SetCursorPos(0, 0);
}

TEST_F(ClsttTest, AControlMayEndBeforeItsToolAndItsTooltip) {
    create();
    auto brief = std::make_unique<PushButton>(test.args(3, {150, 3000, 3000, 600}));
    tips.AddTool(brief->hwnd(), L"kurz");
    int clicks = 0;
    brief->onClick = [&] { ++clicks; };
    test.click(*brief);
    EXPECT_EQ(clicks, 1) << "the tooltip takes no messages away";
    const HWND ended = brief->hwnd();
    brief.reset();
    EXPECT_FALSE(IsWindow(ended));
    tips.RemoveTool(ended);
    EXPECT_EQ(tips.ToolCount(), 0);
}

}  // namespace
}  // namespace ui
