// What happens when the main window becomes the active one again, before and during a show.
#include <gmock/gmock.h>

#include "support/app_stage.h"

namespace app {
namespace {

using support::AppStage;

class ActivationTest : public testing::Test {
  protected:
    ActivationTest() {
        for (const wchar_t* name : {L"b.jpg", L"d.jpg", L"f.jpg"}) {
            stage.picture(name);
        }
        stage.loadFolder();
    }
    std::wstring shownName() {
        const std::wstring& path = stage.showState().currentPicture;
        return path.substr(path.rfind(L'\\') + 1);
    }
    std::wstring nameAtIndex() {
        return stage.form().File1.entries().at(static_cast<std::size_t>(stage.showState().pictureIndex));
    }
    AppStage stage;
};

TEST_F(ActivationTest, CountsTheFilesAnew) {
    EXPECT_EQ(stage.form().File1.toolTip(), L" 3 Dateien (Vorschau: klicken)");
    stage.picture(L"a.jpg");
    EXPECT_EQ(stage.form().File1.toolTip(), L" 3 Dateien (Vorschau: klicken)");
    stage.activate();
    EXPECT_EQ(stage.form().File1.toolTip(), L" 4 Dateien (Vorschau: klicken)");
    EXPECT_EQ(stage.form().File1.entries().front(), L"a.jpg");
}

TEST_F(ActivationTest, KeepsTheSelectionByName) {
    stage.form().File1.setSelectedIndex(1);
    stage.previewed();
    ASSERT_EQ(stage.state().StartIndex, 1);
    stage.picture(L"a.jpg");
    stage.picture(L"c.jpg");
    stage.activate();
    EXPECT_EQ(stage.form().File1.selectedName(), L"d.jpg");
    EXPECT_EQ(stage.form().File1.selectedIndex(), 3);
    EXPECT_EQ(stage.state().StartIndex, 3) << "what a restart would preselect";
    stage.pictures.remove(L"d.jpg");
    stage.activate();
    EXPECT_EQ(stage.form().File1.selectedIndex(), -1);
}

TEST_F(ActivationTest, DoesNotPreviewAnew) {
    stage.form().File1.setSelectedIndex(1);
    stage.previewed();
    stage.control.clear();
    stage.picture(L"a.jpg");
    stage.activate();
    EXPECT_FALSE(stage.application->previewLoading());
    EXPECT_TRUE(stage.control.commands().empty());
}

TEST_F(ActivationTest, AShowKeepsItsPlaceByName) {
    stage.form().File1.setSelectedIndex(1);
    stage.previewed();
    stage.form().Start.click();
    ASSERT_EQ(shownName(), L"d.jpg");
    stage.picture(L"a.jpg");
    stage.picture(L"c.jpg");
    stage.activate();
    EXPECT_EQ(stage.showState().pictureIndex, 3);
    EXPECT_EQ(nameAtIndex(), L"d.jpg");
    stage.pictures.remove(L"a.jpg");
    stage.pictures.remove(L"b.jpg");
    stage.pictures.remove(L"c.jpg");
    stage.activate();
    EXPECT_EQ(stage.showState().pictureIndex, 0);
    stage.key(VK_RIGHT);
    stage.loop.advance(100);
    EXPECT_EQ(shownName(), L"f.jpg");
}

TEST_F(ActivationTest, TheNextStepTakesThePlaceOfADeletedPicture) {
    stage.form().File1.setSelectedIndex(1);
    stage.previewed();
    stage.form().Start.click();
    stage.pictures.remove(L"d.jpg");
    stage.activate();
    stage.key(VK_RIGHT);
    stage.loop.advance(100);
    EXPECT_EQ(shownName(), L"f.jpg");
}

TEST_F(ActivationTest, AShowWhoseLastPicturesAreGoneEnds) {
    stage.form().File1.setSelectedIndex(2);
    stage.previewed();
    stage.form().Start.click();
    stage.pictures.remove(L"d.jpg");
    stage.pictures.remove(L"f.jpg");
    stage.activate();
    stage.key(VK_RIGHT);
    stage.loop.advance(100);
    EXPECT_TRUE(stage.form().EOT.visible());
    EXPECT_EQ(stage.showState().pictureIndex, 1);
}

TEST_F(ActivationTest, AllPicturesGoneEndsTheShow) {
    stage.form().Run.click();
    for (const wchar_t* name : {L"b.jpg", L"d.jpg", L"f.jpg"}) {
        stage.pictures.remove(name);
        // A file that is just being decoded goes when it is closed.
        while (GetFileAttributesW((stage.pictures / name).c_str()) != INVALID_FILE_ATTRIBUTES) {
            Sleep(1);
        }
    }
    stage.activate();
    stage.loop.advance(6000);
    EXPECT_TRUE(stage.form().EOT.visible());
    EXPECT_EQ(stage.showState().pictureIndex, 0);
}

TEST_F(ActivationTest, TheEndStaysTheEnd) {
    stage.form().File1.setSelectedIndex(2);
    stage.previewed();
    stage.form().Run.click();
    stage.loop.advance(8000);
    ASSERT_TRUE(stage.form().EOT.visible());
    ASSERT_EQ(stage.showState().pictureIndex, 3);
    stage.picture(L"g.jpg");
    stage.activate();
    EXPECT_EQ(stage.showState().pictureIndex, 4);
    EXPECT_EQ(stage.system.pointer, 0) << "the end button can be seen to be clicked";
    stage.loop.advance(20000);
    EXPECT_EQ(shownName(), L"f.jpg");
}

TEST_F(ActivationTest, ThePointerNeverDrifts) {
    for (int i = 0; i < 100; ++i) {
        stage.activate(false);
        stage.activate(true);
    }
    EXPECT_EQ(stage.system.pointerCalls, 0);
    stage.form().Run.click();
    ASSERT_EQ(stage.showState().showMode, show::kAutomatically);
    EXPECT_EQ(stage.system.pointer, -1);
    for (int i = 0; i < 100; ++i) {
        stage.activate(false);
        stage.activate(true);
        ASSERT_GE(stage.system.pointer, -1);
        ASSERT_LE(stage.system.pointer, 0);
    }
    stage.application.reset();
    EXPECT_EQ(stage.system.pointer, 0);
}

TEST_F(ActivationTest, ShowsThePointerInAShowByHand) {
    stage.form().Start.click();
    ASSERT_EQ(stage.system.pointer, -1);
    stage.activate();
    EXPECT_EQ(stage.system.pointer, 0);
}

TEST(Activation, AFolderThatWasEmptyCanBeShownOnceItHoldsPictures) {
    AppStage stage;
    stage.loadFolder();
    EXPECT_FALSE(stage.form().Run.enabled());
    EXPECT_FALSE(stage.form().Start.enabled());
    stage.picture(L"a.jpg");
    stage.activate();
    EXPECT_TRUE(stage.form().Run.enabled());
    EXPECT_TRUE(stage.form().Start.enabled());
    stage.pictures.remove(L"a.jpg");
    stage.activate();
    EXPECT_FALSE(stage.form().Run.enabled());
}

}  // namespace
}  // namespace app
