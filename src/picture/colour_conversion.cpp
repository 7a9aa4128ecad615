#include "picture/colour_conversion.h"

#include <algorithm>
#include <cmath>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace picture {

namespace {

// Light is counted in 32767ths, the most that a signed word of 16 bits holds. A sum of addends has
// kFractionBits more behind the point.
constexpr int kFullLight = 32767;
constexpr int kFractionBits = 8;
/// A larger factor could make a sum of three addends overflow.
constexpr double kLargestFactor = 80;

// The eye tells dark tones apart that differ by very little light, so below kFineLight every 32767th has an
// entry in the table of levels, above only every eighth. Both lines meet at kFineLight, and the lower one of
// the two is the right one on either side of it.
constexpr int kCoarseBits = 3;
constexpr int kFineLight = 4096;
constexpr int kCoarseStart = kFineLight - (kFineLight >> kCoarseBits);
constexpr int kIndices = kCoarseStart + (kFullLight >> kCoarseBits) + 1;

constexpr int indexOf(int light) {
    return std::min(light, kCoarseStart + (light >> kCoarseBits));
}
static_assert(indexOf(kFullLight) == kIndices - 1);
static_assert(indexOf(kFineLight - 1) + 1 == indexOf(kFineLight));

/// The middle of the light that an index stands for, 0 to 1.
double lightOf(int index) {
    if (index < kFineLight) {
        return static_cast<double>(index) / kFullLight;
    }
    constexpr double kMiddle = ((1 << kCoarseBits) - 1) / 2.0;
    return (static_cast<double>((index - kCoarseStart) << kCoarseBits) + kMiddle) / kFullLight;
}

/// A curve's light for `steps` + 1 evenly spaced values, moved and stretched so that it begins at 0.
std::vector<double> lightsOf(const ToneCurve& curve, int steps) {
    const double darkest = curve.at(0);
    std::vector<double> lights;
    lights.reserve(static_cast<std::size_t>(steps) + 1);
    for (int i = 0; i <= steps; ++i) {
        const double light = curve.at(static_cast<double>(i) / steps);
        lights.push_back(std::max(0.0, light - darkest) / (1 - darkest));
    }
    return lights;
}

/// The level, 0 to 255, that makes the light of every index.
std::vector<std::uint8_t> levelsOf(const ToneCurve& curve) {
    constexpr int kSteps = 4096;
    const std::vector<double> lights = lightsOf(curve, kSteps);
    std::vector<std::uint8_t> levels;
    levels.reserve(kIndices);
    std::size_t above = 1;
    for (int index = 0; index < kIndices; ++index) {
        const double light = lightOf(index);
        while (above < kSteps && lights[above] < light) {
            ++above;
        }
        const double rise = lights[above] - lights[above - 1];
        const double part = rise > 0 ? (light - lights[above - 1]) / rise : 0;
        const double value = (static_cast<double>(above - 1) + std::clamp(part, 0.0, 1.0)) / kSteps;
        levels.push_back(static_cast<std::uint8_t>(std::lround(value * 255)));
    }
    // Full light is the last level, even where a curve reaches it earlier or not at all.
    levels.back() = 255;
    return levels;
}

/// Rounding in profiles must not tint white or grey: rows that add up to nearly 1 are made to do so exactly.
void keepWhite(Matrix3& matrix) {
    constexpr double kTolerance = 0.005;
    std::array<double, 3> sums{};
    for (std::size_t row = 0; row < 3; ++row) {
        sums[row] = matrix[row][0] + matrix[row][1] + matrix[row][2];
        if (std::abs(sums[row] - 1) > kTolerance) {
            return;
        }
    }
    for (std::size_t row = 0; row < 3; ++row) {
        for (double& factor : matrix[row]) {
            factor /= sums[row];
        }
    }
}

bool isUsable(const Matrix3& matrix) {
    return std::all_of(matrix.begin(), matrix.end(), [](const auto& row) {
        return std::all_of(row.begin(), row.end(),
                           [](double factor) { return std::abs(factor) <= kLargestFactor; });
    });
}

}  // namespace

std::optional<ColourConversion> ColourConversion::between(const ColourProfile& picture,
                                                          const ColourProfile& device) {
    const auto back = inverse(device.toXyz);
    if (!back) {
        return std::nullopt;
    }
    Matrix3 toDevice = product(*back, picture.toXyz);
    keepWhite(toDevice);
    if (!isUsable(toDevice)) {
        return std::nullopt;
    }
    std::optional<ColourConversion> conversion = ColourConversion();
    conversion->setAddends(picture, toDevice);
    conversion->setLevels(device);
    return conversion;
}

