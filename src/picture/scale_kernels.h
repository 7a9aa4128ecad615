#pragma once

#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace picture {

// The inner loops of the scaler, in whole numbers. Weights have 14 bits behind the point and those of one
// target pixel add up to kWeightOne; a weighted row keeps 7 bits behind the point, so every product and sum
// fits into 31 bits and two products at a time can be left to one instruction.

inline constexpr int kWeightBits = 14;
inline constexpr int kWeightOne = 1 << kWeightBits;
inline constexpr int kSampleBits = 7;

/// Two neighbouring weights, the first in the low half.
using WeightPair = std::uint32_t;

constexpr WeightPair weightPair(int first, int second) {
    return static_cast<WeightPair>(first) | static_cast<WeightPair>(second) << 16;
}
constexpr std::int32_t firstOf(WeightPair pair) {
    return static_cast<std::int32_t>(pair & 0xFFFF);
}
constexpr std::int32_t secondOf(WeightPair pair) {
    return static_cast<std::int32_t>(pair >> 16);
}

/// Samples are handled in groups of this size; rows must be readable up to a multiple of it.
inline constexpr std::size_t kSampleGroup = 16;

/// sums[i] = (carry ? carry[i] : 0) + the sum over the `rows` rows of weight * row[i], for `samples` samples
/// (a multiple of kSampleGroup). `carry` may be `sums`.
void addWeightedRows(const std::uint8_t* first, std::size_t stride, int rows, const WeightPair* weights,
                     std::size_t samples, const std::int32_t* carry, std::int32_t* sums);

/// The same, and `target` takes the results with kSampleBits bits behind the point.
void weightedRows(const std::uint8_t* first, std::size_t stride, int rows, const WeightPair* weights,
                  std::size_t samples, const std::int32_t* carry, std::int16_t* target);

/// The weighted sum of 2 * `pairs` pixels that stand side by side in a weighted row (blue, green, red), as
/// 0x00RRGGBB. One sample past the last pixel is read.
inline std::uint32_t weightedPixel(const std::int16_t* first, int pairs, const WeightPair* weights) {
    constexpr int kShift = kWeightBits + kSampleBits;
    constexpr std::int32_t kHalf = 1 << (kShift - 1);
#if defined(__SSE2__)
    __m128i sum = _mm_set1_epi32(kHalf);
    for (int i = 0; i < pairs; ++i, first += 6) {
        const __m128i left = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(first));
        const __m128i right = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(first + 3));
        const __m128i weight = _mm_set1_epi32(static_cast<int>(weights[i]));
        sum = _mm_add_epi32(sum, _mm_madd_epi16(_mm_unpacklo_epi16(left, right), weight));
    }
    const __m128i words = _mm_packs_epi32(_mm_srai_epi32(sum, kShift), _mm_setzero_si128());
    const __m128i bytes = _mm_packus_epi16(words, words);
    return static_cast<std::uint32_t>(_mm_cvtsi128_si32(bytes)) & 0x00FFFFFFU;
#else
    std::int32_t blue = kHalf;
    std::int32_t green = kHalf;
    std::int32_t red = kHalf;
    for (int i = 0; i < pairs; ++i, first += 6) {
        const std::int32_t a = firstOf(weights[i]);
        const std::int32_t b = secondOf(weights[i]);
        blue += first[0] * a + first[3] * b;
        green += first[1] * a + first[4] * b;
        red += first[2] * a + first[5] * b;
    }
    return static_cast<std::uint32_t>(blue >> kShift | green >> kShift << 8 | red >> kShift << 16);
#endif
}

}  // namespace picture
