// The moment in which a film ends and its last frame takes its place, filmed from outside.
#include <gtest/gtest.h>

#include <algorithm>

#include "program/support/compare.h"
#include "program/support/files.h"
#include "program/support/panorell.h"
#include "program/support/picture_folder.h"
#include "program/support/screen.h"
#include "program/support/show_watch.h"
#include "support/film_frame.h"
#include "ui/control_ids.h"

namespace program {
namespace {

/// What one look at the screen showed.
enum class Look { Before, Film, LastFrame, After, Black, Torn };

class FilmCapture : public testing::Test {
  protected:
    FilmCapture() {
        folder_.add(L"1.jpg", {1, 1600, 900});
        folder_.add(L"3.jpg", {2, 1600, 900});
        std::string data = PANORELL_TEST_DATA "/media/film_short.mpg";
        std::replace(data.begin(), data.end(), '/', '\\');
        copyFile(std::wstring(data.begin(), data.end()), folder_.file(L"2.mpg"));
    }

    static Look lookOf(const picture::Pixels& screen, const ShowWatch& watch) {
        switch (watch.recognise(screen)) {
            case 1:
                return Look::Before;
            case 2:
                return Look::After;
            case ShowWatch::kBlack:
                return Look::Black;
            default:
                break;
        }
        const auto frame =
            support::filmFrame([&](int x, int y) { return screen.row(y)[x]; }, screen.width, screen.height);
        // A film's window may be caught in the middle of being painted.
        return !frame ? Look::Torn : *frame == support::kLastFrame ? Look::LastFrame : Look::Film;
    }

    PictureFolder folder_;
    Panorell panorell_;
};

TEST_F(FilmCapture, TheLastFrameStandsUntilTheNextPictureAndNothingElseIsSeen) {
    panorell_.keepShow(folder_.path(), {L"2"});
    const ShowWatch watch(folder_.pictures());
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(panorell_.clickOn(ui::id::kRun));
    ASSERT_TRUE(watch.comes(1));
    std::vector<Look> looks;
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while ((looks.empty() || looks.back() != Look::After) && std::chrono::steady_clock::now() < end) {
        looks.push_back(lookOf(captureScreen(), watch));
    }
    ASSERT_EQ(looks.back(), Look::After);
    const auto count = [&](Look look) { return std::count(looks.begin(), looks.end(), look); };
    EXPECT_GT(count(Look::Film), 5) << "the film itself";
    EXPECT_GT(count(Look::LastFrame), 0);
    const auto film = std::find(looks.begin(), looks.end(), Look::Film);
    EXPECT_EQ(std::count(film, looks.end(), Look::Black), 0);
    EXPECT_EQ(std::count(film, looks.end(), Look::Before), 0) << "the picture before does not come up again";
    const auto last = std::find(looks.begin(), looks.end(), Look::LastFrame);
    EXPECT_EQ(std::count_if(last, looks.end(),
                            [](Look look) { return look != Look::LastFrame && look != Look::After; }),
              0);
}

}  // namespace
}  // namespace program
