#include "fuzz/check.h"
#include "picture/colour_conversion.h"
#include "picture/colour_profile.h"

#include <array>
#include <cstdint>
#include <vector>

namespace {

using fuzz::check;

void checkCurve(const picture::ToneCurve& curve) {
    double last = 0;
    for (int level = 0; level < 256; ++level) {
        const double light = curve.at(level / 255.0);
        check(light >= 0 && light <= 1);
        check(level == 0 || light >= last - 1e-2);
        last = light;
    }
}

void checkConversion(const picture::ColourProfile& from, const picture::ColourProfile& to) {
    if (const auto conversion = picture::ColourConversion::between(from, to)) {
        std::array<std::uint32_t, 9> pixels = {0,        0xFFFFFF, 0xFF0000, 0x00FF00,  0x0000FF,
                                               0x808080, 0x010203, 0xFEFDFC, 0xFFFFFFFF};
        std::array<std::uint32_t, 9> plain = pixels;
        conversion->convert(pixels.data(), pixels.size());
        conversion->convertPlainly(plain.data(), plain.size());
        check(pixels == plain);
        check(pixels[0] == 0);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::uint8_t> bytes(data, data + size);
    const auto profile = picture::readColourProfile(bytes);
    if (!profile) {
        return 0;
    }
    check(picture::describesRgb(bytes));
    for (const picture::ToneCurve& curve : profile->curves) {
        checkCurve(curve);
    }
    checkConversion(*profile, picture::standardProfile());
    checkConversion(picture::standardProfile(), *profile);
    check(picture::sameEffect(*profile, *profile));
    return 0;
}
