#include "picture/area_average.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "picture/pixels.h"
#include "picture/scale_kernels.h"

namespace picture {
namespace {

/// A whole picture in memory that notes what is asked of it.
class MemorySource : public RowSource {
  public:
    using Rule = std::function<int(int x, int y, int channel)>;

    MemorySource(int width, int height, const Rule& rule) : width_(width), height_(height) {
        bytes_.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                for (int channel = 0; channel < 3; ++channel) {
                    bytes_.push_back(static_cast<std::uint8_t>(rule(x, y, channel)));
                }
            }
        }
    }

    void read(int x, int y, int width, int rows, std::uint8_t* target, std::size_t stride) override {
        if (x < 0 || y < nextRow || width < 1 || rows < 1 || x + width > width_ || y + rows > height_) {
            throw std::out_of_range("rows outside the picture, or asked for twice");
        }
        firstRow = firstRow < 0 ? y : firstRow;
        nextRow = y + rows;
        left = x;
        right = x + width;
        for (int row = 0; row < rows; ++row) {
            std::copy_n(bytes_.begin() + index(x, y + row), static_cast<std::ptrdiff_t>(width) * 3,
                        target + static_cast<std::size_t>(row) * stride);
        }
    }

    int at(int x, int y, int channel) const {
        return bytes_[static_cast<std::size_t>(index(x, y)) + static_cast<std::size_t>(channel)];
    }

    int firstRow = -1, nextRow = 0, left = -1, right = -1;

  private:
    std::ptrdiff_t index(int x, int y) const { return (static_cast<std::ptrdiff_t>(y) * width_ + x) * 3; }

    int width_, height_;
    std::vector<std::uint8_t> bytes_;
};

int channelOf(std::uint32_t pixel, int channel) {
    return static_cast<int>(pixel >> (8 * channel) & 0xFF);
}

/// Which source positions count in a target position, and how much each, along one axis.
using Shares = std::vector<std::pair<int, double>>;

Shares shares(int source, int target, int t) {
    Shares result;
    const double size = static_cast<double>(source) / target;
    const double centre = std::clamp((t + 0.5) * size - 0.5, 0.0, static_cast<double>(source - 1));
    for (int i = 0; i < source; ++i) {
        const double overlap = std::min<double>(i + 1, (t + 1) * size) - std::max<double>(i, t * size);
        const double share = source >= target ? overlap / size : 1.0 - std::abs(i - centre);
        if (share > 0) {
            result.emplace_back(i, share);
        }
    }
    return result;
}

/// What the scaler should give, pixel by pixel, in floating point.
class Reference {
  public:
    Reference(const MemorySource& source, const ScaleJob& job) : source_(source), job_(job) {
        for (int x = 0; x < job.width; ++x) {
            across_.push_back(shares(job.source.width, job.width, x));
        }
        for (int y = 0; y < job.height; ++y) {
            down_.push_back(shares(job.source.height, job.height, y));
        }
    }

    double at(int x, int y, int channel) const {
        double sum = 0;
        for (const auto& [row, rowShare] : down_[static_cast<std::size_t>(y)]) {
            for (const auto& [column, share] : across_[static_cast<std::size_t>(x)]) {
                sum +=
                    rowShare * share * source_.at(job_.source.left + column, job_.source.top + row, channel);
            }
        }
        return sum;
    }

  private:
    const MemorySource& source_;
    ScaleJob job_;
    std::vector<Shares> across_, down_;
};

Pixels scaled(const ScaleJob& job, RowSource& source) {
    Pixels target(job.visible.width, job.visible.height);
    scalePicture(job, source, {target.data.data(), 1, target.width});
    return target;
}

ScaleJob wholeJob(int sourceWidth, int sourceHeight, int width, int height) {
    return {{0, 0, sourceWidth, sourceHeight}, width, height, {0, 0, width, height}};
}

struct Size {
    int sourceWidth, sourceHeight, width, height;
};

class AreaAverage : public testing::TestWithParam<Size> {};

