#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

namespace picture {

/// Three rows of three numbers.
using Matrix3 = std::array<std::array<double, 3>, 3>;

inline Matrix3 product(const Matrix3& a, const Matrix3& b) {
    Matrix3 result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            for (std::size_t i = 0; i < 3; ++i) {
                result[row][column] += a[row][i] * b[i][column];
            }
        }
    }
    return result;
}

/// None where the matrix is so near to one without an inverse that the result would mean nothing.
inline std::optional<Matrix3> inverse(const Matrix3& m) {
    constexpr double kLeastDeterminant = 1e-4;
    const auto minor = [&m](std::size_t row, std::size_t column) {
        // Rows and columns in turn carry the sign with them.
        const std::size_t r1 = (row + 1) % 3;
        const std::size_t r2 = (row + 2) % 3;
        const std::size_t c1 = (column + 1) % 3;
        const std::size_t c2 = (column + 2) % 3;
        return m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1];
    };
    const double determinant = m[0][0] * minor(0, 0) + m[0][1] * minor(0, 1) + m[0][2] * minor(0, 2);
    if (std::abs(determinant) < kLeastDeterminant) {
        return std::nullopt;
    }
    Matrix3 result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            result[row][column] = minor(column, row) / determinant;
        }
    }
    return result;
}

}  // namespace picture
