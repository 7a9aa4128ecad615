// The settings of all items are written over their thumbnails.
#include "edit/settings_display.h"

#include <gmock/gmock.h>

#include "support/app_stage.h"
#include "support/edit_stage.h"

namespace edit {
namespace {

using support::alike;
using support::EditStage;

constexpr std::uint32_t kBlue = 0x404080;
constexpr std::uint32_t kText = 0xFFFFFF;
constexpr std::uint32_t kShadow = 0x323232;
constexpr std::uint32_t kMagenta = 0xFF00FF;

/// How many pixels of an item's box have a colour.
int pixels(EditStage& stage, int index, std::uint32_t colour) {
    const picture::Pixels box = stage.seen(index);
    return static_cast<int>(std::count(box.data.begin(), box.data.end(), colour));
}

TEST(SettingsDisplay, TheTextLiesOverEveryThumbnailWithItsShadow) {
    EditStage stage;
    stage.picturesOf({kBlue, 0xFFFFFF, 0x000000});
    stage.film(L"f.mpg");
    ASSERT_TRUE(stage.open());
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(pixels(stage, i, kShadow), 0) << i;
    }
    stage.choose(0, L"Bild-Einstellungen anzeigen");
    for (int i = 0; i < 4; ++i) {
        EXPECT_GT(pixels(stage, i, kShadow), 50) << i;
        EXPECT_GT(pixels(stage, i, kText), 20) << i;
        EXPECT_EQ(pixels(stage, i, kMagenta), 0) << i;
    }
    EXPECT_TRUE(stage.offers(0, L" Bild-Einstellungen anzeigen")) << "it is off while they are shown";
}

TEST(SettingsDisplay, OnlyTheDateFlagIsMagenta) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    stage.pictures.file(L"Panorell.txt", "a Am Meer *P=5\r\nb Am Meer *P=5 *D\r\n");
    ASSERT_TRUE(stage.open());
    stage.editing->settings().setShown(true);
    EXPECT_EQ(pixels(stage, 0, kMagenta), 0);
    EXPECT_GT(pixels(stage, 1, kMagenta), 10);
}

TEST(SettingsDisplay, ItIsNeitherPartOfTheImageNorOfWhatIsStored) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    stage.pictures.folder(L"Mini");
    stage.pictures.hide(L"b.jpg");
    ASSERT_TRUE(stage.open());
    stage.editing->settings().setShown(true);
    EXPECT_EQ(stage.editing->lock().unlock(1), L"");
    EXPECT_GT(pixels(stage, 1, kText), 20) << "a box that is drawn anew has its text again";
    for (const picture::Pixels& image : {stage.overview->grid().image(1), *stage.kept(L"b.bmp")}) {
        for (const std::uint32_t pixel : image.data) {
            ASSERT_TRUE(alike(pixel & 0xFFFFFFU, kBlue));
        }
    }
}

TEST(SettingsDisplay, ABoxThatIsPaintedAgainTellsWhatIsTrueNow) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    stage.editing->settings().setShown(true);
    ASSERT_EQ(pixels(stage, 0, kMagenta), 0);
    stage.record(0).entry = L"Am Meer *D";
    stage.overview->grid().redraw(0);
    EXPECT_GT(pixels(stage, 0, kMagenta), 10);
    stage.drag(0, 1);
    EXPECT_EQ(pixels(stage, 0, kMagenta), 0);
    EXPECT_GT(pixels(stage, 1, kMagenta), 10) << "it moves with its item";
    stage.editing->deletion().mark(1);
    EXPECT_EQ(pixels(stage, 1, kMagenta), 0) << "the next save drops the entry";
}

TEST(SettingsDisplay, WhatChangedIsWrittenAtOnce) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    stage.editing->settings().refresh();
    EXPECT_EQ(pixels(stage, 0, kShadow), 0) << "it is not shown";
    stage.editing->settings().setShown(true);
    ASSERT_EQ(pixels(stage, 1, kMagenta), 0);
    stage.record(1).entry = L"*D";
    stage.editing->settings().refresh();
    EXPECT_GT(pixels(stage, 1, kMagenta), 10);
}

TEST(SettingsDisplay, ItEndsWhenAllThumbnailsWereMadeAnew) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    stage.editing->settings().setShown(true);
    stage.choose(0, L"Minibilder speichern");
    EXPECT_FALSE(stage.editing->settings().shown());
    EXPECT_EQ(pixels(stage, 0, kShadow), 0);
    EXPECT_TRUE(stage.offers(0, L"Bild-Einstellungen anzeigen"));
}

TEST(SettingsDisplay, ItEndsWhenTheFolderIsLoadedAnew) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    stage.editing->settings().setShown(true);
    ASSERT_GT(pixels(stage, 2, kText), 20);
    stage.pictures.remove(L"c.jpg");
    stage.overview->reload();
    EXPECT_FALSE(stage.editing->settings().shown());
    ASSERT_TRUE(stage.loaded());
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(pixels(stage, i, kShadow), 0) << i;
    }
    EXPECT_TRUE(stage.offers(0, L"Bild-Einstellungen anzeigen"));
}

}  // namespace
}  // namespace edit
