#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace picture {

/// How the value of a colour channel, 0 to 1, becomes light, 0 to 1.
struct ToneCurve {
    /// (a x + b) ^ gamma + e from x = d on, c x + f below: the form that holds all five formulas of ICC
    /// profiles. The defaults are a straight line.
    double gamma = 1;
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 0;
    double e = 0;
    double f = 0;
    /// When not empty, at least two values in 65535ths, evenly spaced over 0 to 1 and joined by straight
    /// lines; the formula does not count then.
    std::vector<std::uint16_t> table;

    /// The light of `value`; both are brought into 0 to 1.
    double at(double value) const;
    friend bool operator==(const ToneCurve&, const ToneCurve&) = default;
};

/// Reads a curve as it stands in an ICC profile, from its type signature on: "curv" (ICC.1:2022, 10.6) or
/// "para" (10.18). None for another type, for one that is damaged, and for a curve that falls somewhere or
/// hardly rises at all, since no way leads back from light to value.
std::optional<ToneCurve> readToneCurve(std::span<const std::uint8_t> element);

}  // namespace picture
