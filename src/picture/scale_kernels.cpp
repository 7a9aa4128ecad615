#include "picture/scale_kernels.h"

namespace picture {

namespace {

constexpr int kRowShift = kWeightBits - kSampleBits;
constexpr std::int32_t kRowHalf = 1 << (kRowShift - 1);

#if defined(__SSE2__)

/// The sums of one group of samples, four to a register.
struct Group {
    __m128i part[4];
};

inline Group sumGroup(const std::uint8_t* first, std::size_t stride, int rows, const WeightPair* weights,
                      Group group) {
    const __m128i zero = _mm_setzero_si128();
    for (int row = 0; row < rows; row += 2) {
        // The weight of a missing second row is 0, so the first may stand for it.
        const std::uint8_t* second = row + 1 < rows ? first + stride : first;
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(first));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(second));
        const __m128i weight = _mm_set1_epi32(static_cast<int>(weights[row / 2]));
        const __m128i low = _mm_unpacklo_epi8(a, b);
        const __m128i high = _mm_unpackhi_epi8(a, b);
        const auto add = [&](__m128i sum, __m128i samples) {
            return _mm_add_epi32(sum, _mm_madd_epi16(samples, weight));
        };
        group.part[0] = add(group.part[0], _mm_unpacklo_epi8(low, zero));
        group.part[1] = add(group.part[1], _mm_unpackhi_epi8(low, zero));
        group.part[2] = add(group.part[2], _mm_unpacklo_epi8(high, zero));
        group.part[3] = add(group.part[3], _mm_unpackhi_epi8(high, zero));
        first += 2 * stride;
    }
    return group;
}

inline Group startGroup(const std::int32_t* carry) {
    Group group;
    for (int i = 0; i < 4; ++i) {
        group.part[i] =
            carry == nullptr
                ? _mm_setzero_si128()
                : _mm_loadu_si128(reinterpret_cast<const __m128i*>(carry + std::ptrdiff_t{4} * i));
    }
    return group;
}

#else

inline std::int32_t sumSample(const std::uint8_t* first, std::size_t stride, int rows,
                              const WeightPair* weights, std::int32_t sum) {
    for (int row = 0; row < rows; ++row, first += stride) {
        sum += *first * (row % 2 == 0 ? firstOf(weights[row / 2]) : secondOf(weights[row / 2]));
    }
    return sum;
}

#endif

}  // namespace

void addWeightedRows(const std::uint8_t* first, std::size_t stride, int rows, const WeightPair* weights,
                     std::size_t samples, const std::int32_t* carry, std::int32_t* sums) {
#if defined(__SSE2__)
    for (std::size_t i = 0; i < samples; i += kSampleGroup) {
        const Group group =
            sumGroup(first + i, stride, rows, weights, startGroup(carry == nullptr ? nullptr : carry + i));
        for (std::size_t k = 0; k < 4; ++k) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(sums + i + 4 * k), group.part[k]);
        }
    }
#else
    for (std::size_t i = 0; i < samples; ++i) {
        sums[i] = sumSample(first + i, stride, rows, weights, carry == nullptr ? 0 : carry[i]);
    }
#endif
}

void weightedRows(const std::uint8_t* first, std::size_t stride, int rows, const WeightPair* weights,
                  std::size_t samples, const std::int32_t* carry, std::int16_t* target) {
#if defined(__SSE2__)
    const __m128i half = _mm_set1_epi32(kRowHalf);
    const auto shifted = [half](__m128i sum) { return _mm_srai_epi32(_mm_add_epi32(sum, half), kRowShift); };
    for (std::size_t i = 0; i < samples; i += kSampleGroup) {
        const Group group =
            sumGroup(first + i, stride, rows, weights, startGroup(carry == nullptr ? nullptr : carry + i));
        __m128i* out = reinterpret_cast<__m128i*>(target + i);
        _mm_storeu_si128(out, _mm_packs_epi32(shifted(group.part[0]), shifted(group.part[1])));
        _mm_storeu_si128(out + 1, _mm_packs_epi32(shifted(group.part[2]), shifted(group.part[3])));
    }
#else
    for (std::size_t i = 0; i < samples; ++i) {
        const std::int32_t sum = sumSample(first + i, stride, rows, weights, carry == nullptr ? 0 : carry[i]);
        target[i] = static_cast<std::int16_t>((sum + kRowHalf) >> kRowShift);
    }
#endif
}

}  // namespace picture
