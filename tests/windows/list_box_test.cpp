#include "ui/list_box.h"

#include <gmock/gmock.h>

#include "platform/handles.h"
#include "support/test_form.h"
#include "ui/painting.h"
#include "ui/theme.h"

namespace ui {
namespace {

using support::TestForm;
using testing::ElementsAre;

TEST(ListBox, ItemsWithNumbers) {
    TestForm test;
    ListBox list(test.args(1));
    list.add(L"eins", 1);
    list.add(L"drei", 3);
    list.insert(1, L"zwei", 2);
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(list.item(1), L"zwei");
    EXPECT_EQ(list.itemData(1), 2);
    list.setItemData(1, -7);
    EXPECT_EQ(list.itemData(1), -7);
    list.remove(0);
    EXPECT_EQ(list.item(0), L"zwei");
    EXPECT_THROW(list.item(2), std::out_of_range);
    EXPECT_THROW(list.remove(-1), std::out_of_range);
    EXPECT_THROW(list.insert(4, L""), std::out_of_range);
    list.clear();
    EXPECT_EQ(list.count(), 0);
}

TEST(ListBox, ASelectionFromCodeIsToldLikeAUsers) {
    TestForm test;
    ListBox list(test.args(1, {150, 150, 3000, 3000}));
    for (int i = 0; i < 5; ++i) {
        list.add(L"Titel " + std::to_wstring(i));
    }
    std::vector<int> selected;
    list.onClick = [&] { selected.push_back(list.selectedIndex()); };
    EXPECT_EQ(list.selectedIndex(), -1);
    list.setSelectedIndex(2);
    list.setSelectedIndex(2);
    test.click(list, 5, 4);
    test.click(list, 5, 4);
    list.setFocus();
    test.key(VK_DOWN);
    list.setSelectedIndex(-1);
    EXPECT_THROW(list.setSelectedIndex(5), std::out_of_range);
    EXPECT_THAT(selected, ElementsAre(2, 0, 0, 1, -1));
}

TEST(ListBox, MultipleSelectionAndTheMouse) {
    TestForm test;
    ListBox list(test.args(1, {150, 150, 3000, 3000}), ListBox::Selection::Multiple);
    for (int i = 0; i < 4; ++i) {
        list.add(L"Titel");
        list.setSelected(i, true);
    }
    list.setSelected(1, false);
    EXPECT_TRUE(list.selected(0));
    EXPECT_FALSE(list.selected(1));
    std::vector<int> events;
    list.onPressed = [&](const MouseEvent&) { events.push_back(list.selectedIndex()); };
    list.onReleased = [&](const MouseEvent&) { events.push_back(100 + list.selectedIndex()); };
    test.click(list, 5, 4);
    EXPECT_THAT(events, ElementsAre(0, 100));
}

TEST(ListBox, FindsTheItemAtAPlace) {
    TestForm test;
    ListBox list(test.args(1, {150, 150, 3000, 3000}));
    EXPECT_EQ(list.itemAt(5, 5), -1);
    for (int i = 0; i < 30; ++i) {
        list.add(std::to_wstring(i));
    }
    RECT row{};
    SendMessageW(list.hwnd(), LB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    const int height = row.bottom - row.top;
    EXPECT_EQ(list.itemAt(5, 0), 0);
    EXPECT_EQ(list.itemAt(5, height - 1), 0);
    EXPECT_EQ(list.itemAt(5, height), 1);
    list.setTopIndex(7);
    EXPECT_EQ(list.itemAt(5, height), 8);
    const SIZE size = list.clientSize();
    EXPECT_EQ(list.itemAt(-1, 5), -1);
    EXPECT_EQ(list.itemAt(5, -1), -1);
    EXPECT_EQ(list.itemAt(size.cx, 5), -1);
    EXPECT_EQ(list.itemAt(5, size.cy), -1);
    while (list.count() > 3) {
        list.remove(3);
    }
    EXPECT_EQ(list.itemAt(5, 3 * height - 1), 2);
    EXPECT_EQ(list.itemAt(5, 3 * height), -1) << "below the last one";
}

/// A window whose focus is not shown until it asks for that, on systems too that always show it.
class HiddenFocus {
  public:
    explicit HiddenFocus(HWND window) : window_(window) {
        hidden() = true;
        system() = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(answer)));
    }
    ~HiddenFocus() { SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(system())); }
    HiddenFocus(const HiddenFocus&) = delete;
    HiddenFocus& operator=(const HiddenFocus&) = delete;

