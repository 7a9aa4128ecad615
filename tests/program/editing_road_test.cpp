// The whole road of the real program: into the overview, order, entry, lock, deletion, saving, and back.
#include <gmock/gmock.h>

#include <map>
#include <numeric>

#include "program/support/files.h"
#include "program/support/input.h"
#include "program/support/overview_test_base.h"
#include "program/support/wait.h"
#include "ui/control_ids.h"

namespace program {
namespace {

namespace id = ui::id;

constexpr int kItems = 30;
constexpr const wchar_t* kMenu = L"#32768";
constexpr const wchar_t* kQuestion = L"#32770";
constexpr const wchar_t* kInputBox = L"PanorellInputBox";
/// A save shows each file for a moment, five seconds in all.
constexpr std::chrono::milliseconds kSavePatience{40000};

class EditingRoadTest : public OverviewTest {
  protected:
    testing::AssertionResult comes(const wchar_t* className) const {
        return panorell_.window(className) != nullptr
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << "a window does not come";
    }
    testing::AssertionResult goes(const wchar_t* className) const {
        return waitFor([&] { return panorell_.windowNow(className) == nullptr; }, kPatience, "a window goes");
    }
    /// Opens the menu of an item by the right button and chooses by a letter.
    testing::AssertionResult choose(int index, WORD letter) const {
        if (auto clicked = clickAt(middle(index), MouseButton::Right); !clicked) {
            return clicked;
        }
        if (auto there = comes(kMenu); !there) {
            return there;
        }
        if (auto pressed = pressKey(form(), letter); !pressed) {
            return pressed;
        }
        return goes(kMenu);
    }
    static bool hidden(const std::wstring& path) {
        const DWORD attributes = GetFileAttributesW(path.c_str());
        return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    }
};

TEST_F(EditingRoadTest, FromTheGridToTheRestartedProgram) {
    PictureFolder folder(kItems);
    folder.writeScript("bild05 Haus *P=3\r\n");
    std::vector<std::string> contents;
    for (int i = 1; i <= kItems; ++i) {
        contents.push_back(readBytes(folder.file(pictureName(i))));
    }
    open(folder);
    std::vector<int> order(kItems);
    std::iota(order.begin(), order.end(), 1);
    ASSERT_TRUE(becomes(folder, order));

    // The last picture comes to the front.
    ASSERT_TRUE(beginDrag(middle(kItems - 1), middle(0)));
    ASSERT_TRUE(release(middle(0)));
    ASSERT_TRUE(movePointer(beside()));
    order.insert(order.begin(), order.back());
    order.pop_back();
    ASSERT_TRUE(becomes(folder, order));

    // Its neighbour gets a title.
    ASSERT_TRUE(choose(1, 'T'));
    ASSERT_TRUE(comes(L"Form3"));
    const HWND editor = panorell_.windowNow(L"Form3");
    ASSERT_TRUE(waitFor([&] { return focusIn(editor) == control(editor, id::kUTT).handle(); }, kPatience,
                        "the title has the keyboard"));
    ASSERT_TRUE(typeText(editor, L"Anfang"));
    ASSERT_TRUE(pressKey(editor, VK_RETURN));
    ASSERT_TRUE(goes(L"Form3"));

    // The next one is locked, the one behind it deleted.
    ASSERT_TRUE(choose(2, 'S'));
    ASSERT_TRUE(
        waitFor([&] { return hidden(folder.file(pictureName(2))); }, kPatience, "the lock on the disk"));
    ASSERT_TRUE(choose(3, 'L'));
    EXPECT_TRUE(exists(folder.file(pictureName(3)))) << "nothing is deleted before it is saved";

    // Leaving asks, saves and starts the program anew.
    PostMessageW(form(), WM_CLOSE, 0, 0);
    ASSERT_TRUE(comes(kQuestion));
    ASSERT_TRUE(pressKey(panorell_.windowNow(kQuestion), VK_RETURN));
    ASSERT_TRUE(comes(kInputBox));
    const HWND question = panorell_.windowNow(kInputBox);
    ASSERT_TRUE(waitFor([&] { return GetForegroundWindow() == question; }, kPatience, "the question's turn"));
    ASSERT_TRUE(typeText(question, L"Urlaub"));
    ASSERT_TRUE(pressKey(question, VK_RETURN));
    ASSERT_TRUE(panorell_.followSuccessor(kSavePatience));

    order.erase(order.begin() + 3);
    std::vector<std::wstring> listed;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const std::wstring number = std::to_wstring(i + 1);
        const std::wstring name = L"Urlaub" + std::wstring(3 - number.size(), L'0') + number + L".jpg";
        const std::string& before = contents[static_cast<std::size_t>(order[i] - 1)];
        ASSERT_TRUE(exists(folder.file(name))) << i;
        EXPECT_EQ(readBytes(folder.file(name)), before) << "picture " << order[i];
        EXPECT_EQ(hidden(folder.file(name)), order[i] == 2);
        if (order[i] != 2) {
            listed.push_back(name);
        }
    }
    for (int i = 1; i <= kItems; ++i) {
        EXPECT_FALSE(exists(folder.file(pictureName(i)))) << i;
    }
    EXPECT_EQ(readBytes(folder.file(L"Panorell.txt")), "Urlaub002 Anfang\r\nUrlaub005 Haus *P=3\r\n");

    // The show's list is in the new order, without the locked one.
    ASSERT_NE(panorell_.window(L"Form1"), nullptr);
    EXPECT_TRUE(
        waitFor([&] { return panorell_.at(id::kFile1).items() == listed; }, kPatience, "the new order"));
}

}  // namespace
}  // namespace program
