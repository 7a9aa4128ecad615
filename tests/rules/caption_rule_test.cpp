#include "show/caption_rule.h"

#include <gtest/gtest.h>

namespace show {
namespace {

TEST(CaptionRule, EndButtonStandsInTheCentre) {
    EXPECT_EQ(endButtonPlace(15360, 11520, 1200, 600), (CaptionPlace{7080, 5460}));
    EXPECT_EQ(endButtonPlace(101, 51, 10, 10), (CaptionPlace{45.5F, 20.5F}));
}

TEST(CaptionRule, TitleStandsTwoHeightsAboveTheEdge) {
    EXPECT_FLOAT_EQ(titleTop(11520, 720), 10080);
}

TEST(CaptionRule, TitleSlidesOut) {
    for (const float boxHeight : {0.0F, 1.0F, 720.0F, 6000.0F}) {
        const std::vector<float> tops = titleSlide(11520, boxHeight);
        ASSERT_FALSE(tops.empty());
        EXPECT_FLOAT_EQ(tops.back(), 11520);
        float before = titleTop(11520, boxHeight);
        for (const float top : tops) {
            EXPECT_GE(top, before);
            EXPECT_LE(top - before, boxHeight / 4);
            before = top;
        }
        const auto milliseconds = static_cast<int>(tops.size()) * kSlideStepMs;
        EXPECT_GE(milliseconds, 200);
        EXPECT_LE(milliseconds, 600);
    }
}

TEST(CaptionRule, DateStampHasItsShadow) {
    const auto prints = dateStamp(20000, 3000);
    const float x = 7000;
    std::size_t i = 0;
    for (const float column : {0.0F, 20.0F, 40.0F}) {
        for (const float row : {0.0F, 20.0F, 40.0F}) {
            EXPECT_EQ(prints[i], (DatePrint{{x + column, row}, false})) << i;
            ++i;
        }
    }
    EXPECT_EQ(prints[9], (DatePrint{{x + 20, 20}, true}));
}

TEST(CaptionRule, InformationLine) {
    EXPECT_EQ(informationText(L"Bild1", 0), L"Bild1 (A)");
    EXPECT_EQ(informationText(L"Bild1", 25), L"Bild1 (Z)");
    EXPECT_EQ(informationText(L"", 2), L" (C)");
    EXPECT_FLOAT_EQ(informationWidth(1000), 1400);
    EXPECT_FLOAT_EQ(informationLeft(20000, 1400), 18600);
}

}  // namespace
}  // namespace show
