// Every effect of the real program, filmed: the screen holds the old and the new picture and nothing else at
// any moment, and the new one gains ground.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "program/support/compare.h"
#include "program/support/files.h"
#include "program/support/input.h"
#include "program/support/panorell.h"
#include "program/support/picture_file.h"
#include "program/support/screen.h"
#include "ui/control_ids.h"

namespace program {
namespace {

namespace id = ui::id;

constexpr int kPictures = 3;
constexpr std::array<std::uint32_t, kPictures> kColours = {0xC03020, 0x30B040, 0x3050C0};
constexpr int kShots = 5;

/// How much of the screen each of the colours covers, and what is none of them.
struct Shares {
    std::array<double, kPictures> of{};
    double other = 0;
};

Shares shares() {
    const picture::Pixels screen = captureScreen();
    std::array<int, kPictures> counts{};
    int others = 0;
    for (const std::uint32_t pixel : screen.data) {
        std::size_t i = 0;
        while (i < kColours.size() && !similar(pixel, kColours[i])) {
            ++i;
        }
        ++(i < kColours.size() ? counts[i] : others);
    }
    Shares result;
    const auto all = static_cast<double>(screen.data.size());
    for (std::size_t i = 0; i < kColours.size(); ++i) {
        result.of[i] = counts[i] / all;
    }
    result.other = others / all;
    return result;
}

class EffectFilm : public testing::Test {
  protected:
    void startShow() {
        for (std::size_t i = 0; i < kColours.size(); ++i) {
            const SIZE screen = screenSize();
            picture::Pixels picture(screen.cx, screen.cy);
            std::fill(picture.data.begin(), picture.data.end(), kColours[i]);
            writeJpeg(folder_.file(std::to_wstring(i) + L".jpg"), picture);
        }
        panorell_.keepShow(folder_.path(), {L"60", L"1", L"1"});
        ASSERT_TRUE(panorell_.openSetUp());
        ASSERT_TRUE(panorell_.clickOn(id::kRun));
        ASSERT_TRUE(waitFor([] { return shares().of[0] == 1.0; }, kPatience, "the first picture stands"));
    }

    TemporaryFolder folder_;
    Panorell panorell_;
};

TEST_F(EffectFilm, NothingButTheTwoPicturesIsEverSeen) {
    startShow();
    std::size_t old = 0;
    for (wchar_t letter = L'a'; letter <= L'z'; ++letter) {
        SCOPED_TRACE(static_cast<char>(letter));
        const std::size_t next = (old + 1) % kPictures;
        const std::size_t before = (old + 2) % kPictures;
        ASSERT_TRUE(typeText(panorell_.form(), std::wstring(1, letter)));
        ASSERT_TRUE(pressKey(panorell_.form(), VK_RIGHT));
        double gained = 0;
        bool underWay = false;
        int shots = 0;
        ASSERT_TRUE(waitFor(
            [&] {
                const Shares now = shares();
                EXPECT_EQ(now.other, 0.0);
                // The key completes the transition that still runs.
                EXPECT_TRUE(now.of[before] == 0.0 || now.of[next] == 0.0);
                EXPECT_GE(now.of[next], gained);
                gained = now.of[next];
                underWay = underWay || (gained > 0 && gained < 1);
                shots += gained > 0 ? 1 : 0;
                return gained == 1.0 || (shots >= kShots && underWay);
            },
            kPatience, "the effect runs"));
        EXPECT_EQ(underWay, letter != L'a' && letter != L'z');
        old = next;
    }
    ASSERT_TRUE(waitFor([&] { return shares().of[old] == 1.0; }, kPatience, "the last picture stands"));
}

}  // namespace
}  // namespace program
