// The moments in which a film begins a show and in which its last frame takes its place, filmed from outside.
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

constexpr wchar_t kFilm[] = L"" PANORELL_TEST_DATA "/media/film_short.mpg";

class FilmCapture : public testing::Test {
  protected:
    FilmCapture() {
        folder_.add(L"1.jpg", {1, 1600, 900});
        folder_.add(L"3.jpg", {2, 1600, 900});
        copyFile(kFilm, folder_.file(L"2.mpg"));
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
    // The next picture may be caught in the middle of being painted as well.
    if (looks.size() > 1 && looks[looks.size() - 2] == Look::Torn) {
        looks.erase(looks.end() - 2);
    }
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

// A film that comes first is halted while its sound is faded in, for two seconds.
TEST(FirstFilm, StandsStillOnAFrameAndNotOnBlackBeforeItPlays) {
    PictureFolder folder;
    copyFile(kFilm, folder.file(L"1.mpg"));
    Panorell panorell;
    panorell.start(folder.path() + L" P=9 M=1 V=1 R=1");
    std::optional<int> standing;
    auto since = std::chrono::steady_clock::now();
    std::chrono::steady_clock::duration longest{};
    const auto playsOn = [&] {
        const picture::Pixels screen = captureScreen();
        const auto frame =
            support::filmFrame([&](int x, int y) { return screen.row(y)[x]; }, screen.width, screen.height);
        if (frame && frame != standing) {
            standing = frame;
            since = std::chrono::steady_clock::now();
        }
        if (standing && standing != support::kLastFrame) {
            longest = std::max(longest, std::chrono::steady_clock::now() - since);
        }
        return standing == support::kLastFrame;
    };
    ASSERT_TRUE(waitFor(playsOn, kPatience, "the film ends"));
    EXPECT_GT(longest, std::chrono::milliseconds(1000));
}

}  // namespace
}  // namespace program
