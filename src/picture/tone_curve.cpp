#include "picture/tone_curve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "picture/big_endian.h"

namespace picture {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint32_t kTableType = 0x63757276;    // "curv"
constexpr std::uint32_t kFormulaType = 0x70617261;  // "para"
/// More than any level of a channel can tell apart.
constexpr std::uint32_t kLongestTable = 65536;

std::optional<ToneCurve> readTable(Bytes element) {
    const auto count = bigEndian(element, 8, 4);
    if (!count || *count > kLongestTable || element.size() < 12 + std::size_t{2} * *count) {
        return std::nullopt;
    }
    ToneCurve curve;
    if (*count == 1) {
        curve.gamma = *bigEndian(element, 12, 2) / 256.0;
    } else {
        curve.table.reserve(*count);
        for (std::size_t i = 0; i < *count; ++i) {
            curve.table.push_back(static_cast<std::uint16_t>(*bigEndian(element, 12 + 2 * i, 2)));
        }
    }
    return curve;
}

/// The formulas' parameters, in the order of the file: gamma, then a to f as far as the formula has them.
std::optional<ToneCurve> readFormula(Bytes element) {
    constexpr std::array<std::size_t, 5> kParameters = {1, 3, 4, 5, 7};
    const auto kind = bigEndian(element, 8, 2);
    if (!kind || *kind >= kParameters.size()) {
        return std::nullopt;
    }
    std::array<double, 7> values{};
    for (std::size_t i = 0; i < kParameters[*kind]; ++i) {
        const auto value = bigEndian(element, 12 + 4 * i, 4);
        if (!value) {
            return std::nullopt;
        }
        values[i] = static_cast<std::int32_t>(*value) / 65536.0;
    }
    ToneCurve curve;
    curve.gamma = values[0];
    if (*kind == 0) {
        return curve;
    }
    curve.a = values[1];
    curve.b = values[2];
    if (*kind <= 2) {
        // These two have no straight part: they are constant up to where the power begins.
        if (curve.a <= 0) {
            return std::nullopt;
        }
        curve.d = -curve.b / curve.a;
        curve.e = *kind == 2 ? values[3] : 0;
        curve.f = curve.e;
        return curve;
    }
    curve.c = values[3];
    curve.d = values[4];
    curve.e = values[5];
    curve.f = values[6];
    return curve;
}

bool rises(const ToneCurve& curve) {
    constexpr int kSteps = 1024;
    constexpr double kLeastRise = 0.5;
    // A step down as small as a table's rounding does no harm.
    constexpr double kRounding = 1.0 / 65535;
    double last = curve.at(0);
    for (int i = 1; i <= kSteps; ++i) {
        const double light = curve.at(static_cast<double>(i) / kSteps);
        if (!(light >= last - kRounding)) {
            return false;
        }
        last = light;
    }
    return last - curve.at(0) >= kLeastRise;
}

}  // namespace

double ToneCurve::at(double value) const {
    const double x = std::clamp(value, 0.0, 1.0);
    if (table.empty()) {
        const double light = x >= d ? std::pow(std::max(0.0, a * x + b), gamma) + e : c * x + f;
        return std::clamp(light, 0.0, 1.0);
    }
    const double place = x * static_cast<double>(table.size() - 1);
    const auto below = std::min(static_cast<std::size_t>(place), table.size() - 2);
    const double part = place - static_cast<double>(below);
    return (table[below] * (1 - part) + table[below + 1] * part) / 65535.0;
}

std::optional<ToneCurve> readToneCurve(Bytes element) {
    const auto type = bigEndian(element, 0, 4);
    std::optional<ToneCurve> curve;
    if (type == kTableType) {
        curve = readTable(element);
    } else if (type == kFormulaType) {
        curve = readFormula(element);
    }
    return curve && rises(*curve) ? curve : std::nullopt;
}

}  // namespace picture
