// What is seen on the screen, frame by frame, while the program starts and while a show begins.
#include <gtest/gtest.h>

#include "program/support/compare.h"
#include "program/support/input.h"
#include "program/support/panorell.h"
#include "program/support/picture_folder.h"
#include "program/support/screen.h"
#include "program/support/show_watch.h"
#include "ui/control_ids.h"

namespace program {
namespace {

namespace id = ui::id;

constexpr std::uint32_t kHeadColour = 0x17263C;
constexpr int kExact = 4;

/// The part of the screen where the window lies.
picture::Pixels within(const picture::Pixels& screen, const RECT& window) {
    return cut(screen,
               {static_cast<int>(window.left), static_cast<int>(window.top),
                static_cast<int>(window.right - window.left), static_cast<int>(window.bottom - window.top)});
}

/// Watches the screen until a state is there, and once more then; how many frames `look` took for its own.
int watchUntil(const std::function<bool()>& done, const std::function<bool(const picture::Pixels&)>& look) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    int seen = 0;
    for (bool last = false; !last && std::chrono::steady_clock::now() < end;) {
        last = done();
        seen += look(captureScreen()) ? 1 : 0;
    }
    return seen;
}

// The head is there as soon as the window has painted anything at all.
TEST(Start, NoControlIsSeenBlack) {
    const PictureFolder folder(1, 800, 600);
    Panorell panorell;
    panorell.start(folder.path());
    double darkest = 0;
    const int frames = watchUntil(
        [&] { return panorell.inSetUpState() && panorell.at(id::kStart).enabled(); },
        [&](const picture::Pixels& screen) {
            const RECT window = panorell.form() != nullptr ? Control(panorell.form()).rectangle() : RECT{};
            if (IsRectEmpty(&window) ||
                !similar(screen.row(window.top + 2)[(window.left + window.right) / 2], kHeadColour, kExact)) {
                return false;
            }
            darkest = std::max(darkest, shareOf(within(screen, window), 0, kExact));
            return true;
        });
    EXPECT_GE(frames, 2);
    EXPECT_LT(darkest, 0.02) << "the share of black in a frame";
}

// One pixel is read far more often than the whole screen could be.
TEST(Start, TheSetUpIsNotSeenInACornerOfTheShow) {
    const PictureFolder folder(1, 800, 600);
    const ShowWatch watch(folder.pictures());
    Panorell panorell;
    ASSERT_TRUE(panorell.openSetUp(folder.path()));
    ASSERT_TRUE(waitFor([&] { return panorell.at(id::kRun).enabled(); }, kPatience, "the preview is there"));
    const POINT headOfAWindowInTheCorner{20, 66};
    ASSERT_GT(Control(panorell.form()).rectangle().left, headOfAWindowInTheCorner.x);
    const std::uint32_t desktop = colourAt(headOfAWindowInTheCorner);
    ASSERT_FALSE(similar(desktop, kHeadColour, kExact));
    panorell.at(id::kRun).press();
    int heads = 0;
    std::uint32_t seen = desktop;
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while ((seen == desktop || seen == 0 || similar(seen, kHeadColour, kExact)) &&
           std::chrono::steady_clock::now() < end) {
        seen = colourAt(headOfAWindowInTheCorner);
        heads += similar(seen, kHeadColour, kExact) ? 1 : 0;
    }
    EXPECT_EQ(heads, 0);
    EXPECT_TRUE(watch.comes(1));
}

}  // namespace
}  // namespace program
