#include "show/fit_rule.h"

#include <cmath>

namespace show {

namespace {

constexpr double kWide = 0.9;
constexpr double kTall = 1.1;

int rounded(double value) {
    return static_cast<int>(std::lround(value));
}

}  // namespace

PixelRect fitPicture(int pictureWidth, int pictureHeight, int surfaceWidth, int surfaceHeight, double shape) {
    if (pictureWidth <= 0 || pictureHeight <= 0 || surfaceWidth <= 0 || surfaceHeight <= 0) {
        return {};
    }
    const double proportion = static_cast<double>(pictureHeight) / pictureWidth;
    const double k = proportion * shape;
    if (k < kWide) {
        const int height = rounded(surfaceWidth * proportion);
        return {0, rounded((surfaceHeight - height) / 2.0), surfaceWidth, height};
    }
    if (k > kTall) {
        const int width = rounded(surfaceHeight / proportion);
        return {rounded((surfaceWidth - width) / 2.0), 0, width, surfaceHeight};
    }
    return {0, 0, surfaceWidth, surfaceHeight};
}

}  // namespace show