  private:
    static bool& hidden() {
        static bool state = false;
        return state;
    }
    static WNDPROC& system() {
        static WNDPROC procedure = nullptr;
        return procedure;
    }
    static LRESULT CALLBACK answer(HWND window, UINT message, WPARAM w, LPARAM l) {
        if (message == WM_QUERYUISTATE) {
            return hidden() ? UISF_HIDEFOCUS : 0;
        }
        if (message == WM_CHANGEUISTATE && w == MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS)) {
            hidden() = false;
        }
        return CallWindowProcW(system(), window, message, w, l);
    }

    HWND window_;
};

// Also where the keyboard was never used, and so no focus is shown.
TEST(ListBox, OfMultipleSelectionFramesTheRowUnderThePointerThatDrags) {
    TestForm test;
    ListBox list(test.args(1, {150, 150, 3000, 3000}), ListBox::Selection::Multiple);
    for (int i = 0; i < 4; ++i) {
        list.add(L"Titel");
    }
    const HiddenFocus hidden(list.hwnd());
    const auto placeOf = [&](int row) {
        RECT place{};
        SendMessageW(list.hwnd(), LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
        return place;
    };
    const auto framed = [&] {
        std::vector<int> rows;
        UpdateWindow(list.hwnd());
        const platform::WindowDc dc(list.hwnd());
        for (int row = 0; row < list.count(); ++row) {
            const RECT place = placeOf(row);
            if (GetPixel(dc.get(), place.left, (place.top + place.bottom) / 2) == colorref(theme::kAccent)) {
                rows.push_back(row);
            }
        }
        return rows;
    };
    const auto middle = [&](int row) { return static_cast<int>(placeOf(row).top + placeOf(row).bottom) / 2; };
    list.setFocus();
    EXPECT_THAT(framed(), ElementsAre());
    test.press(list, 20, middle(1));
    EXPECT_THAT(framed(), ElementsAre(1));
    SendMessageW(list.hwnd(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(20, middle(3)));
    EXPECT_EQ(framed().size(), 1U) << "where the system's list takes the focus along, there";
    test.release(list, 20, middle(3));
    EXPECT_THAT(framed(), ElementsAre());
    test.key(VK_HOME);
    EXPECT_THAT(framed(), ElementsAre(0)) << "the keyboard is being used";
}

TEST(ListBox, HighlightsAreSetInSilenceAndInPlace) {
    TestForm test;
    ListBox list(test.args(1, {150, 150, 3000, 1500}), ListBox::Selection::Multiple);
    std::vector<bool> wanted;
    for (int i = 0; i < 40; ++i) {
        list.add(std::to_wstring(i));
        wanted.push_back(i % 3 == 0);
    }
    list.setSelectedIndex(20);
    list.setTopIndex(18);
    int clicks = 0;
    list.onClick = [&] { ++clicks; };
    list.setHighlights(wanted);
    for (int i = 0; i < 40; ++i) {
        EXPECT_EQ(list.selected(i), i % 3 == 0) << i;
    }
    EXPECT_EQ(list.selectedIndex(), 20);
    EXPECT_EQ(list.topIndex(), 18);
    list.setHighlights({true});
    EXPECT_TRUE(list.selected(0));
    EXPECT_FALSE(list.selected(3)) << "what is not named is not selected";
    EXPECT_EQ(clicks, 0);
}

TEST(ListBox, TheSpaceKeyAndASecondPress) {
    TestForm test;
    ListBox list(test.args(1, {150, 150, 3000, 3000}), ListBox::Selection::Multiple);
    list.add(L"eins");
    list.add(L" zwei");
    list.setFocus();
    list.setSelectedIndex(0);
    test.key(VK_SPACE);
    EXPECT_TRUE(list.selected(0)) << "by itself it selects";
    list.setSelectedIndex(0);
    std::vector<std::string> events;
    list.onSpace = [&] { events.emplace_back("space"); };
    list.onPressed = [&](const MouseEvent&) { events.emplace_back("pressed"); };
    list.onReleased = [&](const MouseEvent&) { events.emplace_back("released"); };
    list.onDoubleClicked = [&](const MouseEvent& at) { events.push_back("twice " + std::to_string(at.y)); };
    test.key(VK_SPACE);
    EXPECT_TRUE(list.selected(0));
    EXPECT_EQ(list.selectedIndex(), 0) << "and it looks for no item that begins with a blank";
    test.click(list, 5, 4);
    SendMessageW(list.hwnd(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 4));
    test.release(list, 5, 4);
    EXPECT_THAT(events, ElementsAre("space", "pressed", "released", "twice 4", "released"));
}

}  // namespace
}  // namespace ui
