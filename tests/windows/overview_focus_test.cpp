// To which part of the overview the keyboard belongs: thumbnails, enlarged item or music list.
#include <gmock/gmock.h>

#include "support/overview_stage.h"

namespace overview {
namespace {

class OverviewFocusTest : public testing::Test {
  protected:
    void SetUp() override {
        stage.picturesOf({0xC02020, 0x20C020, 0x2020C0});
        stage.titles = {L"01 Meer.mp3", L"02 Sturm.mp3", L"03 Abend.mp3"};
        for (const std::wstring& name : stage.titles) {
            stage.pictures.file(name);
        }
        stage.music.musicFolder = stage.pictures.path() + L"\\";
        ASSERT_TRUE(stage.open());
    }
    Form2& form() { return stage.overview->form(); }
    EnlargedView& enlarged() { return stage.overview->enlarged(); }
    void showMusic() {
        stage.overview->music().show();
        stage.loop.settle();
        ASSERT_TRUE(form().List1.hasFocus());
    }
    /// A key to whatever has the keyboard.
    void type(int key) {
        PostMessageW(GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        stage.loop.settle();
    }

    support::OverviewStage stage;
};

TEST_F(OverviewFocusTest, TheThumbnailsGetItBackFromTheMusicList) {
    for (ui::PushButton* const button : {&form().CAN, &form().OK}) {
        showMusic();
        button->click();
        EXPECT_TRUE(form().Grid.hasFocus());
        stage.overview->selection().select(0);
        type(VK_RIGHT);
        EXPECT_EQ(stage.overview->records().pressedIndex, 1);
    }
}

TEST_F(OverviewFocusTest, AnEnlargedItemGetsItBackFromTheMusicList) {
    showMusic();
    enlarged().enlarge(0);
    form().CAN.setFocus();
    form().CAN.click();
    EXPECT_TRUE(form().Command[0].hasFocus());
    type(VK_RIGHT);
    EXPECT_EQ(enlarged().index(), 1);
}

TEST_F(OverviewFocusTest, TheMusicListKeepsItsArrowsBesideAnEnlargedItem) {
    showMusic();
    enlarged().enlarge(1);
    form().List1.setFocus();
    form().List1.setSelectedIndex(0);
    type(VK_DOWN);
    EXPECT_EQ(form().List1.selectedIndex(), 1);
    EXPECT_EQ(enlarged().index(), 1);
    type(VK_SPACE);
    EXPECT_EQ(form().List1.itemData(1), 0) << "locked";
    form().Command[0].setFocus();
    type(VK_RIGHT);
    EXPECT_EQ(enlarged().index(), 2) << "from its own buttons they lead on";
}

TEST_F(OverviewFocusTest, EscapeInTheMusicListClosesTheItemAndStaysThere) {
    showMusic();
    enlarged().enlarge(1);
    form().List1.setFocus();
    type(VK_ESCAPE);
    EXPECT_FALSE(enlarged().isOpen());
    EXPECT_TRUE(form().List1.hasFocus());
}

}  // namespace
}  // namespace overview
