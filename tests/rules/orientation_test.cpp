#include "picture/orientation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace picture {
namespace {

constexpr std::uint32_t kUntouched = 0xFFFFFFFF;

Pixels fromText(const std::vector<std::string>& rows) {
    Pixels pixels(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
    for (int y = 0; y < pixels.height; ++y) {
        for (int x = 0; x < pixels.width; ++x) {
            pixels.row(y)[x] =
                static_cast<std::uint32_t>(rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]);
        }
    }
    return pixels;
}

std::vector<std::string> toText(const Pixels& pixels) {
    std::vector<std::string> rows;
    for (int y = 0; y < pixels.height; ++y) {
        std::string row;
        for (int x = 0; x < pixels.width; ++x) {
            row += static_cast<char>(pixels.row(y)[x]);
        }
        rows.push_back(row);
    }
    return rows;
}

/// The whole picture on a surface of its own.
Pixels makeUpright(const Pixels& stored, Orientation orientation) {
    const bool exchange = exchangesSides(orientation);
    Pixels upright(exchange ? stored.height : stored.width, exchange ? stored.width : stored.height);
    const StoredPart part = storedPart(orientation, {0, 0, upright.width, upright.height}, upright);
    for (int y = 0; y < part.visible.height; ++y) {
        const std::uint32_t* from = stored.row(y);
        for (int x = 0; x < part.visible.width; ++x) {
            *part.view.at(x, y) = from[x];
        }
    }
    return upright;
}

struct Case {
    unsigned value;
    std::vector<std::string> upright;
};

class EveryOrientation : public testing::TestWithParam<Case> {};

TEST_P(EveryOrientation, MakesUpright) {
    const auto orientation = orientationFromValue(GetParam().value);
    ASSERT_TRUE(orientation);
    const Pixels upright = makeUpright(fromText({"abc", "def"}), *orientation);
    EXPECT_EQ(toText(upright), GetParam().upright);
    EXPECT_EQ(exchangesSides(*orientation), GetParam().value >= 5);
}

/// A placed picture, cut off at each side of the surface in turn, shows what the whole one shows there.
TEST_P(EveryOrientation, VisiblePartLiesWhereTheWholeWould) {
    const auto orientation = *orientationFromValue(GetParam().value);
    Pixels stored(exchangesSides(orientation) ? 5 : 7, exchangesSides(orientation) ? 7 : 5);
    for (std::size_t i = 0; i < stored.data.size(); ++i) {
        stored.data[i] = static_cast<std::uint32_t>(i);
    }
    const Pixels upright = makeUpright(stored, orientation);
    for (const Placement& placement : {Placement{0, 0, 7, 5}, Placement{-2, 1, 7, 5}, Placement{3, -1, 7, 5},
                                       Placement{2, 3, 7, 5}, Placement{-1, -2, 7, 5}}) {
        Pixels surface(6, 6);
        std::fill(surface.data.begin(), surface.data.end(), kUntouched);
        const StoredPart part = storedPart(orientation, placement, surface);
        EXPECT_EQ(part.width, stored.width);
        EXPECT_EQ(part.height, stored.height);
        for (int y = 0; y < part.visible.height; ++y) {
            for (int x = 0; x < part.visible.width; ++x) {
                *part.view.at(x, y) = stored.row(part.visible.top + y)[part.visible.left + x];
            }
        }
        for (int y = 0; y < surface.height; ++y) {
            for (int x = 0; x < surface.width; ++x) {
                const int fromX = x - placement.left;
                const int fromY = y - placement.top;
                const bool covered = fromX >= 0 && fromY >= 0 && fromX < 7 && fromY < 5;
                ASSERT_EQ(surface.row(y)[x], covered ? upright.row(fromY)[fromX] : kUntouched)
                    << x << "," << y << " placed at " << placement.left << "," << placement.top;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Values, EveryOrientation,
                         testing::Values(Case{1, {"abc", "def"}}, Case{2, {"cba", "fed"}},
                                         Case{3, {"fed", "cba"}}, Case{4, {"def", "abc"}},
                                         Case{5, {"ad", "be", "cf"}}, Case{6, {"da", "eb", "fc"}},
                                         Case{7, {"fc", "eb", "da"}}, Case{8, {"cf", "be", "ad"}}),
                         [](const auto& instance) {
                             return "value_" + std::to_string(instance.param.value);
                         });

TEST(Orientation, OtherValuesMeanNothing) {
    for (const unsigned value : {0U, 9U, 65535U, 0xFFFFFFFFU}) {
        EXPECT_FALSE(orientationFromValue(value)) << value;
    }
}

TEST(Orientation, PictureBesideTheSurfaceShowsNothing) {
    Pixels surface(6, 6);
    for (const Placement& placement :
         {Placement{6, 0, 7, 5}, Placement{-7, 0, 7, 5}, Placement{0, 6, 7, 5}, Placement{0, 0, 0, 0}}) {
        EXPECT_EQ(storedPart(Orientation::Turn90, placement, surface).visible, Placement{});
    }
}

}  // namespace
}  // namespace picture
