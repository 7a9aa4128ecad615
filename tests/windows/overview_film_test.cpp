// Films in the grid: their stills, what of them is kept, and what a film that goes wrong does to the others.
#include <gmock/gmock.h>

#include <stdexcept>

#include "support/app_stage.h"
#include "support/overview_stage.h"

namespace overview {
namespace {

using support::alike;
using support::OverviewStage;
using testing::IsSupersetOf;

TEST(OverviewFilm, OfASizeThatNoFilmHasIsTakenFromItsBoxAndHoldsNothingUp) {
    for (const char* size :
         {"0 0 2000000000 2000000000", "0 0 4097 240", "0 0 99999999999 240", "0 0 -5 -5"}) {
        OverviewStage stage;
        stage.film(L"a.mpg");
        stage.picture(L"b.jpg", 0x804040);
        stage.film(L"c.mpg");
        stage.control.replyTo("where VIDEO source", size);
        ASSERT_TRUE(stage.open()) << size;
        EXPECT_TRUE(alike(stage.colour(1), 0x804040)) << size;
        for (const int index : {0, 2}) {
            EXPECT_TRUE(stage.overview->grid().filled(index)) << size;
            EXPECT_TRUE(stage.mentions(index, OverviewStage::kFilmColour)) << size;
        }
    }
}

TEST(OverviewFilm, ThatFailsInAnyWayShowsItsNameAndIsClosed) {
    OverviewStage stage;
    stage.film(L"0.mpg");
    stage.picturesOf({0x404080, 0x804040});
    stage.film(L"z.mpg");
    stage.control.onSend = [](const std::string& command) {
        if (command.starts_with("update")) {
            throw std::runtime_error("no memory");
        }
    };
    ASSERT_TRUE(stage.open());
    EXPECT_TRUE(stage.mentions(0, 0xB8B8B8)) << "its name";
    EXPECT_TRUE(alike(stage.colour(1), 0x404080));
    EXPECT_TRUE(alike(stage.colour(2), 0x804040));
    EXPECT_TRUE(stage.mentions(3, 0xB8B8B8));
    EXPECT_EQ(stage.control.commands().back(), "close VIDEO");
}

/// Enlarges the cells by some steps.
void enlarge(OverviewStage& stage) {
    for (int i = 0; i < 6; ++i) {
        stage.controlKey(VK_ADD);
    }
}

TEST(OverviewFilm, IsKeptAsLargeAsWhenAllItemsAreShown) {
    OverviewStage stage;
    for (int i = 0; i < 60; ++i) {
        stage.pictures.file(L"p" + std::to_wstring(100 + i) + L".jpg", "");
    }
    stage.film(L"a.mpg");
    stage.film(L"z.mpg");
    stage.keep(L"p100.bmp", 0x10F010);
    stage.begin();
    stage.overview->grid().pauseFilms(true);
    ASSERT_TRUE(stage.loaded());
    enlarge(stage);
    ASSERT_TRUE(stage.loaded());
    stage.overview->grid().pauseFilms(false);
    ASSERT_TRUE(stage.loaded());
    const GridLayout all = stage.overview->view().fittingLayout();
    const GridLayout now = stage.overview->view().layout();
    ASSERT_GT(now.imageWidth(), 2 * all.imageWidth());
    EXPECT_EQ(stage.overview->grid().image(0).width, now.imageWidth()) << "in view";
    EXPECT_EQ(stage.overview->grid().image(61).width, all.imageWidth()) << "out of view";
    for (const wchar_t* name : {L"a.bmp", L"z.bmp"}) {
        const auto kept = stage.kept(name);
        ASSERT_TRUE(kept) << name;
        EXPECT_EQ(kept->width, all.imageWidth());
        EXPECT_EQ(kept->height, all.imageHeight());
        EXPECT_THAT(kept->data, IsSupersetOf({0xFF0000U, OverviewStage::kFilmColour})) << "with its mark";
    }
}

TEST(OverviewFilm, WhatIsMadeAnewIsForTheStoreAsLargeAsWhenAllItemsAreShown) {
    OverviewStage stage;
    stage.film(L"a.mpg");
    stage.picture(L"b.jpg", 0x804040);
    for (int i = 0; i < 60; ++i) {
        stage.pictures.file(L"p" + std::to_wstring(100 + i) + L".jpg", "");
    }
    stage.picture(L"z.jpg", 0x804040);
    ASSERT_TRUE(stage.open());
    enlarge(stage);
    ASSERT_TRUE(stage.loaded());
    const GridLayout all = stage.overview->view().fittingLayout();
    const GridLayout now = stage.overview->view().layout();
    for (const int index : {0, 1, 62}) {
        const auto kept = stage.overview->grid().redraw(index);
        ASSERT_TRUE(kept) << index;
        EXPECT_EQ(kept->width, all.imageWidth()) << index;
        EXPECT_EQ(kept->height, all.imageHeight()) << index;
    }
    EXPECT_EQ(stage.overview->grid().image(0).width, now.imageWidth());
    EXPECT_EQ(stage.overview->grid().image(1).width, now.imageWidth());
    EXPECT_EQ(stage.overview->grid().image(62).width, all.imageWidth()) << "nobody sees it";
    EXPECT_TRUE(alike(stage.colour(1), 0x804040));
}

}  // namespace
}  // namespace overview
