#include "picture/colour_conversion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>

#include "support/profile_bytes.h"
#include "support/sample_profiles.h"

namespace picture {
namespace {

using support::ProfileBytes;

ColourProfile read(const ProfileBytes& bytes) {
    return readColourProfile(bytes.bytes()).value();
}

ColourConversion between(const ColourProfile& picture, const ColourProfile& device) {
    return ColourConversion::between(picture, device).value();
}

std::uint32_t converted(const ColourConversion& conversion, std::uint32_t pixel) {
    conversion.convert(&pixel, 1);
    return pixel;
}

std::uint32_t grey(std::uint32_t level) {
    return level * 0x010101;
}

int furthest(std::uint32_t a, std::uint32_t b) {
    int most = 0;
    for (const int shift : {0, 8, 16}) {
        most = std::max(most,
                        std::abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF)));
    }
    return most;
}

std::vector<ColourProfile> kinds() {
    const Matrix3 matrix = support::matrixOf(support::kStandardPrimaries);
    return {
        standardProfile(),
        read(support::displayP3()),
        read(support::adobeRgb()),
        read(support::matrixProfile(matrix, support::powerCurve(1))),
        read(support::matrixProfile(matrix, support::tableCurve({0, 4000, 20000, 65535}))),
        // A monitor whose darkest is not dark and whose channels differ.
        read(support::displayP3()
                 .set("rTRC", support::tableCurve({300, 14000, 65535}))
                 .set("gTRC", support::formulaCurve(4, {2.2, 0.99, 0.01, 0.02, 0.02, 0.002, 0.002}))
                 .set("bTRC", support::powerCurve(2.4))),
        // Curves that stay flat at their ends.
        read(support::matrixProfile(matrix, support::tableCurve({0, 0, 20000, 65535, 65535}))),
    };
}

TEST(ColourConversion, BlackAndWhiteStay) {
    for (const ColourProfile& picture : kinds()) {
        for (const ColourProfile& device : kinds()) {
            const ColourConversion conversion = between(picture, device);
            EXPECT_EQ(converted(conversion, 0), 0U);
            EXPECT_EQ(converted(conversion, 0xFFFFFF), 0xFFFFFFU);
        }
    }
}

TEST(ColourConversion, GreyStaysGrey) {
    const ColourConversion conversion = between(read(support::adobeRgb()), standardProfile());
    int last = 0;
    for (std::uint32_t level = 0; level < 256; ++level) {
        const std::uint32_t pixel = converted(conversion, grey(level));
        EXPECT_EQ(pixel, grey(pixel & 0xFF)) << level;
        EXPECT_GE(static_cast<int>(pixel & 0xFF), last) << level;
        last = static_cast<int>(pixel & 0xFF);
    }
}

TEST(ColourConversion, BetweenTheSameNothingChanges) {
    for (const ColourProfile& profile :
         {standardProfile(), read(support::displayP3()), read(support::adobeRgb())}) {
        const ColourConversion conversion = between(profile, profile);
        for (std::uint32_t red = 0; red < 256; red += 15) {
            for (std::uint32_t green = 0; green < 256; green += 15) {
                for (std::uint32_t blue = 0; blue < 256; blue += 15) {
                    const std::uint32_t pixel = red << 16 | green << 8 | blue;
                    ASSERT_LE(furthest(converted(conversion, pixel), pixel), 1) << std::hex << pixel;
                }
            }
        }
    }
}

TEST(ColourConversion, KnownColours) {
    const ColourConversion p3 = between(read(support::displayP3()), standardProfile());
    const ColourConversion adobe = between(read(support::adobeRgb()), standardProfile());
    const ColourConversion toP3 = between(standardProfile(), read(support::displayP3()));
    // Full red, green and blue of sRGB are (234, 51, 35), (117, 251, 76) and (0, 0, 245) in Display P3.
    EXPECT_LE(furthest(converted(toP3, 0xFF0000), 0xEA3323), 1);
    EXPECT_LE(furthest(converted(toP3, 0x00FF00), 0x75FB4C), 1);
    EXPECT_LE(furthest(converted(toP3, 0x0000FF), 0x0000F5), 1);
    EXPECT_LE(furthest(converted(p3, 0xEA3323), 0xFF0000), 12) << "a level of dark colours is little light";
    // What the device does not have ends at its border.
    EXPECT_EQ(converted(p3, 0xFF0000), 0xFF0000U);
    EXPECT_EQ(converted(p3, 0x00FF00), 0x00FF00U);
    EXPECT_EQ(converted(adobe, 0x00FF00), 0x00FF00U);
    EXPECT_EQ(converted(adobe, 0xFF0000), 0xFF0000U);
}

