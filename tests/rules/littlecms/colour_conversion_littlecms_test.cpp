// The conversion of colours against another implementation of ICC profiles.
#include <gtest/gtest.h>
#include <lcms2.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "picture/colour_conversion.h"
#include "picture/standard_profile.h"
#include "support/profile_bytes.h"
#include "support/sample_profiles.h"

namespace picture {
namespace {

using support::Bytes;

struct Closing {
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};
struct Deleting {
    void operator()(void* transform) const { cmsDeleteTransform(transform); }
};
using Opened = std::unique_ptr<void, Closing>;
using Transform = std::unique_ptr<void, Deleting>;

Opened open(const Bytes& bytes) {
    return Opened(cmsOpenProfileFromMem(bytes.data(), static_cast<cmsUInt32Number>(bytes.size())));
}

Bytes fileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Every combination of some levels; of dark tones more, since the curves are at their steepest there.
std::vector<std::uint32_t> grid() {
    constexpr std::uint32_t kLevels[] = {0,  1,  2,   3,   4,   5,   6,   8,   12,  17,  25,  34, 51,
                                         68, 85, 102, 119, 136, 153, 170, 187, 204, 221, 238, 255};
    std::vector<std::uint32_t> pixels;
    for (const std::uint32_t red : kLevels) {
        for (const std::uint32_t green : kLevels) {
            for (const std::uint32_t blue : kLevels) {
                pixels.push_back(red << 16 | green << 8 | blue);
            }
        }
    }
    return pixels;
}

std::array<double, 3> channelsOf(std::uint32_t pixel) {
    return {(pixel >> 16 & 0xFF) / 255.0, (pixel >> 8 & 0xFF) / 255.0, (pixel & 0xFF) / 255.0};
}

/// No colour lies more than `levels` beside the exact result; half a level is rounding.
void expectAlike(const Bytes& from, const Bytes& to, double levels = 2) {
    const Opened picture = open(from);
    const Opened device = open(to);
    const auto ourPicture = readColourProfile(from);
    const auto ourDevice = readColourProfile(to);
    if (!picture || !device || !ourPicture || !ourDevice) {
        ADD_FAILURE() << "a profile cannot be read";
        return;
    }
    const Transform transform(cmsCreateTransform(picture.get(), TYPE_RGB_DBL, device.get(), TYPE_RGB_DBL,
                                                 INTENT_RELATIVE_COLORIMETRIC,
                                                 cmsFLAGS_NOOPTIMIZE | cmsFLAGS_NOCACHE));
    const auto conversion = ColourConversion::between(*ourPicture, *ourDevice);
    if (!transform || !conversion) {
        ADD_FAILURE() << "no conversion";
        return;
    }
    double most = 0;
    std::uint32_t worst = 0;
    for (const std::uint32_t pixel : grid()) {
        std::uint32_t ours = pixel;
        conversion->convert(&ours, 1);
        const std::array<double, 3> source = channelsOf(pixel);
        std::array<double, 3> exact{};
        cmsDoTransform(transform.get(), source.data(), exact.data(), 1);
        const std::array<double, 3> found = channelsOf(ours);
        for (std::size_t i = 0; i < 3; ++i) {
            const double distance = std::abs(found[i] - std::clamp(exact[i], 0.0, 1.0)) * 255;
            if (distance > most) {
                most = distance;
                worst = pixel;
            }
        }
    }
    EXPECT_LE(most, levels) << "at " << std::hex << worst;
}

constexpr const char* kFolder = "/usr/share/color/icc/";

class InstalledProfile : public testing::TestWithParam<const char*> {};

TEST_P(InstalledProfile, IsConvertedAlike) {
    const Bytes profile = fileBytes(kFolder + std::string(GetParam()));
    ASSERT_FALSE(profile.empty()) << kFolder << GetParam() << " is missing; tools/install brings it";
    // The curve of these two is nowhere so steep that light in whole numbers would show.
    expectAlike(profile, support::standardRgb().bytes(), 0.75);
    expectAlike(profile, support::displayP3().bytes(), 0.75);
    expectAlike(support::standardRgb().bytes(), profile);
}

INSTANTIATE_TEST_SUITE_P(
    Files, InstalledProfile,
    testing::Values("colord/AdobeRGB1998.icc", "colord/AppleRGB.icc", "colord/BetaRGB.icc",
                    "colord/BruceRGB.icc", "colord/CIE-RGB.icc", "colord/ColorMatchRGB.icc",
                    "colord/ECI-RGBv1.icc", "colord/ECI-RGBv2.icc", "colord/PAL-RGB.icc",
                    "colord/ProPhotoRGB.icc", "colord/Rec709.icc", "colord/SMPTE-C-RGB.icc",
                    "colord/WideGamutRGB.icc", "colord/sRGB.icc", "colord/SwappedRedAndGreen.icc",
                    "compatibleWithAdobeRGB1998.icc", "LStar-RGB.icc", "sRGB.icc"),
    [](const auto& instance) {
        std::string name = instance.param;
        std::replace_if(
            name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
        return name;
    });

TEST(ColourConversionAgainstLittleCms, OwnProfiles) {
    const Bytes profiles[] = {support::standardRgb().bytes(), support::displayP3().bytes(),
                              support::adobeRgb().bytes(),
                              support::displayP3()
                                  .set("gTRC", support::powerCurve(1.8))
                                  .set("bTRC", support::tableCurve({0, 4000, 15000, 35000, 65535}))
                                  .bytes()};
    for (const Bytes& from : profiles) {
        for (const Bytes& to : profiles) {
            expectAlike(from, to);
        }
    }
}

TEST(ColourConversionAgainstLittleCms, StandardProfileIsAccepted) {
    const Bytes bytes = standardProfileBytes();
    const Opened profile = open(bytes);
    ASSERT_TRUE(profile);
    std::array<char, 16> name{};
    cmsGetProfileInfoASCII(profile.get(), cmsInfoDescription, "en", "US", name.data(), name.size());
    EXPECT_STREQ(name.data(), "sRGB");
    expectAlike(support::displayP3().bytes(), bytes);
    expectAlike(bytes, support::displayP3().bytes());
}

TEST(ColourConversionAgainstLittleCms, EveryFormula) {
    const Bytes curves[] = {
        support::formulaCurve(0, {1.8}),
        support::formulaCurve(1, {2.2, 1.05, -0.05}),
        support::formulaCurve(2, {2.2, 1.04, -0.04, 0}),
        support::formulaCurve(3, {2.2, 0.9099, 0.0901, 0.2222, 0.0812}),
        support::formulaCurve(4, {2.2, 0.9099, 0.0901, 0.2222, 0.0812, 0, 0}),
        support::tableCurve({}),
        support::tableCurve({461}),
        support::tableCurve({0, 3000, 9000, 21000, 39000, 65535}),
    };
    for (const Bytes& curve : curves) {
        const Bytes from = support::matrixProfile(support::matrixOf(support::kAdobePrimaries), curve).bytes();
        expectAlike(from, support::standardRgb().bytes());
        // The way to curves that begin with a flat part differs by intent: black is black there, not the
        // brightest level without light.
        const ColourProfile profile = readColourProfile(from).value();
        if (profile.curves[0].at(0.01) > 0) {
            expectAlike(support::standardRgb().bytes(), from);
        }
    }
}

TEST(ColourConversionAgainstLittleCms, DisplayP3IsTheirs) {
    const cmsCIExyY white = {0.3127, 0.3290, 1};
    const cmsCIExyYTRIPLE primaries = {{0.68, 0.32, 1}, {0.265, 0.69, 1}, {0.15, 0.06, 1}};
    const std::array<double, 5> parameters = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    cmsToneCurve* curve = cmsBuildParametricToneCurve(nullptr, 4, parameters.data());
    const std::array<cmsToneCurve*, 3> curves = {curve, curve, curve};
    const Opened profile(cmsCreateRGBProfile(&white, &primaries, curves.data()));
    cmsFreeToneCurve(curve);
    ASSERT_TRUE(profile);
    cmsUInt32Number size = 0;
    ASSERT_TRUE(cmsSaveProfileToMem(profile.get(), nullptr, &size));
    Bytes bytes(size);
    ASSERT_TRUE(cmsSaveProfileToMem(profile.get(), bytes.data(), &size));
    const auto theirs = readColourProfile(bytes);
    ASSERT_TRUE(theirs);
    EXPECT_TRUE(sameEffect(*theirs, readColourProfile(support::displayP3().bytes()).value()));
    expectAlike(bytes, support::standardRgb().bytes());
    expectAlike(support::standardRgb().bytes(), bytes);
}

TEST(ColourProfileRecognition, InstalledProfilesOfStandardRgb) {
    for (const char* name : {"colord/sRGB.icc", "sRGB.icc"}) {
        const auto profile = readColourProfile(fileBytes(kFolder + std::string(name)));
        ASSERT_TRUE(profile) << name;
        EXPECT_TRUE(sameEffect(*profile, standardProfile())) << name;
    }
    for (const char* name : {"colord/AdobeRGB1998.icc", "colord/AppleRGB.icc", "colord/SMPTE-C-RGB.icc",
                             "colord/PAL-RGB.icc", "colord/Rec709.icc", "LStar-RGB.icc"}) {
        const auto profile = readColourProfile(fileBytes(kFolder + std::string(name)));
        ASSERT_TRUE(profile) << name;
        EXPECT_FALSE(sameEffect(*profile, standardProfile())) << name;
    }
}

}  // namespace
}  // namespace picture
