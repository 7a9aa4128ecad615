#include "picture/colour_match.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "picture/colour_conversion.h"
#include "picture/embedded_profile.h"
#include "picture/jpeg_header.h"
#include "picture/picture_decoder.h"
#include "picture/standard_profile.h"
#include "support/colours.h"
#include "support/picture_writer.h"
#include "support/profile_bytes.h"
#include "support/sample_profiles.h"

namespace picture {
namespace {

using support::Bytes;
using support::colourDistance;
using support::colourGrid;
using Road = ColourMatch::Road;

Placement all(const Pixels& pixels) {
    return {0, 0, pixels.width, pixels.height};
}

Bytes tables() {
    return support::adobeRgbAsTables().bytes();
}

Bytes damagedTables() {
    return support::ProfileBytes().set("A2B0", Bytes(100, 9)).bytes();
}

struct Case {
    const char* name;
    Bytes picture;
    Bytes monitor;
    Road road;
};

TEST(ColourMatching, ChoosesTheRoad) {
    const Bytes p3 = support::displayP3().bytes();
    const Bytes adobe = support::adobeRgb().bytes();
    const Bytes grey = support::ProfileBytes("mntr", "GRAY").bytes();
    const Bytes cmyk = support::ProfileBytes("prtr", "CMYK", "Lab ").bytes();
    Bytes cut = p3;
    cut.pop_back();
    const Case cases[] = {
        {"no profile at all", {}, {}, Road::None},
        {"tagged as sRGB", support::standardRgb().bytes(), {}, Road::None},
        {"tagged as sRGB otherwise", standardProfileBytes(), support::standardRgb().bytes(), Road::None},
        {"the monitor's own", p3, p3, Road::None},
        {"the monitor's own, of tables", tables(), tables(), Road::None},
        {"wide picture", p3, {}, Road::Rule},
        {"wide monitor", {}, p3, Road::Rule},
        {"both wide", adobe, p3, Road::Rule},
        {"grey profile", grey, {}, Road::None},
        {"CMYK profile on a wide monitor", cmyk, p3, Road::Rule},
        {"incomplete profile", cut, {}, Road::None},
        {"monitor with a grey profile", p3, grey, Road::Rule},
        {"tables", tables(), {}, Road::System},
        {"tables on a wide monitor", tables(), p3, Road::System},
        {"damaged tables", damagedTables(), {}, Road::None},
    };
    for (const Case& c : cases) {
        ColourMatch match;
        Pixels pixels = colourGrid();
        EXPECT_EQ(match.convert(pixels, all(pixels), c.picture, c.monitor), c.road) << c.name;
        EXPECT_EQ(pixels.data == colourGrid().data, c.road == Road::None) << c.name;
    }
}

TEST(ColourMatching, WhatIsNoRgbProfileCountsAsStandard) {
    ColourMatch match;
    Pixels without = colourGrid();
    Pixels withGrey = colourGrid();
    const Bytes p3 = support::displayP3().bytes();
    match.convert(without, all(without), {}, p3);
    match.convert(withGrey, all(withGrey), support::ProfileBytes("mntr", "GRAY").bytes(), p3);
    EXPECT_EQ(without.data, withGrey.data);
}

TEST(ColourMatching, RuleAndSystemAgree) {
    ColourMatch match;
    Pixels rule = colourGrid();
    Pixels system = colourGrid();
    ASSERT_EQ(match.convert(rule, all(rule), support::adobeRgb().bytes(), {}), Road::Rule);
    ASSERT_EQ(match.convert(system, all(system), tables(), {}), Road::System);
    EXPECT_LE(colourDistance(rule, system), 3);
}

TEST(ColourMatching, ConvertsThePlaceOnly) {
    ColourMatch match;
    Pixels pixels(10, 10);
    std::fill(pixels.data.begin(), pixels.data.end(), 0x806040);
    match.convert(pixels, {2, 3, 4, 5}, support::adobeRgb().bytes(), {});
    EXPECT_EQ(std::count(pixels.data.begin(), pixels.data.end(), 0x806040U), 100 - 4 * 5);
}

TEST(ColourMatching, KeepsTheLastPairs) {
    ColourMatch match;
    const auto convert = [&match](double gamma) {
        const Matrix3 matrix = support::matrixOf(support::kStandardPrimaries);
        Pixels pixels = colourGrid();
        match.convert(pixels, all(pixels), support::matrixProfile(matrix, support::powerCurve(gamma)).bytes(),
                      {});
        return pixels.data;
    };
    const std::vector<std::uint32_t> first = convert(1.0);
    EXPECT_EQ(convert(1.0), first);
    EXPECT_EQ(match.workedOut(), 1);
    for (int i = 1; i < static_cast<int>(ColourMatch::kKept); ++i) {
        EXPECT_NE(convert(1.0 + i * 0.1), first);
    }
    EXPECT_EQ(convert(1.0), first);
    EXPECT_EQ(match.workedOut(), static_cast<int>(ColourMatch::kKept));
    // The next one takes the place of the one that was used longest ago, which is the second.
    convert(3.0);
    convert(1.0);
    EXPECT_EQ(match.workedOut(), static_cast<int>(ColourMatch::kKept) + 1);
    convert(1.1);
    EXPECT_EQ(match.workedOut(), static_cast<int>(ColourMatch::kKept) + 2);
}

TEST(ColourMatching, SeveralThreads) {
    ColourMatch match;
    const std::vector<Bytes> profiles = {support::displayP3().bytes(), support::adobeRgb().bytes(), tables()};
    std::vector<Pixels> expected;
    for (const Bytes& profile : profiles) {
        expected.push_back(colourGrid());
        ColourMatch().convert(expected.back(), all(expected.back()), profile, {});
    }
    std::vector<int> wrong(4);
    std::vector<std::thread> threads;
    for (int& count : wrong) {
        threads.emplace_back([&] {
            for (std::size_t turn = 0; turn < 60; ++turn) {
                Pixels pixels = colourGrid();
                match.convert(pixels, all(pixels), profiles[turn % 3], {});
                count += pixels.data == expected[turn % 3].data ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, std::vector<int>(4));
    EXPECT_EQ(match.workedOut(), 3);
}

/// The picture of colours that all lie within sRGB, as numbers of another profile.
support::PictureRule sceneIn(const Bytes& profile) {
    const auto conversion = std::make_shared<ColourConversion>(
        ColourConversion::between(standardProfile(), readColourProfile(profile).value()).value());
    return [conversion](int x, int y) {
        const auto red = static_cast<std::uint32_t>(x / 16 * 16 + 8);
        const auto green = static_cast<std::uint32_t>(y / 16 * 16 + 8);
        std::uint32_t pixel = red << 16 | green << 8 | (255 - (red + green) / 2);
        conversion->convert(&pixel, 1);
        return pixel;
    };
}

Pixels shown(const std::wstring& path, const Bytes& monitor) {
    DecodedPicture decoded = decodeScaledToFit(path, 256, 256);
    const Bytes file = support::readBytes(path);
    const auto profile = readEmbeddedProfile(file, readJpegHead(file).profileParts);
    ColourMatch match;
    match.convert(decoded.pixels, decoded.placement, profile.value_or(Bytes()), monitor);
    return std::move(decoded.pixels);
}

/// The same scene, stored by a telephone, by a camera and plainly, looks the same on any monitor.
TEST(ColourMatching, TaggedPicturesLookLikeTheirPlainTwin) {
    const support::TemporaryFolder folder;
    const auto write = [&folder](const wchar_t* name, const Bytes& profile) {
        const std::wstring path = folder.file(name);
        support::writePicture(path, support::PictureKind::Jpeg, 256, 256, sceneIn(profile), 1.0F);
        return path;
    };
    const std::wstring plain = write(L"plain.jpg", support::standardRgb().bytes());
    const std::pair<std::wstring, Bytes> tagged[] = {
        {write(L"p3.jpg", support::displayP3().bytes()), support::displayP3().bytes()},
        {write(L"adobe.jpg", support::adobeRgb().bytes()), support::adobeRgb().bytes()},
    };
    const auto inTheMiddles = [](const Pixels& a, const Pixels& b) {
        int most = 0;
        for (int y = 8; y < 256; y += 16) {
            for (int x = 8; x < 256; x += 16) {
                most = std::max(most, colourDistance(a.row(y)[x], b.row(y)[x]));
            }
        }
        return most;
    };
    for (const auto& [path, profile] : tagged) {
        EXPECT_GT(inTheMiddles(shown(path, {}), shown(plain, {})), 20) << "there is nothing to be seen";
        support::insertSegment(path, support::profileSegment(profile));
        for (const Bytes& monitor : {Bytes(), support::displayP3().bytes()}) {
            EXPECT_LE(inTheMiddles(shown(path, monitor), shown(plain, monitor)), 8);
        }
    }
}

}  // namespace
}  // namespace picture
