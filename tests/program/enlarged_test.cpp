// An item of the overview shown large by the real program: pictures, a film that plays, and the ways on and
// out.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

#include "program/support/compare.h"
#include "program/support/files.h"
#include "program/support/input.h"
#include "program/support/overview_test_base.h"
#include "program/support/screen.h"
#include "show/fit_rule.h"
#include "support/film_frame.h"
#include "ui/control_ids.h"

namespace program {
namespace {

namespace id = ui::id;

constexpr int kClose = id::kCommand;
constexpr int kBack = id::kCommand + 1;
constexpr int kPlay = id::kCommand + 3;

class EnlargedTest : public OverviewTest {
  protected:
    Control box() const { return control(form(), id::kOverviewPic3); }
    testing::AssertionResult enlarge(int index) const {
        const auto first = clickAt(middle(index));
        return first ? clickAt(middle(index)) : first;
    }
    picture::Pixels large() const {
        const RECT place = box().rectangle();
        return cut(captureScreen(),
                   {static_cast<int>(place.left), static_cast<int>(place.top),
                    static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top)});
    }
    testing::AssertionResult showsLarge(const TestPicture& picture) const {
        const auto shows = [&] {
            if (!box().visible()) {
                return false;
            }
            constexpr double kAlike = 26;
            const picture::Pixels seen = large();
            return psnr(seen, drawFitted(picture, seen.width, seen.height)) > kAlike;
        };
        return waitFor(shows, kPatience, "picture " + std::to_string(picture.number) + " large");
    }
    /// Which frame of a film of 352 x 288 stands in the box.
    std::optional<int> frame() const {
        if (!box().visible()) {
            return std::nullopt;
        }
        const picture::Pixels seen = large();
        const show::PixelRect film = show::fitPicture(352, 288, seen.width, seen.height);
        return support::filmFrame(
            [&](int x, int y) {
                return seen.row(std::clamp(film.top + y, 0,
                                           seen.height - 1))[std::clamp(film.left + x, 0, seen.width - 1)];
            },
            film.width, film.height);
    }
    /// Waits for a frame between two numbers.
    testing::AssertionResult comesToFrame(int first, int last) const {
        std::optional<int> seen;
        const auto result = waitFor(
            [&] {
                seen = frame();
                return seen && *seen >= first && *seen <= last;
            },
            kPatience, "a frame");
        return result ? result : testing::AssertionFailure() << "frame " << seen.value_or(-1);
    }
    testing::AssertionResult closes() const {
        return waitFor([&] { return !box().visible(); }, kPatience, "the big box goes");
    }
    static void addFilm(const PictureFolder& folder, const std::wstring& name) {
        std::string film = PANORELL_TEST_DATA "/media/film_352x288.mpg";
        std::replace(film.begin(), film.end(), '/', '\\');
        copyFile(std::wstring(film.begin(), film.end()), folder.file(name));
    }
};

TEST_F(EnlargedTest, ADoubleClickEnlargesAndTheArrowKeysLeadOn) {
    PictureFolder folder(2);
    folder.add(pictureName(3), {3, 1600, 600});
    open(folder);
    ASSERT_TRUE(becomes(folder, {1, 2, 3}));
    EXPECT_FALSE(box().visible());
    ASSERT_TRUE(enlarge(1));
    ASSERT_TRUE(showsLarge(folder.pictures()[1]));
    const RECT large = box().rectangle();
    EXPECT_NEAR(3 * (large.right - large.left), 4 * (large.bottom - large.top), 8);
    EXPECT_FALSE(control(form(), id::kGrid).enabled()) << "the thumbnails take nothing meanwhile";
    EXPECT_FALSE(control(form(), kPlay).visible()) << "nothing to play";

    ASSERT_TRUE(pressKey(form(), VK_RIGHT));
    ASSERT_TRUE(showsLarge(folder.pictures()[2])) << "with black above and below";
    ASSERT_TRUE(pressKey(form(), VK_RIGHT));
    ASSERT_TRUE(pressKey(form(), VK_LEFT));
    ASSERT_TRUE(showsLarge(folder.pictures()[1])) << "there is nothing behind the last one";
    ASSERT_TRUE(pressKey(form(), VK_UP));
    ASSERT_TRUE(showsLarge(folder.pictures()[0]));

    ASSERT_TRUE(click(control(form(), kClose)));
    ASSERT_TRUE(closes());
    ASSERT_TRUE(movePointer(beside()));
    EXPECT_TRUE(becomes(folder, {1, 2, 3}));
    EXPECT_TRUE(control(form(), id::kGrid).enabled());
}

TEST_F(EnlargedTest, EscapeClosesTheViewAndThenNothing) {
    PictureFolder folder(2);
    open(folder);
    ASSERT_TRUE(becomes(folder, {1, 2}));
    ASSERT_TRUE(enlarge(0));
    ASSERT_TRUE(showsLarge(folder.pictures()[0]));
    ASSERT_TRUE(pressKey(form(), VK_ESCAPE));
    ASSERT_TRUE(closes());
    ASSERT_TRUE(pressKey(form(), VK_ESCAPE));
    ASSERT_TRUE(pressKey(form(), VK_RETURN)) << "the selection is the item that was enlarged";
    ASSERT_TRUE(showsLarge(folder.pictures()[0])) << "the overview is still there";
    ASSERT_TRUE(pressKey(form(), VK_ESCAPE));
    ASSERT_TRUE(closes());
    EXPECT_TRUE(panorell_.running());
}

TEST_F(EnlargedTest, AFilmPlaysStandsStillAndGoesOn) {
    PictureFolder folder(1);
    addFilm(folder, L"bild02.mpg");
    folder.add(pictureName(3), {3, 800, 600});
    open(folder);
    ASSERT_TRUE(becomes(folder, {1, 0, 3}));
    ASSERT_TRUE(enlarge(1));
    constexpr int kLastNumbered = 73;
    ASSERT_TRUE(comesToFrame(1, kLastNumbered)) << "it plays by itself";

    ASSERT_TRUE(click(control(form(), kBack)));
    ASSERT_TRUE(comesToFrame(0, 3));
    // The pause may still be on its way at the first look.
    std::optional<int> still;
    EXPECT_TRUE(waitFor(
        [&] {
            const auto before = std::exchange(still, frame());
            return still && before == still;
        },
        kPatience, "it stands still"));
    EXPECT_TRUE(stays([&] { return frame() == still; }, std::chrono::seconds(1), "it stands still"));
    EXPECT_LE(still.value_or(kLastNumbered), 3) << "at its beginning";

    ASSERT_TRUE(click(control(form(), kPlay)));
    ASSERT_TRUE(comesToFrame(*still + 2, kLastNumbered));

    ASSERT_TRUE(pressKey(form(), VK_RIGHT));
    ASSERT_TRUE(showsLarge(folder.pictures()[1])) << "from a film to a picture";
    ASSERT_TRUE(pressKey(form(), VK_LEFT));
    ASSERT_TRUE(comesToFrame(1, kLastNumbered));
    ASSERT_TRUE(pressKey(form(), VK_ESCAPE));
    ASSERT_TRUE(closes());
    ASSERT_TRUE(movePointer(beside()));
    EXPECT_TRUE(becomes(folder, {1, 0, 3}));
    const RECT place = boxes()[1];
    const picture::Pixels thumbnail =
        cut(captureScreen(),
            {static_cast<int>(place.left), static_cast<int>(place.top),
             static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top)});
    EXPECT_GT(shareOf(thumbnail, 0xFF0000, 12), 0.0001) << "the mark of a film";
}

}  // namespace
}  // namespace program
