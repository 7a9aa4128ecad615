#include "picture/colour_profile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "support/profile_bytes.h"
#include "support/sample_profiles.h"

namespace picture {
namespace {

using support::Bytes;
using support::formulaCurve;
using support::ProfileBytes;
using support::tableCurve;

TEST(ToneCurve, ReadsTables) {
    struct Case {
        std::vector<std::uint16_t> entries;
        double value;
        double light;
    };
    const Case cases[] = {
        {{}, 0.3, 0.3},
        {{}, 1.5, 1},
        {{256}, 0.3, 0.3},
        {{512}, 0.5, 0.25},
        {{563}, 0.5, std::pow(0.5, 563 / 256.0)},
        {{0, 65535}, 0.4, 0.4},
        {{0, 6553, 65535}, 0.25, 6553 / 2 / 65535.0},
        {{0, 6553, 65535}, 0.5, 6553 / 65535.0},
        {{0, 6553, 65535}, 0.75, (6553 + 65535) / 2.0 / 65535},
        {{0, 6553, 65535}, 1, 1},
        {{655, 65535}, 0, 655 / 65535.0},
        {{0, 65535}, -1, 0},
        {{0, 65535}, 2, 1},
    };
    for (const Case& c : cases) {
        const auto curve = readToneCurve(tableCurve(c.entries));
        ASSERT_TRUE(curve) << c.entries.size();
        EXPECT_NEAR(curve->at(c.value), c.light, 1e-5) << c.entries.size() << " entries at " << c.value;
    }
}

TEST(ToneCurve, ReadsFormulas) {
    struct Case {
        unsigned formula;
        std::vector<double> parameters;
        double value;
        double light;
    };
    const Case cases[] = {
        {0, {2.2}, 0.5, std::pow(0.5, 2.2)},
        {0, {1}, 0.25, 0.25},
        {1, {2, 1.25, -0.25}, 0.6, 0.25},
        {1, {2, 1.25, -0.25}, 0.1, 0},
        {2, {2, 0.5, 0.25, 0.1}, 0.5, 0.35},
        {2, {2, 1, -0.5, 0.5}, 0.3, 0.5},
        {3, {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045}, 0.5, std::pow(0.555 / 1.055, 2.4)},
        {3, {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045}, 0.04, 0.04 / 12.92},
        {4, {2, 0.5, 0.25, 0.25, 0.4, 0.1, 0.05}, 0.5, 0.35},
        {4, {2, 0.5, 0.25, 0.25, 0.4, 0.1, 0.05}, 0.2, 0.1},
        {4, {1, 2, 0, 2, 0.1, 0, 0}, 0.9, 1},
        // A power of what lies below 0 counts as 0.
        {3, {2.2, 1.25, -0.25, 0, 0.1}, 0.15, 0},
    };
    for (const Case& c : cases) {
        const auto curve = readToneCurve(formulaCurve(c.formula, c.parameters));
        if (c.formula == 2 && c.parameters[3] == 0.5) {
            // It rises by a quarter only.
            EXPECT_FALSE(curve);
            continue;
        }
        ASSERT_TRUE(curve) << "formula " << c.formula;
        EXPECT_NEAR(curve->at(c.value), c.light, 1e-4) << "formula " << c.formula << " at " << c.value;
    }
}

TEST(ToneCurve, RefusesWhatHasNoWayBack) {
    const std::pair<const char*, Bytes> cases[] = {
        {"falls", tableCurve({65535, 0})},
        {"falls in between", tableCurve({0, 40000, 30000, 65535})},
        {"flat", tableCurve({500, 500})},
        {"exponent 0", tableCurve({0})},
        {"formula's exponent 0", formulaCurve(0, {0})},
        {"falling formula", formulaCurve(0, {-2})},
        {"formula without slope", formulaCurve(1, {2, 0, 0.5})},
        {"formula with a falling slope", formulaCurve(1, {-1, -1, 0.5})},
        {"formula with a step down", formulaCurve(4, {1, 1, 0, 1.5, 0.5, 0, 0})},
    };
    for (const auto& [name, element] : cases) {
        EXPECT_FALSE(readToneCurve(element)) << name;
    }
}

TEST(ToneCurve, RefusesDamage) {
    const Bytes cases[] = {
        tableCurve({}),
        tableCurve({563}),
        tableCurve({0, 100, 65535}),
        formulaCurve(0, {2.2}),
        formulaCurve(1, {2, 1.25, -0.25}),
        formulaCurve(4, {2, 0.5, 0.25, 0.25, 0.4, 0.1, 0.05}),
    };
    for (const Bytes& element : cases) {
        ASSERT_TRUE(readToneCurve(element));
        for (std::size_t size = 0; size < element.size(); ++size) {
            EXPECT_FALSE(readToneCurve(std::span(element).first(size))) << size;
        }
    }
    EXPECT_FALSE(readToneCurve(formulaCurve(5, {1, 1, 0, 0, 0, 0, 0})));
    EXPECT_FALSE(readToneCurve(support::xyzElement(1, 1, 1)));
    std::vector<std::uint16_t> longest(65536);
    std::iota(longest.begin(), longest.end(), std::uint16_t{0});
    EXPECT_TRUE(readToneCurve(tableCurve(longest)));
    longest.push_back(65535);
    EXPECT_FALSE(readToneCurve(tableCurve(longest)));
    Bytes endless = tableCurve({0, 65535});
    ProfileBytes::putNumber(endless, 8, 0xFFFFFFFF, 4);
    EXPECT_FALSE(readToneCurve(endless));
}

TEST(ColourProfile, ReadsMatrixAndCurves) {
    ProfileBytes bytes = support::displayP3();
    bytes.set("gTRC", support::powerCurve(1.8)).set("bTRC", tableCurve({0, 10000, 65535}));
    for (const unsigned version : {2U, 4U}) {
        Bytes whole = bytes.bytes();
        whole[8] = static_cast<std::uint8_t>(version);
        const auto profile = readColourProfile(whole);
        ASSERT_TRUE(profile);
        const Matrix3 expected = support::matrixOf(support::kP3Primaries);
        for (std::size_t row = 0; row < 3; ++row) {
            for (std::size_t column = 0; column < 3; ++column) {
                EXPECT_NEAR(profile->toXyz[row][column], expected[row][column], 1e-5);
            }
        }
        EXPECT_NEAR(profile->curves[0].at(0.5), 0.2140, 1e-4);
        EXPECT_NEAR(profile->curves[1].at(0.5), std::pow(0.5, 1.8), 1e-4);
        EXPECT_NEAR(profile->curves[2].at(0.5), 10000 / 65535.0, 1e-6);
    }
}

TEST(ColourProfile, PaddingBehindItIsNoPartOfIt) {
    Bytes bytes = support::adobeRgb().bytes();
    bytes.resize(bytes.size() + 100, 0x55);
    EXPECT_TRUE(describesRgb(bytes));
    EXPECT_TRUE(readColourProfile(bytes));
}

TEST(ColourProfile, RefusesOtherKinds) {
    struct Case {
        const char* name;
        ProfileBytes profile;
        bool describesRgb;
    };
    const auto withMatrix = [](ProfileBytes profile) {
        for (const char* tag : {"rXYZ", "gXYZ", "bXYZ"}) {
            profile.set(tag, support::xyzElement(tag[0] == 'r', tag[0] == 'g', tag[0] == 'b'));
        }
        for (const char* tag : {"rTRC", "gTRC", "bTRC"}) {
            profile.set(tag, support::standardCurve());
        }
        return profile;
    };
    ASSERT_TRUE(readColourProfile(withMatrix(ProfileBytes()).bytes()));
    const Bytes table = support::elementOf("mft2");
    const Case cases[] = {
        {"grey", withMatrix(ProfileBytes("mntr", "GRAY")), false},
        {"CMYK", withMatrix(ProfileBytes("prtr", "CMYK", "Lab ")), false},
        {"Lab", withMatrix(ProfileBytes("spac", "Lab ")), false},
        {"link of two devices", withMatrix(ProfileBytes("link", "RGB ", "RGB ")), false},
        {"abstract", withMatrix(ProfileBytes("abst", "RGB ")), false},
        {"named colours", withMatrix(ProfileBytes("nmcl", "RGB ")), false},
        {"version 5", withMatrix(ProfileBytes("mntr", "RGB ", "XYZ ", 5)), false},
        {"version 1", withMatrix(ProfileBytes("mntr", "RGB ", "XYZ ", 1)), false},
        {"connected by Lab", withMatrix(ProfileBytes("mntr", "RGB ", "Lab ")), true},
        {"tables and matrix", withMatrix(ProfileBytes()).set("A2B0", table), true},
        {"table of another intent", withMatrix(ProfileBytes()).set("A2B1", table), true},
        {"table back", withMatrix(ProfileBytes()).set("B2A1", table), true},
        {"table of floating point numbers", withMatrix(ProfileBytes()).set("D2B0", table), true},
        {"tables alone", ProfileBytes().set("A2B0", table), true},
        {"nothing in it", ProfileBytes(), true},
        {"without a way back", support::matrixProfile({}, support::standardCurve()), true},
        {"one curve falls", withMatrix(ProfileBytes()).set("gTRC", tableCurve({65535, 0})), true},
        {"matrix of another type",
         withMatrix(ProfileBytes()).set("rXYZ", tableCurve(std::vector<std::uint16_t>(100))), true},
    };
    for (const Case& c : cases) {
        EXPECT_FALSE(readColourProfile(c.profile.bytes())) << c.name;
        EXPECT_EQ(describesRgb(c.profile.bytes()), c.describesRgb) << c.name;
    }
}

TEST(ColourProfile, RefusesEveryTruncation) {
    const Bytes whole = support::displayP3().bytes();
    ASSERT_TRUE(readColourProfile(whole));
    for (std::size_t size = 0; size < whole.size(); ++size) {
        Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        ASSERT_FALSE(describesRgb(part)) << size;
        ASSERT_FALSE(readColourProfile(part)) << size;
        // Even if it were said to be complete.
        if (size >= 4 && size < whole.size() - 3) {
            ProfileBytes::putNumber(part, 0, static_cast<std::uint32_t>(size), 4);
            ASSERT_FALSE(readColourProfile(part)) << size;
            part.insert(part.end(), whole.begin() + static_cast<std::ptrdiff_t>(size), whole.end());
            ASSERT_FALSE(readColourProfile(part)) << size << ": elements behind the end";
            ASSERT_EQ(describesRgb(part), size >= 132) << size << ": the header and the count of elements";
        }
    }
}

TEST(ColourProfile, RefusesDamagedTables) {
    const Bytes whole = support::displayP3().bytes();
    const auto damaged = [&whole](std::size_t offset, std::uint32_t value) {
        Bytes bytes = whole;
        ProfileBytes::putNumber(bytes, offset, value, 4);
        return readColourProfile(bytes);
    };
    EXPECT_FALSE(damaged(36, 0)) << "no signature";
    EXPECT_FALSE(damaged(128, 0)) << "no element";
    EXPECT_FALSE(damaged(128, 6)) << "an element less";
    EXPECT_FALSE(damaged(128, 0xFFFFFFFF)) << "too many elements";
    for (std::size_t element = 1; element < 7; ++element) {
        const std::size_t entry = 132 + 12 * element;
        EXPECT_FALSE(damaged(entry, 0)) << "tag of element " << element;
        EXPECT_FALSE(damaged(entry + 4, 0xFFFFFFF0)) << "offset of element " << element;
        EXPECT_FALSE(damaged(entry + 8, 0xFFFFFFF0)) << "length of element " << element;
        EXPECT_FALSE(damaged(entry + 8, 11)) << "length of element " << element;
    }
}

TEST(ColourProfile, TellsProfilesOfOneSpaceFromOthers) {
    const auto read = [](const ProfileBytes& bytes) { return readColourProfile(bytes.bytes()).value(); };
    const ColourProfile standard = read(support::standardRgb());
    EXPECT_TRUE(sameEffect(standard, standardProfile()));
    EXPECT_TRUE(sameEffect(standardProfile(), standard));

    // The same curve as a table, and some that are darker in the middle.
    const Matrix3 matrix = support::matrixOf(support::kStandardPrimaries);
    const auto darker = [&](double levels) {
        std::vector<std::uint16_t> table;
        for (int i = 0; i < 1024; ++i) {
            const double value = i / 1023.0;
            const double light = standard.curves[0].at(value - 4 * value * (1 - value) * levels / 255);
            table.push_back(static_cast<std::uint16_t>(std::lround(65535 * light)));
        }
        return read(support::matrixProfile(matrix, tableCurve(table)));
    };
    EXPECT_TRUE(sameEffect(darker(0), standardProfile()));
    EXPECT_TRUE(sameEffect(darker(0.3), standardProfile()));
    EXPECT_FALSE(sameEffect(darker(1), standardProfile()));

    const ColourProfile others[] = {
        read(support::displayP3()),
        read(support::adobeRgb()),
        read(support::matrixProfile(matrix, support::powerCurve(2.2))),
        read(support::standardRgb().set("bTRC", support::powerCurve(2.2))),
        // Flat in the middle but for a rounding.
        read(support::matrixProfile(matrix, tableCurve({0, 36212, 36212, 36211, 65535}))),
    };
    for (const ColourProfile& other : others) {
        EXPECT_FALSE(sameEffect(other, standardProfile()));
        EXPECT_FALSE(sameEffect(standardProfile(), other));
        EXPECT_TRUE(sameEffect(other, other));
    }
}

}  // namespace
}  // namespace picture
