// The overview is loaded: which items there are, what they show, and what lies in the store afterwards.
#include <gmock/gmock.h>

#include "overview/thumb_folder.h"
#include "support/app_stage.h"
#include "support/leak_listener.h"
#include "support/many_files.h"
#include "support/message_boxes.h"
#include "support/overview_stage.h"

namespace overview {
namespace {

using support::alike;
using support::OverviewStage;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(OverviewLoad, ItemsLieInRowsAndColumns) {
    for (const int count : {1, 4, 5, 10}) {
        OverviewStage stage;
        for (int i = 0; i < count; ++i) {
            stage.picture(L"b" + std::to_wstring(i + 100) + L".jpg",
                          0x102030U * static_cast<unsigned>(i % 7 + 1));
        }
        ASSERT_TRUE(stage.open());
        const GridLayout& layout = stage.overview->view().layout();
        ASSERT_EQ(layout.columns, columnsFor(count));
        ASSERT_EQ(stage.overview->view().boxCount(), count);
        RECT first{};
        GetWindowRect(stage.box(0), &first);
        for (int i = 0; i < count; ++i) {
            EXPECT_TRUE(alike(stage.colour(i), 0x102030U * static_cast<unsigned>(i % 7 + 1))) << i;
            RECT place{};
            GetWindowRect(stage.box(i), &place);
            EXPECT_EQ(place.left - first.left, i % layout.columns * layout.cellWidth);
            EXPECT_EQ(place.top - first.top, i / layout.columns * layout.cellHeight);
            EXPECT_TRUE(IsWindowVisible(stage.box(i)));
        }
    }
}

TEST(OverviewLoad, TheScreenShowsTheImagesByTheFitRule) {
    OverviewStage stage;
    stage.picture(L"a.jpg", 0xC08040, 160, 120);
    stage.picture(L"b.jpg", 0xC08040, 320, 120);
    stage.picture(L"c.jpg", 0xC08040, 90, 160);
    ASSERT_TRUE(stage.open());
    const auto at = [&](int index, float x, float y) {
        const picture::Pixels box = stage.seen(index);
        const ImagePlace place = imagePlace(box.width, box.height, stage.overview->view().layout().gap);
        return box.row(
            place.top +
            static_cast<int>(y *
                             static_cast<float>(
                                 place.height -
                                 1)))[place.left + static_cast<int>(x * static_cast<float>(place.width - 1))];
    };
    for (const int index : {0, 1, 2}) {
        EXPECT_TRUE(alike(at(index, 0.5F, 0.5F), 0xC08040)) << index;
    }
    EXPECT_TRUE(alike(at(0, 0, 0), 0xC08040)) << "a picture of the cell's shape fills it";
    EXPECT_EQ(at(1, 0.5F, 0.05F), 0U) << "a wide one leaves black above and below";
    EXPECT_TRUE(alike(at(1, 0, 0.5F), 0xC08040));
    EXPECT_EQ(at(2, 0.05F, 0.5F), 0U) << "a tall one leaves black at its sides";
    EXPECT_TRUE(alike(at(2, 0.5F, 1), 0xC08040));
}

TEST(OverviewLoad, LockedItemsAreShownWithTheirMarkOverTheImage) {
    OverviewStage stage;
    stage.picturesOf({0x404080, 0x404080});
    stage.pictures.hide(L"b.jpg");
    ASSERT_TRUE(stage.open());
    EXPECT_THAT(stage.names(), ElementsAre(L"a.jpg", L"b.jpg"));
    EXPECT_FALSE(stage.record(0).locked);
    EXPECT_TRUE(stage.record(1).locked);
    EXPECT_TRUE(stage.mentions(1, kLockColour));
    EXPECT_FALSE(stage.mentions(0, kLockColour));
    EXPECT_TRUE(alike(stage.colour(1), 0x404080)) << "the image itself has no mark";

    stage.record(1).locked = false;
    stage.overview->grid().lockChanged(1);
    EXPECT_FALSE(stage.mentions(1, kLockColour));
}

TEST(OverviewLoad, RecordsTellNameEntryTipAndStamp) {
    OverviewStage stage;
    stage.picture(L"Bild1.jpg");
    stage.picture(L"Bild10.jpg");
    stage.film(L"Film.mpg");
    stage.picture(L"x.y.jpg");
    stage.pictures.file(
        L"Panorell.txt",
        "Bild10 Zehn\r\nBild1 Eins *P=2 *E=C\r\nBild1 Neu\r\nx Punkt *D\r\nFilm *M=Am Meer\r\n");
    ASSERT_TRUE(stage.open());
    ASSERT_THAT(stage.names(), ElementsAre(L"Bild1.jpg", L"Bild10.jpg", L"Film.mpg", L"x.y.jpg"));
    EXPECT_EQ(stage.record(0).entry, L"Neu *P=2 *E=C");
    EXPECT_EQ(stage.record(1).entry, L"Zehn");
    EXPECT_EQ(stage.record(2).entry, L"*M=Am Meer");
    EXPECT_EQ(stage.record(3).entry, L"Punkt *D");
    EXPECT_TRUE(stage.record(0).toolTip.starts_with(L"Neu\rPause:2s    \rnächster Effekt:C\r"));
    EXPECT_TRUE(stage.record(1).toolTip.starts_with(L"Zehn\r"));
    EXPECT_TRUE(stage.record(2).toolTip.starts_with(L"Musik: Am Meer\r[Video]\r"));
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExW((stage.pictures / L"Film.mpg").c_str(), GetFileExInfoStandard, &data);
    EXPECT_EQ(stage.record(2).stamp.size, 4U);
    EXPECT_EQ(stage.record(2).stamp.written & 0xFFFFFFFFU, data.ftLastWriteTime.dwLowDateTime);
    EXPECT_TRUE(stage.record(0).toolTip.ends_with(L"\r"));
    EXPECT_TRUE(stage.overview->records().folderWritable);
    EXPECT_FALSE(stage.overview->records().changed);
}

// The title of a file that the grid leaves out is nobody else's.
TEST(OverviewLoad, KeysOfFilteredAndHiddenFilesCountToo) {
    OverviewStage stage;
    stage.picture(L"Urlaub.jpg");
    stage.film(L"Urlaub am See.mpg");
    stage.pictures.file(L"Panorell.txt", "Urlaub am See Boot\r\n");
    ASSERT_TRUE(stage.open(L"*.jpg"));
    ASSERT_THAT(stage.names(), ElementsAre(L"Urlaub.jpg"));
    EXPECT_EQ(stage.record(0).entry, L"");
}

TEST(OverviewLoad, TheProbeLeavesNothingAndTouchesNoFileOfTheUser) {
    const support::ScratchFolder folder;
    EXPECT_TRUE(canWriteTo(folder.path()));
    EXPECT_EQ(GetFileAttributesW((folder / L"Test.txt").c_str()), INVALID_FILE_ATTRIBUTES);
    folder.file(L"Test.txt", "mine");
    EXPECT_TRUE(canWriteTo(folder.path()));
    const auto bytes = support::readBytes(folder / L"Test.txt");
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), "mine");
    EXPECT_EQ(GetFileAttributesW((folder / L"Test-1.txt").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_FALSE(canWriteTo(folder / L"missing"));
}

TEST(OverviewLoad, WithoutAStoreNoneIsWritten) {
    OverviewStage stage;
    stage.picturesOf({0x404080, 0x804040});
    stage.film(L"f.mpg");
    ASSERT_TRUE(stage.open());
    EXPECT_FALSE(stage.overview->store().present());
    EXPECT_EQ(GetFileAttributesW((stage.pictures / L"Mini").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(OverviewLoad, KeptThumbnailsAreShownAndPicturesWithoutOneDecoded) {
    OverviewStage stage;
    stage.picturesOf({0x404080, 0x804040});
    stage.keep(L"a.bmp", 0x10F010);
    ASSERT_TRUE(stage.open());
    EXPECT_TRUE(stage.overview->store().present());
    EXPECT_EQ(stage.colour(0), 0x10F010U);
    EXPECT_TRUE(alike(stage.colour(1), 0x804040));
    EXPECT_EQ(stage.overview->grid().image(0).width, stage.overview->view().layout().imageWidth());
    EXPECT_FALSE(stage.kept(L"b.bmp")) << "pictures are not stored by loading them";
}

TEST(OverviewLoad, SharedAndDamagedBitmapsCountAsMissing) {
    OverviewStage stage;
    stage.picture(L"a.x.jpg", 0x404080);
    stage.picture(L"a.y.jpg", 0x804040);
    stage.picture(L"b.jpg", 0x408040);
    stage.picture(L"c.jpg", 0x404040);
    stage.film(L"c.mpg");
    stage.keep(L"a.bmp", 0x10F010);
    stage.keep(L"c.bmp", 0x10F010);
    stage.pictures.file(L"Mini\\b.bmp", "BM, but no bitmap");
    ASSERT_TRUE(stage.open());
    EXPECT_TRUE(alike(stage.colour(0), 0x404080));
    EXPECT_TRUE(alike(stage.colour(1), 0x804040));
    EXPECT_TRUE(alike(stage.colour(2), 0x408040));
    EXPECT_TRUE(alike(stage.colour(3), 0x404040));
    EXPECT_EQ(stage.kept(L"c.bmp")->row(0)[0], 0x10F010U) << "a film's still does not overwrite a shared one";
}

TEST(OverviewLoad, WhatCannotBeDecodedShowsItsNameOnBlackAndIsNotStored) {
    OverviewStage stage;
    stage.pictures.file(L"a.jpg", "no picture");
    stage.picture(L"b.jpg", 0x804040);
    stage.film(L"c.mpg");
    stage.paintsFrames = false;
    stage.keep(L"b.bmp", 0x10F010);
    ASSERT_TRUE(stage.open());
    for (const int index : {0, 2}) {
        EXPECT_EQ(stage.colour(index), 0U) << index;
        EXPECT_TRUE(stage.mentions(index, 0xB8B8B8)) << "the name of " << index;
        EXPECT_TRUE(stage.overview->grid().filled(index));
    }
    EXPECT_FALSE(stage.kept(L"a.bmp"));
    EXPECT_FALSE(stage.kept(L"c.bmp"));
    EXPECT_EQ(stage.colour(1), 0x10F010U) << "the rest goes on";
}

TEST(OverviewLoad, AFilmShowsItsFirstFrameWithTheRedMark) {
    OverviewStage stage;
    stage.film(L"f.MPG");
    ASSERT_TRUE(stage.open());
    EXPECT_EQ(stage.colour(0), OverviewStage::kFilmColour);
    EXPECT_TRUE(stage.mentions(0, 0xFF0000));
    const auto commands = stage.control.commands();
    ASSERT_EQ(commands.size(), 7U);
    EXPECT_EQ(commands[0], "stop VIDEO");
    EXPECT_EQ(commands[1], "close VIDEO");
    EXPECT_TRUE(commands[2].starts_with("open ")) << commands[2];
    EXPECT_TRUE(commands[2].ends_with(" style child")) << commands[2];
    EXPECT_NE(commands[2].find(" alias VIDEO parent "), std::string::npos);
    EXPECT_EQ(commands[3], "where VIDEO source");
    EXPECT_TRUE(commands[4].starts_with("update VIDEO hdc "));
    EXPECT_EQ(commands[5], "stop VIDEO");
    EXPECT_EQ(commands[6], "close VIDEO");
}

TEST(OverviewLoad, AFilmsStillIsKeptWhereThereIsAStore) {
    OverviewStage stage;
    stage.picture(L"a.jpg");
    stage.film(L"f.mpg");
    stage.keep(L"a.bmp", 0x10F010);
    stage.keep(L"f.bmp", 0x10F010);
    ASSERT_TRUE(stage.open());
    const auto kept = stage.kept(L"f.bmp");
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->width, stage.overview->view().layout().imageWidth());
    EXPECT_EQ(kept->data, stage.overview->grid().image(1).data) << "mark and all";
    EXPECT_EQ(GetFileAttributesW((stage.pictures / L"Mini\\f.bmp~").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(OverviewLoad, OneFilmATurnAndNoneWhileAnotherPlays) {
    OverviewStage stage;
    stage.film(L"a.mpg");
    stage.film(L"b.mpg");
    stage.film(L"c.mpg");
    stage.begin();
    stage.overview->grid().pauseFilms(true);
    stage.loop.advance(500);
    EXPECT_THAT(stage.control.commands(), IsEmpty());
    stage.overview->grid().pauseFilms(false);
    int most = 0;
    while (stage.overview->grid().loading()) {
        stage.control.clear();
        stage.loop.advance(10);
        const auto commands = stage.control.commands();
        most = std::max(most,
                        static_cast<int>(std::count(commands.begin(), commands.end(), "where VIDEO source")));
    }
    EXPECT_EQ(most, 1);
    for (const int index : {0, 1, 2}) {
        EXPECT_EQ(stage.colour(index), OverviewStage::kFilmColour);
    }
}

TEST(OverviewLoad, BoxesAreMadeInSlicesAndTipsComeBeforePixels) {
    OverviewStage stage;
    for (int i = 0; i < 250; ++i) {
        stage.pictures.file(L"p" + std::to_wstring(i) + L".jpg", "");
    }
    stage.begin();
    int before = 0;
    while (stage.overview->view().boxCount() < 250) {
        for (int i = 0; i < 250; ++i) {
            ASSERT_FALSE(stage.overview->grid().filled(i));
        }
        stage.loop.advance(1);
        EXPECT_LE(stage.overview->view().boxCount() - before, 100);
        before = stage.overview->view().boxCount();
    }
    for (int i = 0; i < 250; ++i) {
        EXPECT_FALSE(stage.record(i).toolTip.empty()) << i;
    }
    ASSERT_TRUE(stage.loaded());
}

TEST(OverviewLoad, AnItemCostsNoHandleButItsWindow) {
    OverviewStage stage;
    for (int i = 0; i < 300; ++i) {
        stage.pictures.file(L"p" + std::to_wstring(i) + L".jpg", "");
    }
    stage.picture(L"q.jpg");
    ASSERT_TRUE(stage.open());
    stage.seen(0);
    const auto many = support::liveHandles();
    stage.overview.reset();
    for (int i = 1; i < 300; ++i) {
        stage.pictures.remove(L"p" + std::to_wstring(i) + L".jpg");
    }
    ASSERT_TRUE(stage.open());
    stage.seen(0);
    EXPECT_EQ(support::liveHandles(), many);
}

TEST(OverviewLoad, OfMoreItemsThanAProcessMayHaveWindowsTheRestIsLeftOutAndToldOf) {
    const support::ManyFiles many;
    OverviewStage stage;
    const support::MessageBoxes boxes;
    stage.begin(L"*.jpg", many.path());
    EXPECT_EQ(stage.overview->records().thumbCount(), kMostThumbnails);
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(boxes.seen()[0].title, L"  Übersicht");
    EXPECT_EQ(boxes.seen()[0].text,
              L"Die Übersicht zeigt nur die ersten 8000 Bilder und Filme dieses Ordners; 2000 fehlen.");
    stage.overview->reload();
    EXPECT_EQ(boxes.seen().size(), 1U) << "it was said";
}

TEST(OverviewLoad, RedrawShowsWhatTheFileIsNow) {
    OverviewStage stage;
    stage.picturesOf({0x404080, 0x804040});
    stage.keep(L"a.bmp", 0x10F010);
    ASSERT_TRUE(stage.open());
    ASSERT_EQ(stage.colour(0), 0x10F010U);
    stage.picture(L"a.jpg", 0xA0A000);
    const auto pixels = stage.overview->grid().redraw(0);
    ASSERT_TRUE(pixels);
    EXPECT_TRUE(alike(stage.colour(0), 0xA0A000));
    EXPECT_EQ(pixels->width, stage.overview->view().layout().imageWidth());
    DeleteFileW((stage.pictures / L"b.jpg").c_str());
    EXPECT_FALSE(stage.overview->grid().redraw(1));
    EXPECT_EQ(stage.colour(1), 0U);
}

TEST(OverviewLoad, ProgressReachesTheEndAndGoes) {
    OverviewStage stage;
    stage.picturesOf({1, 2, 3});
    stage.begin();
    std::vector<int> seen;
    stage.overview->grid().onProgress = [&](int done, int all) {
        seen.push_back(done);
        EXPECT_EQ(all, 3);
        stage.overview->form().showProgress(done, all);
    };
    ASSERT_TRUE(stage.loaded());
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_EQ(seen.back(), 3);
    EXPECT_FALSE(stage.overview->form().Progress.visible());
}

}  // namespace
}  // namespace overview
