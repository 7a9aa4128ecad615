#include "overview/form2_layout.h"

#include <gtest/gtest.h>

namespace overview {
namespace {

bool within(const ui::TwipsRect& inner, const ui::TwipsRect& outer) {
    return inner.left >= outer.left && inner.top >= outer.top &&
           inner.left + inner.width <= outer.left + outer.width + 0.5F &&
           inner.top + inner.height <= outer.top + outer.height + 0.5F;
}

TEST(Form2Layout, EverythingLiesInTheWindow) {
    for (const auto& [width, height] :
         {std::pair{9600.0F, 6600.0F}, {27000.0F, 15000.0F}, {12000.0F, 15000.0F}}) {
        for (const bool music : {false, true}) {
            const Form2Layout layout = layOutForm2(width, height, music);
            const ui::TwipsRect window{0, 0, width, height};
            for (const ui::TwipsRect& place : {layout.grid, layout.progress}) {
                EXPECT_TRUE(within(place, window)) << width << " " << music;
            }
            EXPECT_GT(layout.grid.height, height * 0.9F);
        }
    }
}

TEST(Form2Layout, TheMusicListTakesItsPlaceFromTheGrid) {
    const Form2Layout without = layOutForm2(20000, 12000, false);
    const Form2Layout with = layOutForm2(20000, 12000, true);
    EXPECT_GT(without.grid.width, 19000);
    EXPECT_LE(with.grid.left + with.grid.width, with.card.left);
    for (const ui::TwipsRect& place : {with.caption, with.List1, with.OK, with.CAN}) {
        EXPECT_TRUE(within(place, with.card));
    }
}

TEST(Form2Layout, TheButtonsStandCentredHalfTheirHeightBelowTheList) {
    const Form2Layout layout = layOutForm2(20000, 12000, true);
    const float middle = layout.List1.left + layout.List1.width / 2;
    EXPECT_FLOAT_EQ(middle - (layout.OK.left + layout.OK.width), layout.CAN.left - middle);
    EXPECT_FLOAT_EQ(layout.OK.top, layout.List1.top + layout.List1.height + layout.OK.height / 2);
    EXPECT_FLOAT_EQ(layout.CAN.top, layout.OK.top);
}

}  // namespace
}  // namespace overview
