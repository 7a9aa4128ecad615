// A running show of the real program, compared on the screen with the pictures it should show.
#include <gmock/gmock.h>

#include "program/support/compare.h"
#include "program/support/files.h"
#include "program/support/input.h"
#include "program/support/panorell.h"
#include "program/support/picture_folder.h"
#include "program/support/screen.h"
#include "program/support/show_watch.h"
#include "ui/control_ids.h"

namespace program {
namespace {

namespace id = ui::id;
using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::AllOf;
using testing::Ge;
using testing::Le;

/// A program whose first set shows this folder: plain cuts, no music.
class ShowTest : public testing::Test {
  protected:
    void useFolder(const PictureFolder& folder, const wchar_t* delay = L"1", const wchar_t* loop = L"0") {
        panorell_.keepShow(folder.path(), {delay, loop});
    }

    bool atEnd() const { return panorell_.at(id::kEOT).visible(); }

    testing::AssertionResult key(wchar_t character) {
        return typeText(panorell_.form(), std::wstring(1, character));
    }

    Panorell panorell_;
};

/// The length of every item's stand, from its coming to the next one's.
std::vector<milliseconds> stands(const std::vector<ShowWatch::Shown>& record) {
    std::vector<milliseconds> result;
    for (std::size_t i = 0; i + 1 < record.size(); ++i) {
        result.push_back(std::chrono::duration_cast<milliseconds>(record[i + 1].since - record[i].since));
    }
    return result;
}

TEST_F(ShowTest, TwelvePicturesWithPausesTitlesAndADamagedFile) {
    PictureFolder folder(12);
    folder.addDamaged(pictureName(6));
    folder.writeScript(
        "bild03 Am Strand *P=2\r\nbild05 \xDC"
        "bermut *P=1.5\r\nbild08  *P=2.5\r\n");
    useFolder(folder);
    const ShowWatch watch(folder.pictures());
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(panorell_.clickOn(id::kRun));
    ASSERT_TRUE(watch.comes(1));
    bool sawTitle = false;
    const auto record = watch.record(
        [&](int) {
            sawTitle =
                sawTitle || (panorell_.at(id::kUT).visible() && panorell_.at(id::kUT).text() == L"Übermut ");
            return atEnd();
        },
        seconds(40));
    ASSERT_EQ(numbers(record), (std::vector<int>{1, 2, 3, 4, 5, 7, 8, 9, 10, 11, 12}));
    EXPECT_TRUE(sawTitle);
    const auto length = stands(record);
    for (std::size_t i = 1; i < length.size(); ++i) {
        const int number = record[i].number;
        const int pause = number == 3 ? 2000 : number == 5 ? 1500 : number == 8 ? 2500 : 1000;
        EXPECT_THAT(length[i].count(), AllOf(Ge(pause - 250), Le(pause + 1400))) << "picture " << number;
    }
}

TEST_F(ShowTest, EveryShapeLiesWhereTheFitRulePutsIt) {
    PictureFolder folder;
    folder.add(L"1 quer.jpg", {1, 1600, 1200});
    folder.add(L"2 breit.jpg", {2, 1600, 800});
    folder.add(L"3 hoch.jpg", {3, 900, 1600});
    folder.add(L"4 fast.jpg", {4, 1600, 1150});
    folder.add(L"5 klein.jpg", {5, 450, 300});
    folder.add(L"6 panorama.jpg", {6, 6000, 500});
    useFolder(folder, L"60");
    const ShowWatch watch(folder.pictures());
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(panorell_.clickOn(id::kRun));
    for (const TestPicture& picture : folder.pictures()) {
        ASSERT_TRUE(watch.comes(picture.number));
        EXPECT_TRUE(watch.showsExactly(picture.number));
        ASSERT_TRUE(pressKey(panorell_.form(), VK_RIGHT));
    }
}

TEST_F(ShowTest, TheWindowIsTheScreenToThePixelAndThePointerIsHidden) {
    PictureFolder folder(2);
    useFolder(folder, L"60");
    const ShowWatch watch(folder.pictures());
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(panorell_.clickOn(id::kRun));
    ASSERT_TRUE(watch.comes(1));
    const SIZE screen = screenSize();
    const RECT form = Control(panorell_.form()).rectangle();
    const RECT surface = panorell_.at(id::kPic2).rectangle();
    for (const RECT& r : {form, surface}) {
        EXPECT_EQ(r.left, 0);
        EXPECT_EQ(r.top, 0);
        EXPECT_EQ(r.right, screen.cx);
        EXPECT_EQ(r.bottom, screen.cy);
    }
    for (const int hidden :
         {id::kDrive1, id::kDir1, id::kFile1, id::kStart, id::kRun, id::kSAVE, id::kHelp, id::kENDE,
          id::kLoopC, id::kOption1, id::kTyp, id::kIntT, id::kFrame1, id::kEOT, id::kCTRL, id::kLine1}) {
        EXPECT_FALSE(panorell_.at(hidden).visible()) << hidden;
    }
    EXPECT_EQ(focusIn(panorell_.form()), panorell_.at(id::kPic2).handle());
    EXPECT_TRUE(waitFor([] { return !pointerVisible(); }, kPatience, "the pointer is hidden"));
}

TEST_F(ShowTest, EndsWithTheLastPictureAndTheEndButtonInItsCentre) {
    PictureFolder folder(2);
    useFolder(folder);
    const ShowWatch watch(folder.pictures());
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(panorell_.clickOn(id::kRun));
    ASSERT_TRUE(watch.comes(2));
    ASSERT_TRUE(waitFor([&] { return atEnd(); }, kPatience, "the end button appears"));
    const POINT centre = panorell_.at(id::kEOT).centre();
    EXPECT_NEAR(centre.x, screenSize().cx / 2, 1);
    EXPECT_NEAR(centre.y, screenSize().cy / 2, 1);
    EXPECT_TRUE(stays([&] { return watch.now() == 2 && atEnd(); }, milliseconds(2500), "the end stands"));
    // Nothing follows the end, whatever arrow is pressed.
    ASSERT_TRUE(pressKey(panorell_.form(), VK_RIGHT));
    ASSERT_TRUE(pressKey(panorell_.form(), VK_UP));
    EXPECT_TRUE(stays([&] { return watch.now() == 2 && atEnd(); }, milliseconds(1500), "the end stands"));
    EXPECT_TRUE(panorell_.running());
}

TEST_F(ShowTest, BeginsAnewWhenItIsEndless) {
    PictureFolder folder(3);
    useFolder(folder, L"1", L"1");
    const ShowWatch watch(folder.pictures());
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(panorell_.clickOn(id::kRun));
    ASSERT_TRUE(watch.comes(1));
    const auto record = watch.record([](int) { return false; }, milliseconds(7500));
    const auto seen = numbers(record);
    ASSERT_GE(seen.size(), 6U) << testing::PrintToString(seen);
    for (std::size_t i = 0; i < seen.size(); ++i) {
        EXPECT_EQ(seen[i], static_cast<int>(i % 3) + 1) << testing::PrintToString(seen);
    }
    EXPECT_FALSE(atEnd());
}

TEST_F(ShowTest, LoadShowsOnePictureAndTheBlankKeyGoesOn) {
    PictureFolder folder(3);
    useFolder(folder);
    const ShowWatch watch(folder.pictures());
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(panorell_.clickOn(id::kStart));
    ASSERT_TRUE(watch.comes(1));
    EXPECT_TRUE(stays([&] { return watch.now() == 1; }, milliseconds(2500), "the first picture stands"));
    ASSERT_TRUE(key(L' '));
    EXPECT_TRUE(watch.comes(2));
    EXPECT_TRUE(watch.comes(3));
}

TEST_F(ShowTest, StartsWithTheSelectedPicture) {
    PictureFolder folder(5);
    Panorell panorell;
    const ShowWatch watch(folder.pictures());
    ASSERT_TRUE(panorell.openSetUp(folder.path() + L" P=60 M=0 L=3"));
    ASSERT_TRUE(panorell.clickOn(id::kRun));
    EXPECT_TRUE(watch.comes(4));
}

TEST_F(ShowTest, NothingButPicturesIsEverOnTheScreen) {
    PictureFolder folder(8);
    useFolder(folder);
    const ShowWatch watch(folder.pictures());
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(panorell_.clickOn(id::kRun));
    ASSERT_TRUE(watch.comes(1));
    const auto record = watch.record([](int number) { return number == 8; }, seconds(20));
    EXPECT_EQ(numbers(record), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(ShowTest, FilesThatVanishDuringTheShowAreSkipped) {
    PictureFolder folder(4);
    useFolder(folder, L"2");
    const ShowWatch watch(folder.pictures());
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(panorell_.clickOn(id::kRun));
    ASSERT_TRUE(watch.comes(1));
    ASSERT_TRUE(DeleteFileW(folder.file(pictureName(3)).c_str()));
    const auto record = watch.record([](int number) { return number == 4; }, seconds(20));
    EXPECT_EQ(numbers(record).front(), 1);
    EXPECT_EQ(numbers(record).back(), 4);
    EXPECT_THAT(numbers(record), testing::Not(testing::Contains(ShowWatch::kBlack)));
    EXPECT_TRUE(waitFor([&] { return responds(panorell_.form()); }, kPatience, "the program answers"));
}

TEST_F(ShowTest, AShowOfNothingButDamagedFilesStillEnds) {
    PictureFolder folder;
    for (int i = 1; i <= 4; ++i) {
        folder.addDamaged(pictureName(i));
    }
    useFolder(folder);
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(panorell_.clickOn(id::kRun));
    ASSERT_TRUE(waitFor([&] { return atEnd(); }, kPatience, "the end button appears"));
    EXPECT_TRUE(waitFor([&] { return responds(panorell_.form()); }, kPatience, "the program answers"));
    ASSERT_TRUE(click(panorell_.at(id::kEOT)));
    EXPECT_TRUE(panorell_.ends());
    EXPECT_EQ(panorell_.exitCode(), 0U);
}

TEST_F(ShowTest, TheScriptOfTheFirstPictureActs) {
    PictureFolder folder(2);
    folder.writeScript("bild01 Der Anfang *P=9\r\nbild02 Das Ende\r\n");
    useFolder(folder, L"2");
    const ShowWatch watch(folder.pictures());
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(panorell_.clickOn(id::kRun));
    ASSERT_TRUE(watch.comes(1));
    const Control title = panorell_.at(id::kUT);
    EXPECT_TRUE(
        waitFor([&] { return title.visible() && title.text() == L"Der Anfang "; }, kPatience, "title"));
    const RECT r = title.rectangle();
    EXPECT_NEAR(r.top, screenSize().cy - 2 * (r.bottom - r.top), 1);
    // The automatic start replaces the first picture's own pause by the general one.
    EXPECT_TRUE(watch.comes(2, seconds(4)));
    EXPECT_TRUE(waitFor([&] { return title.text() == L"Das Ende"; }, kPatience, "next title"));
}

TEST_F(ShowTest, LargePicturesStayWithinMemory) {
    PictureFolder folder;
    folder.add(pictureName(1), {1, 6000, 4000});
    folder.add(pictureName(2), {2, 6000, 4000});
    for (int i = 3; i <= 12; ++i) {
        copyFile(folder.file(pictureName(2 - i % 2)), folder.file(pictureName(i)));
    }
    useFolder(folder);
    const ShowWatch watch(folder.pictures());
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(panorell_.clickOn(id::kRun));
    ASSERT_TRUE(watch.comes(1));
    EXPECT_TRUE(watch.showsExactly(1));
    ASSERT_TRUE(waitFor([&] { return atEnd(); }, seconds(40), "the show ends"));
    EXPECT_LT(panorell_.memory().peak, 250U << 20) << (panorell_.memory().peak >> 20) << " MB";
}

}  // namespace
}  // namespace program