void ColourConversion::setAddends(const ColourProfile& picture, const Matrix3& toDevice) {
    constexpr double kScale = static_cast<double>(kFullLight) * (1 << kFractionBits);
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const std::vector<double> lights = lightsOf(picture.curves[channel], 255);
        for (std::size_t level = 0; level < 256; ++level) {
            for (std::size_t row = 0; row < 3; ++row) {
                // One of the three carries the half that rounds the sum.
                const long half = channel == 0 ? 1L << (kFractionBits - 1) : 0L;
                addends_[channel][level].light[row] = static_cast<std::int32_t>(
                    std::lround(lights[level] * toDevice[row][channel] * kScale) + half);
            }
        }
    }
}

void ColourConversion::setLevels(const ColourProfile& device) {
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const auto same = std::find(device.curves.begin(), device.curves.begin() + static_cast<int>(channel),
                                    device.curves[channel]) -
                          device.curves.begin();
        if (static_cast<std::size_t>(same) < channel) {
            tables_[channel] = tables_[static_cast<std::size_t>(same)];
            continue;
        }
        const std::vector<std::uint8_t> levels = levelsOf(device.curves[channel]);
        tables_[channel] = levels_.size();
        levels_.insert(levels_.end(), levels.begin(), levels.end());
    }
}

std::uint32_t ColourConversion::convertPixel(std::uint32_t pixel) const {
    const Addend& red = addends_[0][pixel >> 16 & 0xFF];
    const Addend& green = addends_[1][pixel >> 8 & 0xFF];
    const Addend& blue = addends_[2][pixel & 0xFF];
    std::uint32_t result = 0;
    for (std::size_t row = 0; row < 3; ++row) {
        const int sum = (red.light[row] + green.light[row] + blue.light[row]) >> kFractionBits;
        const auto index = static_cast<std::size_t>(indexOf(std::clamp(sum, 0, kFullLight)));
        result = result << 8 | levels_[tables_[row] + index];
    }
    return result;
}

void ColourConversion::convertPlainly(std::uint32_t* pixels, std::size_t count) const {
    for (std::size_t i = 0; i < count; ++i) {
        pixels[i] = convertPixel(pixels[i]);
    }
}

#if defined(__SSE2__)

void ColourConversion::convert(std::uint32_t* pixels, std::size_t count) const {
    const std::uint8_t* reds = levels_.data() + tables_[0];
    const std::uint8_t* greens = levels_.data() + tables_[1];
    const std::uint8_t* blues = levels_.data() + tables_[2];
    const __m128i zero = _mm_setzero_si128();
    const __m128i coarse = _mm_set1_epi16(kCoarseStart);
    const auto load = [](const Addend& addend) {
        return _mm_load_si128(reinterpret_cast<const __m128i*>(addend.light.data()));
    };
    const auto sum = [&](std::uint32_t pixel) {
        const __m128i both =
            _mm_add_epi32(load(addends_[0][pixel >> 16 & 0xFF]), load(addends_[1][pixel >> 8 & 0xFF]));
        return _mm_srai_epi32(_mm_add_epi32(both, load(addends_[2][pixel & 0xFF])), kFractionBits);
    };
    const auto level = [](const std::uint8_t* table, int index) {
        return static_cast<std::uint32_t>(table[index]);
    };
    std::size_t i = 0;
    // Packing brings what is too large down to kFullLight.
    for (; i + 2 <= count; i += 2) {
        const __m128i light = _mm_max_epi16(_mm_packs_epi32(sum(pixels[i]), sum(pixels[i + 1])), zero);
        const __m128i index = _mm_min_epi16(light, _mm_add_epi16(_mm_srli_epi16(light, kCoarseBits), coarse));
        pixels[i] = level(reds, _mm_extract_epi16(index, 0)) << 16 |
                    level(greens, _mm_extract_epi16(index, 1)) << 8 |
                    level(blues, _mm_extract_epi16(index, 2));
        pixels[i + 1] = level(reds, _mm_extract_epi16(index, 4)) << 16 |
                        level(greens, _mm_extract_epi16(index, 5)) << 8 |
                        level(blues, _mm_extract_epi16(index, 6));
    }
    convertPlainly(pixels + i, count - i);
}

#else

void ColourConversion::convert(std::uint32_t* pixels, std::size_t count) const {
    convertPlainly(pixels, count);
}

#endif

void convertColours(const ColourConversion& conversion, const Canvas& pixels, const Placement& place) {
    const Placement part = visiblePart(place, pixels);
    for (int y = part.top; y < part.top + part.height; ++y) {
        conversion.convert(pixels.row(y) + part.left, static_cast<std::size_t>(part.width));
    }
}

}  // namespace picture