TEST(ColourConversion, TheUnusedByteBecomesZero) {
    const ColourConversion conversion = between(read(support::displayP3()), standardProfile());
    EXPECT_EQ(converted(conversion, 0xFF000000), 0U);
    EXPECT_EQ(converted(conversion, 0xABFFFFFF), 0xFFFFFFU);
}

TEST(ColourConversion, WhiteOfAnotherTintIsConvertedToo) {
    Matrix3 tinted = support::matrixOf(support::kStandardPrimaries);
    for (auto& row : tinted) {
        row[2] *= 0.8;
    }
    const ColourConversion conversion =
        between(read(support::matrixProfile(tinted, support::standardCurve())), standardProfile());
    EXPECT_LE(furthest(converted(conversion, 0xFFFFFF), 0xFFFFE7), 1);
}

TEST(ColourConversion, MoreLightThanTheDeviceHasIsItsLastLevel) {
    const Matrix3 matrix = support::matrixOf(support::kStandardPrimaries);
    const ColourConversion conversion = between(
        standardProfile(), read(support::matrixProfile(matrix, support::tableCurve({0, 30000, 60000}))));
    for (std::uint32_t level = 0xF6; level <= 0xFF; ++level) {
        EXPECT_EQ(converted(conversion, grey(level)), 0xFFFFFFU) << level;
    }
    EXPECT_LT(converted(conversion, grey(0xF2)), 0xFFFFFFU);
}

TEST(ColourConversion, RefusesDevicesWithoutColours) {
    ColourProfile grey = standardProfile();
    for (auto& row : grey.toXyz) {
        row = {row[0], row[0], row[0]};
    }
    EXPECT_FALSE(ColourConversion::between(standardProfile(), grey));
    ColourProfile narrow = standardProfile();
    for (auto& row : narrow.toXyz) {
        row[0] = row[1] + (row[0] - row[1]) * 0.002;
    }
    EXPECT_FALSE(ColourConversion::between(standardProfile(), narrow));
}

TEST(ColourConversion, VectorAndPlainFormGiveTheSame) {
    std::mt19937 random(5);
    for (const ColourProfile& picture : kinds()) {
        for (const ColourProfile& device : kinds()) {
            const ColourConversion conversion = between(picture, device);
            for (const std::size_t count : {0U, 1U, 2U, 7U, 1000U}) {
                std::vector<std::uint32_t> vector(count);
                for (std::uint32_t& pixel : vector) {
                    pixel = static_cast<std::uint32_t>(random());
                }
                std::vector<std::uint32_t> plain = vector;
                conversion.convert(vector.data(), count);
                conversion.convertPlainly(plain.data(), count);
                ASSERT_EQ(vector, plain);
            }
        }
    }
}

TEST(ColourConversion, ConvertsThePlaceOnly) {
    const ColourConversion conversion = between(read(support::adobeRgb()), standardProfile());
    constexpr std::uint32_t kColour = 0x806040;
    const std::uint32_t other = converted(conversion, kColour);
    ASSERT_NE(other, kColour);
    struct Case {
        Placement place;
        Placement visible;
    };
    const Case cases[] = {
        {{2, 1, 3, 2}, {2, 1, 3, 2}},
        {{0, 0, 8, 6}, {0, 0, 8, 6}},
        {{-3, -2, 5, 4}, {0, 0, 2, 2}},
        {{5, 4, 100, 100}, {5, 4, 3, 2}},
        {{-50, 2, 100, 1}, {0, 2, 8, 1}},
        {{8, 0, 4, 4}, {}},
        {{-4, 0, 4, 4}, {}},
        {{0, 6, 4, 4}, {}},
        {{3, 3, 0, 0}, {}},
    };
    for (const Case& c : cases) {
        Pixels pixels(8, 6);
        std::fill(pixels.data.begin(), pixels.data.end(), kColour);
        convertColours(conversion, pixels, c.place);
        EXPECT_EQ(visiblePart(c.place, pixels), c.visible);
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < 8; ++x) {
                const bool inside = x >= c.visible.left && x < c.visible.left + c.visible.width &&
                                    y >= c.visible.top && y < c.visible.top + c.visible.height;
                ASSERT_EQ(pixels.row(y)[x], inside ? other : kColour) << x << ' ' << y;
            }
        }
    }
}

}  // namespace
}  // namespace picture