TEST_P(AreaAverage, EqualsSlowReference) {
    const Size& s = GetParam();
    std::mt19937 random(7);
    MemorySource source(s.sourceWidth, s.sourceHeight,
                        [&](int, int, int) { return static_cast<int>(random() & 0xFF); });
    const ScaleJob job = wholeJob(s.sourceWidth, s.sourceHeight, s.width, s.height);
    const Pixels target = scaled(job, source);
    const Reference reference(source, job);
    double worst = 0;
    for (int y = 0; y < s.height; ++y) {
        for (int x = 0; x < s.width; ++x) {
            for (int channel = 0; channel < 3; ++channel) {
                const double expected = reference.at(x, y, channel);
                worst = std::max(worst, std::abs(channelOf(target.row(y)[x], channel) - expected));
            }
            EXPECT_EQ(target.row(y)[x] >> 24, 0U);
        }
    }
    EXPECT_LE(worst, 0.75);  // half a level of rounding, the rest for whole-number weights
}

INSTANTIATE_TEST_SUITE_P(Sizes, AreaAverage,
                         testing::Values(Size{1, 1, 1, 1}, Size{7, 5, 7, 5}, Size{8, 6, 4, 3},
                                         Size{73, 73, 10, 10}, Size{100, 40, 33, 17}, Size{31, 64, 30, 63},
                                         Size{5, 300, 3, 1}, Size{600, 3, 1, 2}, Size{2, 9000, 2, 4},
                                         Size{3, 2, 10, 9}, Size{1, 1, 5, 4}, Size{20, 10, 21, 11},
                                         Size{40, 8, 13, 31}, Size{8, 40, 31, 13}));

TEST(AreaAverageLevels, FlatAreasStayExact) {
    for (const Size s : {Size{97, 89, 13, 11}, Size{9, 7, 31, 29}, Size{300, 3000, 2, 3}}) {
        for (const int level : {0, 1, 127, 128, 254, 255}) {
            MemorySource source(s.sourceWidth, s.sourceHeight, [&](int, int, int) { return level; });
            const Pixels target = scaled(wholeJob(s.sourceWidth, s.sourceHeight, s.width, s.height), source);
            const auto expected = static_cast<std::uint32_t>(level * 0x010101);
            EXPECT_TRUE(std::all_of(target.data.begin(), target.data.end(), [&](std::uint32_t pixel) {
                return pixel == expected;
            })) << level;
        }
    }
}

double psnr(double squares, std::size_t count) {
    return squares == 0 ? 100.0 : 10 * std::log10(255.0 * 255.0 * static_cast<double>(count) / squares);
}

struct Pattern {
    const char* name;
    int (*level)(int x, int y);
};

int zonePlate(int x, int y) {
    const double dx = x - 292;
    const double dy = y - 292;
    return static_cast<int>(127.5 + 127.5 * std::cos(3.14159265358979 * (dx * dx + dy * dy) / 584));
}
int fineLines(int x, int) {
    return x % 2 == 0 ? 255 : 0;
}
int threePixelLines(int x, int y) {
    return (x + y) % 3 == 0 ? 255 : 0;
}

class FinePatterns : public testing::TestWithParam<std::tuple<Pattern, double>> {};

TEST_P(FinePatterns, MatchExactMean) {
    constexpr int kSide = 584;
    const auto& [pattern, ratio] = GetParam();
    const int side = static_cast<int>(std::lround(kSide / ratio));
    const auto level = pattern.level;
    MemorySource source(kSide, kSide, [&](int x, int y, int) { return level(x, y); });
    const ScaleJob job = wholeJob(kSide, kSide, side, side);
    const Pixels target = scaled(job, source);
    const Reference reference(source, job);
    double squares = 0;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const double off = channelOf(target.row(y)[x], 1) - reference.at(x, y, 1);
            squares += off * off;
        }
    }
    EXPECT_GE(psnr(squares, target.data.size()), 50.0);
}

INSTANTIATE_TEST_SUITE_P(Ratios, FinePatterns,
                         testing::Combine(testing::Values(Pattern{"zone_plate", zonePlate},
                                                          Pattern{"lines", fineLines},
                                                          Pattern{"three_pixel_lines", threePixelLines}),
                                          testing::Values(4.0, 7.3)),
                         [](const auto& instance) {
                             return std::string(std::get<0>(instance.param).name) +
                                    (std::get<1>(instance.param) < 5 ? "_4" : "_7_3");
                         });

