// Items are marked for deletion, and the mark is taken back; nothing changes on the disk.
#include "edit/picture_deletion.h"

#include <gmock/gmock.h>

#include "support/app_stage.h"
#include "support/edit_stage.h"

namespace edit {
namespace {

using overview::kDeletionColour;
using overview::kEmptyColour;
using overview::kLockColour;
using support::alike;
using support::EditStage;
using testing::ElementsAre;

constexpr std::uint32_t kBlue = 0x404080;

TEST(PictureDeletion, TheThumbnailIsWipedAndMarked) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    stage.pictures.file(L"Panorell.txt", "b Am Meer *P=5\r\n");
    ASSERT_TRUE(stage.open());
    const double before = stage.loop.now();
    stage.choose(1, L"Bild löschen");
    EXPECT_LE(stage.loop.now() - before, 500) << "half a second at most";
    EXPECT_TRUE(stage.record(1).deleted);
    EXPECT_EQ(stage.record(1).entry, L"Am Meer *P=5") << "it is there when the mark is taken back";
    EXPECT_TRUE(stage.overview->records().changed);
    EXPECT_TRUE(stage.diagonalIs(1, kDeletionColour));
    const picture::Pixels box = stage.seen(1);
    EXPECT_EQ(box.row(box.height / 4)[box.width / 4], kEmptyColour) << "the image is gone";
    EXPECT_TRUE(stage.exists(L"b.jpg"));
    EXPECT_FALSE(stage.mentions(0, kDeletionColour));
}

TEST(PictureDeletion, TheWipeGoesDownRowByRow) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    stage.loop.settle();
    // Read from the screen, without letting the box paint itself.
    std::vector<int> empties;
    stage.loop.onSleep = [&] {
        const HWND window = stage.box(1);
        RECT client{};
        GetClientRect(window, &client);
        picture::Surface surface(client.right, client.bottom);
        const platform::WindowDc dc(window);
        BitBlt(surface.dc(), 0, 0, client.right, client.bottom, dc.get(), 0, 0, SRCCOPY);
        const picture::Pixels pixels = surface.pixels();
        int emptyRows = 0;
        for (int y = 0; y < pixels.height; ++y) {
            emptyRows += (pixels.row(y)[pixels.width / 2] & 0xFFFFFFU) == kEmptyColour ? 1 : 0;
        }
        empties.push_back(emptyRows);
    };
    stage.editing->deletion().mark(1);
    stage.loop.onSleep = nullptr;
    ASSERT_GT(empties.size(), 10U);
    for (std::size_t i = 1; i < empties.size(); ++i) {
        EXPECT_EQ(empties[i], empties[i - 1] + 1);
    }
    EXPECT_EQ(empties.back(), stage.overview->view().layout().imageHeight());
}

TEST(PictureDeletion, TheOnlyItemAndTheLastOneOfTheShowStay) {
    {
        EditStage stage;
        stage.picturesOf({kBlue});
        ASSERT_TRUE(stage.open());
        EXPECT_TRUE(stage.offers(0, L" Bild löschen"));
        stage.editing->deletion().mark(0);
        EXPECT_FALSE(stage.record(0).deleted);
        EXPECT_FALSE(stage.overview->records().changed);
    }
    EditStage stage;
    stage.picturesOf({kBlue, kBlue, kBlue});
    stage.pictures.hide(L"a.jpg");
    ASSERT_TRUE(stage.open());
    stage.editing->deletion().mark(1);
    stage.editing->deletion().mark(2);
    EXPECT_TRUE(stage.record(1).deleted);
    EXPECT_FALSE(stage.record(2).deleted) << "a show needs an item";
    stage.editing->deletion().mark(0);
    EXPECT_TRUE(stage.record(0).deleted) << "a locked one can go";
}

TEST(PictureDeletion, TheMarkIsTakenBack) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue, kBlue});
    stage.pictures.hide(L"b.jpg");
    stage.pictures.file(L"Panorell.txt", "b Am Meer\r\n");
    ASSERT_TRUE(stage.open());
    stage.choose(1, L"Bild löschen");
    ASSERT_TRUE(stage.diagonalIs(1, kDeletionColour));
    EXPECT_FALSE(stage.mentions(1, kLockColour));
    stage.editing->setSave([] { return true; });
    EXPECT_THAT(stage.choose(1, L"Bild freigeben"),
                ElementsAre(L"Bild freigeben", L"Änderungen speichern", L"Beenden (zurück)"));
    EXPECT_FALSE(stage.record(1).deleted);
    EXPECT_EQ(stage.record(1).entry, L"Am Meer");
    EXPECT_TRUE(stage.record(1).locked);
    EXPECT_TRUE(stage.attributes(L"b.jpg") & FILE_ATTRIBUTE_HIDDEN) << "its lock is another matter";
    EXPECT_TRUE(stage.diagonalIs(1, kLockColour));
    const picture::Pixels box = stage.seen(1);
    EXPECT_TRUE(alike(box.row(box.height / 4)[box.width / 4], kBlue)) << "the image is back";
}

TEST(PictureDeletion, ThumbnailsAreNotStoredWhileSomethingIsMarked) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    EXPECT_TRUE(stage.offers(0, L"Minibilder speichern"));
    stage.editing->deletion().mark(1);
    EXPECT_TRUE(stage.offers(0, L" Minibilder speichern"));
    stage.editing->deletion().takeBack(1);
    EXPECT_TRUE(stage.offers(0, L"Minibilder speichern"));
}

TEST(PictureDeletion, AnItemThatIsLockedAndTheOnlyOneStaysToo) {
    EditStage stage;
    stage.picturesOf({kBlue});
    stage.pictures.hide(L"a.jpg");
    ASSERT_TRUE(stage.open());
    stage.editing->deletion().mark(0);
    EXPECT_FALSE(stage.record(0).deleted);
}

// The mark belongs to the item, wherever it is dragged.
TEST(PictureDeletion, TheMarkMovesWithItsItem) {
    EditStage stage;
    stage.picturesOf({kBlue, kBlue, kBlue});
    ASSERT_TRUE(stage.open());
    stage.editing->deletion().mark(2);
    stage.drag(2, 0);
    EXPECT_TRUE(stage.record(0).deleted);
    EXPECT_TRUE(stage.diagonalIs(0, kDeletionColour));
    EXPECT_FALSE(stage.mentions(2, kDeletionColour));
}

}  // namespace
}  // namespace edit
