#include "ui/vector_path.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numbers>

namespace {

struct Drawing {
    int width;
    int height;
    std::vector<std::uint32_t> bits;

    Drawing(int w, int h) : width(w), height(h), bits(static_cast<std::size_t>(w * h)) {}
    ui::Canvas canvas(int originX = 0, int originY = 0) {
        return {bits.data(), width, height, originX, originY};
    }
    std::uint32_t at(int x, int y) const { return bits[static_cast<std::size_t>(y * width + x)]; }
    double area() const {
        double sum = 0;
        for (const std::uint32_t pixel : bits) {
            sum += (pixel & 0xFF) / 255.0;
        }
        return sum;
    }
};

TEST(VectorPath, WholePixelsAreFilledExactly) {
    Drawing drawing(10, 8);
    fill(drawing.canvas(), ui::Path().rect(2, 3, 5, 4), 0xFFFFFF);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 10; ++x) {
            const bool inside = x >= 2 && x < 7 && y >= 3 && y < 7;
            EXPECT_EQ(drawing.at(x, y), inside ? 0xFFFFFFU : 0U) << x << "," << y;
        }
    }
}

TEST(VectorPath, AWhollyCoveredPixelIsWhatMixingWouldGive) {
    const std::uint32_t grounds[] = {0, 0xFFFFFF, 0xFF123456, 0x80FEDC01};
    const ui::Rgb colours[] = {0, 0xFFFFFF, 0x00A1B2C3, 0xFF654321};
    for (const std::uint32_t ground : grounds) {
        for (const ui::Rgb colour : colours) {
            for (const float opacity : {1.0F, 0.999F, 0.5F, 0.0F}) {
                Drawing drawing(3, 2);
                std::fill(drawing.bits.begin(), drawing.bits.end(), ground);
                fill(drawing.canvas(), ui::Path().rect(0, 0, 2, 2), colour, opacity);
                EXPECT_EQ(drawing.at(1, 1), ui::blend(ground & 0xFFFFFF, colour, opacity))
                    << std::hex << ground << " " << colour << " " << opacity;
                EXPECT_EQ(drawing.at(2, 1), ground) << "beside the shape";
            }
        }
    }
}

TEST(VectorPath, HalfCoveredPixelsAreHalfTheColour) {
    Drawing drawing(3, 3);
    fill(drawing.canvas(), ui::Path().rect(0.5F, 1, 1, 1), 0xFF8000);
    EXPECT_EQ(drawing.at(0, 1), 0x804000U);
    EXPECT_EQ(drawing.at(1, 1), 0x804000U);
    EXPECT_EQ(drawing.at(2, 1), 0U);
}

struct AreaCase {
    const char* name;
    ui::Path path;
    double area;
};

TEST(VectorPath, AreasAreThoseOfTheShapes) {
    constexpr double pi = std::numbers::pi;
    const AreaCase cases[] = {
        {"circle", ui::Path().roundRect(30, 30, 40, 40, 20), pi * 400},
        {"rounded", ui::Path().roundRect(10, 10, 60, 40, 10), 2400 - (4 - pi) * 100},
        {"outline", ui::Path().roundRectOutline(10, 10, 60, 40, 0, 2), 2400 - 56 * 36},
        {"line", ui::Path().line({20, 20}, {80, 20}, 6), 360 + pi * 9},
        {"line back", ui::Path().line({80, 70}, {20, 20}, 6), 78.102 * 6 + pi * 9},
        {"triangle", ui::Path().polygon({{10, 10}, {90, 10}, {10, 90}}), 3200},
        {"triangle turned", ui::Path().polygon({{10, 90}, {90, 10}, {10, 10}}), 3200},
        {"quarter arc", ui::Path().arc(50, 50, 30, 0, 90, 4), pi * 30 / 2 * 4 + pi * 4},
        {"two that overlap", ui::Path().rect(10, 10, 20, 20).rect(20, 10, 20, 20), 600},
        {"scaled", ui::Path().add(ui::Path().rect(0, 0, 10, 10), 2.5F, 5, 5), 625},
    };
    for (const AreaCase& one : cases) {
        Drawing drawing(100, 100);
        fill(drawing.canvas(), one.path, 0xFFFFFF);
        EXPECT_NEAR(drawing.area(), one.area, one.area * 0.01 + 1) << one.name;
    }
}

TEST(VectorPath, APartOfAShapeIsTheSameAsThatPartOfTheWhole) {
    const ui::Path path = ui::Path().roundRect(5, 10, 50, 40, 18).line({0, 0}, {60, 55}, 3);
    Drawing whole(60, 60);
    fill(whole.canvas(), path, 0x123456);
    Drawing part(20, 15);
    fill(part.canvas(25, 40), path, 0x123456);
    for (int y = 0; y < 15; ++y) {
        for (int x = 0; x < 20; ++x) {
            EXPECT_EQ(part.at(x, y), whole.at(x + 25, y + 40)) << x << "," << y;
        }
    }
}

TEST(VectorPath, ShapesBeyondTheCanvasAreCutAndAnEmptyCanvasIsLeftAlone) {
    Drawing drawing(4, 4);
    fill(drawing.canvas(), ui::Path().rect(-100, -100, 1000, 1000), 0xABCDEF);
    EXPECT_EQ(drawing.at(0, 0), 0xABCDEFU);
    EXPECT_EQ(drawing.at(3, 3), 0xABCDEFU);
    fill(drawing.canvas(), ui::Path().rect(10, 10, 5, 5), 0);
    fill(drawing.canvas(), ui::Path().rect(-10, -10, 5, 5), 0);
    EXPECT_EQ(drawing.at(3, 3), 0xABCDEFU);
    fill(ui::Canvas{}, ui::Path().rect(0, 0, 5, 5), 0);
}

TEST(VectorPath, ColoursAreBlendedByShare) {
    EXPECT_EQ(ui::blend(0x000000, 0xFFFFFF, 0), 0U);
    EXPECT_EQ(ui::blend(0x000000, 0xFFFFFF, 1), 0xFFFFFFU);
    EXPECT_EQ(ui::blend(0x102030, 0x304050, 0.5F), 0x203040U);
}

}  // namespace