TEST(AreaAverageParts, VisiblePartEqualsPartOfWhole) {
    std::mt19937 random(11);
    MemorySource whole(203, 151, [&](int, int, int) { return static_cast<int>(random() & 0xFF); });
    for (const Size s : {Size{203, 151, 50, 40}, Size{203, 151, 300, 40}, Size{203, 151, 203, 151}}) {
        ScaleJob job = wholeJob(s.sourceWidth, s.sourceHeight, s.width, s.height);
        whole.nextRow = 0;
        const Pixels all = scaled(job, whole);
        job.visible = {7, 9, 31, 23};
        whole.nextRow = 0;
        const Pixels part = scaled(job, whole);
        for (int y = 0; y < part.height; ++y) {
            for (int x = 0; x < part.width; ++x) {
                ASSERT_EQ(part.row(y)[x], all.row(y + 9)[x + 7]) << x << "," << y;
            }
        }
    }
}

TEST(AreaAverageParts, ReadsOnlyWhatIsVisible) {
    MemorySource source(400, 300, [](int, int, int) { return 1; });
    ScaleJob job = wholeJob(400, 300, 100, 75);
    job.visible = {10, 20, 30, 40};
    scaled(job, source);
    EXPECT_EQ(source.left, 40);
    EXPECT_EQ(source.right, 160);
    EXPECT_EQ(source.firstRow, 80);
    EXPECT_EQ(source.nextRow, 240);
}

TEST(AreaAverageParts, SourcePartIsScaledAlone) {
    MemorySource source(100, 100,
                        [](int x, int y, int) { return x >= 20 && x < 60 && y >= 30 && y < 50 ? 200 : 0; });
    const Pixels target = scaled({{20, 30, 40, 20}, 13, 7, {0, 0, 13, 7}}, source);
    for (const std::uint32_t pixel : target.data) {
        EXPECT_EQ(pixel, 0xC8C8C8U);
    }
}

TEST(AreaAverageParts, StepsTurnTheResult) {
    MemorySource source(6, 4, [](int x, int y, int channel) { return 10 * y + x + 100 * (channel == 2); });
    const ScaleJob job = wholeJob(6, 4, 6, 4);
    const Pixels upright = scaled(job, source);
    source.nextRow = 0;
    Pixels turned(4, 6);
    scalePicture(job, source, {turned.data.data() + 3, 4, -1});
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 6; ++x) {
            EXPECT_EQ(turned.row(x)[3 - y], upright.row(y)[x]);
        }
    }
}

TEST(AreaAverageParts, FailureOfTheSourcePassesThrough) {
    class Failing : public RowSource {
        void read(int, int, int, int, std::uint8_t*, std::size_t) override {
            throw std::runtime_error("no rows");
        }
    };
    Failing source;
    EXPECT_THROW(scaled(wholeJob(10, 10, 5, 5), source), std::runtime_error);
}

/// The kernels have a vector form and a plain one; both must be the sum they say they are.
TEST(ScaleKernels, WeightedRowsAreTheirSums) {
    constexpr std::size_t kSamples = 48;
    constexpr std::size_t kStride = 64;
    std::mt19937 random(3);
    for (const int rows : {1, 2, 3, 8, 9}) {
        std::vector<std::uint8_t> bytes(kStride * static_cast<std::size_t>(rows));
        std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(random()); });
        std::vector<int> weights(static_cast<std::size_t>(rows), kWeightOne / rows);
        weights[0] += kWeightOne % rows;
        std::vector<WeightPair> pairs;
        for (std::size_t i = 0; i < weights.size(); i += 2) {
            pairs.push_back(weightPair(weights[i], i + 1 < weights.size() ? weights[i + 1] : 0));
        }
        std::vector<std::int32_t> sums(kSamples, 5);
        std::vector<std::int16_t> line(kSamples);
        weightedRows(bytes.data(), kStride, rows, pairs.data(), kSamples, nullptr, line.data());
        addWeightedRows(bytes.data(), kStride, rows, pairs.data(), kSamples, sums.data(), sums.data());
        for (std::size_t i = 0; i < kSamples; ++i) {
            int expected = 0;
            for (std::size_t row = 0; row < weights.size(); ++row) {
                expected += weights[row] * bytes[row * kStride + i];
            }
            EXPECT_EQ(sums[i], expected + 5);
            EXPECT_EQ(line[i], (expected + 64) >> 7);
        }
    }
}

}  // namespace
}  // namespace picture
