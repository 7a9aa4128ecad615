#include "overview/preview_rule.h"

#include <gtest/gtest.h>

namespace overview {
namespace {

const PreviewTexts kFilm{L"Am Strand", L"Freitag, 1. Mai 2026, 14:05", L"Urlaub007", true};

TEST(PreviewInfoTest, GoesRoundThroughAllThatAFilmHas) {
    EXPECT_EQ(nextPreviewInfo(PreviewInfo::Title, kFilm), PreviewInfo::Date);
    EXPECT_EQ(nextPreviewInfo(PreviewInfo::Date, kFilm), PreviewInfo::Name);
    EXPECT_EQ(nextPreviewInfo(PreviewInfo::Name, kFilm), PreviewInfo::Position);
    EXPECT_EQ(nextPreviewInfo(PreviewInfo::Position, kFilm), PreviewInfo::Title);
}

TEST(PreviewInfoTest, PassesOverWhatThereIsNothingFor) {
    PreviewTexts texts = kFilm;
    texts.title.clear();
    EXPECT_EQ(nextPreviewInfo(PreviewInfo::Position, texts), PreviewInfo::Date);
    texts.film = false;
    EXPECT_EQ(nextPreviewInfo(PreviewInfo::Name, texts), PreviewInfo::Date);
    texts.date.clear();
    EXPECT_EQ(nextPreviewInfo(PreviewInfo::Name, texts), PreviewInfo::Name);
}

TEST(PreviewInfoTest, AnItemBeginsWithTheFirstThatItHas) {
    EXPECT_EQ(firstPreviewInfo(kFilm), PreviewInfo::Position);
    PreviewTexts picture = kFilm;
    picture.film = false;
    EXPECT_EQ(firstPreviewInfo(picture), PreviewInfo::Date);
    picture.date.clear();
    EXPECT_EQ(firstPreviewInfo(picture), PreviewInfo::Name);
    picture.name.clear();
    EXPECT_EQ(firstPreviewInfo(picture), PreviewInfo::Title);
    picture.title.clear();
    EXPECT_EQ(previewText(firstPreviewInfo(picture), picture), L"") << "there is nothing";
}

TEST(PreviewInfoTest, ShowsTheTextOfItsMode) {
    EXPECT_EQ(previewText(PreviewInfo::Title, kFilm), kFilm.title);
    EXPECT_EQ(previewText(PreviewInfo::Date, kFilm), kFilm.date);
    EXPECT_EQ(previewText(PreviewInfo::Name, kFilm), kFilm.name);
    EXPECT_EQ(previewText(PreviewInfo::Position, kFilm), L"");
}

TEST(PreviewTextTest, ATitleEndsBeforeTheFirstMarker) {
    EXPECT_EQ(entryTitle(L"Am Strand *P=8 *D"), L"Am Strand");
    EXPECT_EQ(entryTitle(L"Am Strand"), L"Am Strand");
    EXPECT_EQ(entryTitle(L" *P=8"), L"");
    EXPECT_EQ(entryTitle(L""), L"");
    EXPECT_EQ(entryTitle(L"*D"), L"");
}

TEST(PreviewTextTest, ANameEndsBeforeItsFirstDot) {
    EXPECT_EQ(nameWithoutExtension(L"Bild.jpg"), L"Bild");
    EXPECT_EQ(nameWithoutExtension(L"a.b.jpg"), L"a");
    EXPECT_EQ(nameWithoutExtension(L"Bild"), L"Bild");
}

TEST(PreviewTextTest, SecondsKeepTheirFraction) {
    EXPECT_EQ(positionText(12500, L"60"), L"12.5/60 s");
    EXPECT_EQ(positionText(0, L"60"), L"0/60 s");
    EXPECT_EQ(positionText(12547, L"60.04"), L"12.547/60.04 s");
    EXPECT_EQ(secondsText(60040), L"60.04");
    EXPECT_EQ(secondsText(0), L"0");
}

constexpr std::array<ui::Twips, kPreviewButtons> kWidths{500, 500, 500, 500, 0, 1500};

TEST(PreviewLayoutTest, TheBoxIsAsLargeAsTheRowBelowItLetsItBe) {
    const PreviewLayout layout = layoutPreview({100, 200, 8000, 6400}, 400, 1000, kWidths);
    EXPECT_EQ(layout.box, (ui::TwipsRect{100, 200, 8000, 6000}));
    EXPECT_EQ(layout.sound, (ui::TwipsRect{190, 6200, 910, 400})) << "a little into the row";
    EXPECT_EQ(layout.buttons[0], (ui::TwipsRect{1100, 6200, 500, 400}));
    EXPECT_EQ(layout.buttons[1], (ui::TwipsRect{1600, 6200, 500, 400}));
    EXPECT_EQ(layout.buttons[3], (ui::TwipsRect{2600, 6200, 500, 400}));
    EXPECT_EQ(layout.buttons[4], (ui::TwipsRect{3100, 6200, 0, 400}));
    EXPECT_EQ(layout.buttons[5], (ui::TwipsRect{3100, 6200, 5000, 400}));
}

TEST(PreviewLayoutTest, ItIsCentredInWhatIsLeft) {
    const PreviewLayout wide = layoutPreview({0, 0, 10000, 3400}, 400, 0, kWidths);
    EXPECT_EQ(wide.box, (ui::TwipsRect{3000, 0, 4000, 3000}));
    EXPECT_EQ(wide.buttons[0].left, 3000);
    const PreviewLayout high = layoutPreview({0, 0, 4000, 10400}, 400, 0, kWidths);
    EXPECT_EQ(high.box, (ui::TwipsRect{0, 3500, 4000, 3000}));
}

TEST(PreviewLayoutTest, BoxAndRowStayInsideTheArea) {
    for (const ui::TwipsRect area : {ui::TwipsRect{0, 0, 9000, 6000}, ui::TwipsRect{30, 40, 6000, 9000},
                                     ui::TwipsRect{0, 0, 4100, 3300}}) {
        const PreviewLayout layout = layoutPreview(area, 390, 900, kWidths);
        EXPECT_GE(layout.box.left, area.left);
        EXPECT_GE(layout.box.top, area.top);
        EXPECT_LE(layout.box.left + layout.box.width, area.left + area.width + 0.5F);
        EXPECT_LE(layout.buttons[0].top + 390, area.top + area.height + 0.5F);
        EXPECT_NEAR(layout.box.width * 3, layout.box.height * 4, 2);
        for (const ui::TwipsRect& button : layout.buttons) {
            EXPECT_LE(button.left + button.width, layout.box.left + layout.box.width + 0.5F);
        }
    }
}

TEST(PreviewLayoutTest, WithoutRoomTheBoxIsEmpty) {
    EXPECT_EQ(layoutPreview({0, 0, 8000, 300}, 400, 0, kWidths).box.width, 0);
    EXPECT_EQ(layoutPreview({0, 0, 0, 0}, 400, 0, kWidths).box.height, 0);
}

}  // namespace
}  // namespace overview
