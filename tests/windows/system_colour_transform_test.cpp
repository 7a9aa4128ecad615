#include "picture/system_colour_transform.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "picture/colour_conversion.h"
#include "picture/standard_profile.h"
#include "support/colours.h"
#include "support/sample_profiles.h"

namespace picture {
namespace {

using support::Bytes;
using support::colourDistance;
using support::colourGrid;

Placement all(const Pixels& pixels) {
    return {0, 0, pixels.width, pixels.height};
}

/// What the system makes of the grid of colours.
Pixels bySystem(const Bytes& from, const Bytes& to) {
    Pixels pixels = colourGrid();
    const auto transform = SystemColourTransform::create(from, to);
    EXPECT_TRUE(transform);
    EXPECT_TRUE(transform && transform->convert(pixels, all(pixels)));
    return pixels;
}

Pixels byRule(const Bytes& from, const Bytes& to) {
    Pixels pixels = colourGrid();
    const auto conversion =
        ColourConversion::between(readColourProfile(from).value(), readColourProfile(to).value());
    convertColours(conversion.value(), pixels, all(pixels));
    return pixels;
}

TEST(SystemColourTransform, AgreesWithTheRule) {
    const Bytes standard = standardProfileBytes();
    const Bytes p3 = support::displayP3().bytes();
    const Bytes adobe = support::adobeRgb().bytes();
    const std::pair<Bytes, Bytes> cases[] = {{p3, standard}, {adobe, standard}, {standard, p3}, {adobe, p3}};
    for (const auto& [from, to] : cases) {
        EXPECT_LE(colourDistance(bySystem(from, to), byRule(from, to)), 2);
        EXPECT_GT(colourDistance(bySystem(from, to), colourGrid()), 10) << "nothing was converted";
    }
}

TEST(SystemColourTransform, TakesTablesOfColours) {
    const Bytes table = support::adobeRgbAsTables().bytes();
    ASSERT_TRUE(describesRgb(table));
    ASSERT_FALSE(readColourProfile(table));
    const Bytes standard = standardProfileBytes();
    EXPECT_LE(colourDistance(bySystem(table, standard), byRule(support::adobeRgb().bytes(), standard)), 3);
}

TEST(SystemColourTransform, ConvertsThePlaceOnly) {
    const auto transform =
        SystemColourTransform::create(support::adobeRgb().bytes(), support::standardRgb().bytes());
    ASSERT_TRUE(transform);
    constexpr std::uint32_t kColour = 0xAB806040;
    Pixels one(1, 1);
    one.data = {kColour};
    ASSERT_TRUE(transform->convert(one, all(one)));
    ASSERT_GT(colourDistance(one.data[0], kColour), 3);
    EXPECT_EQ(one.data[0] >> 24, 0U);
    // More rows than are handed over at once, and not a multiple of them.
    for (const Placement& place : {Placement{3, 5, 7, 71}, Placement{-4, -9, 40, 200}, Placement{0, 0, 0, 0},
                                   Placement{40, 0, 10, 10}}) {
        Pixels pixels(20, 90);
        std::fill(pixels.data.begin(), pixels.data.end(), kColour);
        ASSERT_TRUE(transform->convert(pixels, place));
        const Placement part = visiblePart(place, pixels);
        for (int y = 0; y < pixels.height; ++y) {
            for (int x = 0; x < pixels.width; ++x) {
                const bool inside = x >= part.left && x < part.left + part.width && y >= part.top &&
                                    y < part.top + part.height;
                ASSERT_EQ(pixels.row(y)[x], inside ? one.data[0] : kColour) << x << ' ' << y;
            }
        }
    }
}

TEST(SystemColourTransform, RefusesWhatIsNoProfile) {
    const Bytes standard = standardProfileBytes();
    EXPECT_TRUE(SystemColourTransform::create(standard, standard));
    EXPECT_FALSE(SystemColourTransform::create({}, standard));
    EXPECT_FALSE(SystemColourTransform::create(standard, {}));
    EXPECT_FALSE(SystemColourTransform::create(Bytes(1000, 7), standard));
    EXPECT_FALSE(SystemColourTransform::create(standard, Bytes(1000, 7)));
    EXPECT_FALSE(SystemColourTransform::create(standard, standard, nullptr)) << "no colour management";
}

int translations = 0;

WINBOOL WINAPI failSecond(HTRANSFORM transform, PVOID from, BMFORMAT fromFormat, DWORD width, DWORD height,
                          DWORD fromStride, PVOID to, BMFORMAT toFormat, DWORD toStride,
                          PBMCALLBACKFN callback, LPARAM data) {
    return ++translations < 2 &&
           ColourSystem::load()->translate(transform, from, fromFormat, width, height, fromStride, to,
                                           toFormat, toStride, callback, data);
}

TEST(SystemColourTransform, FailureLeavesThePictureAsItIs) {
    ASSERT_TRUE(ColourSystem::load());
    ColourSystem failing = *ColourSystem::load();
    failing.translate = failSecond;
    translations = 0;
    const auto transform =
        SystemColourTransform::create(support::adobeRgb().bytes(), support::standardRgb().bytes(), &failing);
    ASSERT_TRUE(transform);
    Pixels pixels = colourGrid();
    EXPECT_FALSE(transform->convert(pixels, all(pixels)));
    EXPECT_EQ(translations, 2);
    EXPECT_EQ(pixels.data, colourGrid().data);
}

WINBOOL WINAPI fillUnusedByte(HTRANSFORM, PVOID, BMFORMAT, DWORD width, DWORD height, DWORD, PVOID to,
                              BMFORMAT, DWORD, PBMCALLBACKFN, LPARAM) {
    std::fill_n(static_cast<std::uint32_t*>(to), width * height, 0x55123456U);
    return TRUE;
}

TEST(SystemColourTransform, TheUnusedByteBecomesZero) {
    ASSERT_TRUE(ColourSystem::load());
    ColourSystem filling = *ColourSystem::load();
    filling.translate = fillUnusedByte;
    const Bytes standard = standardProfileBytes();
    const auto transform = SystemColourTransform::create(standard, standard, &filling);
    ASSERT_TRUE(transform);
    Pixels pixels = colourGrid();
    ASSERT_TRUE(transform->convert(pixels, all(pixels)));
    EXPECT_EQ(pixels.data, std::vector<std::uint32_t>(pixels.data.size(), 0x123456));
}

}  // namespace
}  // namespace picture
