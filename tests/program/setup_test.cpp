// The set-up window of the real program: what it shows when it starts, and that it keeps its settings.
#include <gmock/gmock.h>

#include "program/support/files.h"
#include "program/support/input.h"
#include "program/support/panorell.h"
#include "program/support/picture_folder.h"
#include "ui/control_ids.h"

namespace program {
namespace {

namespace id = ui::id;
using testing::ElementsAre;
using testing::IsEmpty;

testing::AssertionResult lists(const Panorell& panorell, const std::vector<std::wstring>& expected) {
    std::vector<std::wstring> seen;
    const auto result =
        waitFor([&] { return (seen = panorell.at(id::kFile1).items()) == expected; }, kPatience, "list");
    return result ? result : testing::AssertionFailure() << "File1 lists " << testing::PrintToString(seen);
}

/// A drive as the drive list and the settings file give it, in capitals.
std::wstring drive(std::wstring text) {
    text.resize(2);
    CharUpperW(text.data());
    return text;
}

std::wstring withoutMnemonic(std::wstring caption) {
    std::erase(caption, L'&');
    return caption;
}

TEST(SetUp, StartsWithTheDefaultsWhenThereIsNoSettingsFile) {
    Panorell panorell;
    ASSERT_TRUE(panorell.openSetUp());
    EXPECT_EQ(panorell.at(id::kIntT).text(), L"5");
    EXPECT_EQ(panorell.at(id::kIntS).position(), 56);
    EXPECT_EQ(panorell.at(id::kLoopC).checkState(), 0);
    EXPECT_EQ(panorell.at(id::kShowFN).checkState(), 0);
    EXPECT_EQ(panorell.at(id::kMUTE).checkState(), 1);
    EXPECT_EQ(panorell.at(id::kMusik).checkState(), 1);
    EXPECT_EQ(panorell.at(id::kCheck1).checkState(), 1);
    EXPECT_EQ(panorell.at(id::kScreen2).checkState(), 0);
    EXPECT_EQ(panorell.chosenSet(), 1);
    EXPECT_EQ(panorell.at(id::kTyp).checkState(), 1);
    EXPECT_EQ(drive(panorell.at(id::kDrive1).text()), L"C:");
    ASSERT_THAT(panorell.at(id::kDir1).items(), testing::Not(IsEmpty()));
    EXPECT_EQ(panorell.at(id::kDir1).items().front(), L"C:\\");
    EXPECT_FALSE(exists(panorell.settingsFile()));
}

TEST(SetUp, ShowsItsControlsAndHidesThoseOfTheShow) {
    Panorell panorell;
    ASSERT_TRUE(panorell.openSetUp());
    for (const int shown :
         {id::kDrive1,  id::kDir1,   id::kFile1,   id::kTyp,         id::kTyp + 1, id::kTyp + 2, id::kIntT,
          id::kIntS,    id::kLabel2, id::kLoopC,   id::kShowFN,      id::kCheck1,  id::kMusik,   id::kMUTE,
          id::kScreen2, id::kFrame1, id::kOption1, id::kOption1 + 3, id::kRun,     id::kStart,   id::kCTRL,
          id::kSAVE,    id::kHelp,   id::kENDE,    id::kLabel1,      id::kPic3}) {
        EXPECT_TRUE(panorell.at(shown).visible()) << shown;
    }
    for (const int hidden : {id::kEOT, id::kUT, id::kText1, id::kPic1, id::kFile2}) {
        EXPECT_TRUE(panorell.at(hidden).exists()) << hidden;
        EXPECT_FALSE(panorell.at(hidden).visible()) << hidden;
    }
    const std::vector<std::pair<int, std::wstring>> captions = {
        {id::kTyp, L"alle"},       {id::kTyp + 1, L"jpg"},     {id::kTyp + 2, L"mpg"},
        {id::kLabel2, L"Sek"},     {id::kLoopC, L"Endlos"},    {id::kShowFN, L"Datum"},
        {id::kCheck1, L"Effekte"}, {id::kMusik, L"Musik"},     {id::kMUTE, L"Video-Ton"},
        {id::kFrame1, L"Set"},     {id::kStart, L"Load"},      {id::kHelp, L"Info"},
        {id::kEOT, L"Ende"},       {id::kLabel1, L"Panorell"},
    };
    for (const auto& [control, caption] : captions) {
        EXPECT_EQ(withoutMnemonic(panorell.at(control).text()), caption) << control;
    }
}

TEST(SetUp, EveryControlLiesInsideTheWindow) {
    Panorell panorell;
    ASSERT_TRUE(panorell.openSetUp());
    const RECT form = Control(panorell.form()).rectangle();
    for (int control = id::kDrive1; control <= id::kLine2; ++control) {
        if (!panorell.at(control).visible()) {
            continue;
        }
        const RECT r = panorell.at(control).rectangle();
        EXPECT_TRUE(r.left >= form.left && r.top >= form.top && r.right <= form.right &&
                    r.bottom <= form.bottom)
            << control;
        EXPECT_TRUE(r.right > r.left && r.bottom > r.top) << control;
    }
}

TEST(SetUp, ThePauseTimeHasTwoViewsThatStayInStep) {
    Panorell panorell;
    ASSERT_TRUE(panorell.openSetUp());
    struct Case {
        const wchar_t* typed;
        const wchar_t* text;
        int position;
    };
    for (const Case& c :
         {Case{L"12", L"12", 49}, Case{L"60", L"60", 1}, Case{L"75", L"60", 1}, Case{L"1", L"1", 60}}) {
        ASSERT_TRUE(panorell.retype(id::kIntT, c.typed));
        EXPECT_TRUE(waitFor([&] { return panorell.at(id::kIntS).position() == c.position; }, kPatience,
                            "the bar follows"))
            << testing::PrintToString(std::wstring(c.typed)) << " gives "
            << panorell.at(id::kIntS).position();
        EXPECT_EQ(panorell.at(id::kIntT).text(), c.text);
    }
}

TEST(SetUp, ListsWhatTheFilterAsksFor) {
    PictureFolder folder;
    for (const wchar_t* name : {L"bild10.jpg", L"bild2.JPG", L"Größe [1] ü.jpg", L"a b.jpg"}) {
        folder.add(name, {1, 64, 48});
    }
    for (const wchar_t* name : {L"film.mpg", L"no.jpgx", L"no.jpeg", L"no.txt", L"lied.mp3"}) {
        writeBytes(folder.file(name), "x");
    }
    folder.add(L"versteckt.jpg", {2, 64, 48});
    hide(folder.file(L"versteckt.jpg"));
    Panorell panorell;
    ASSERT_TRUE(panorell.openSetUp(folder.path()));
    EXPECT_TRUE(lists(panorell, {L"a b.jpg", L"bild2.JPG", L"bild10.jpg", L"film.mpg", L"Größe [1] ü.jpg"}));
    EXPECT_THAT(panorell.at(id::kFile2).items(), ElementsAre(L"lied.mp3"));
    ASSERT_TRUE(panorell.clickOn(id::kTyp + 2));
    EXPECT_TRUE(lists(panorell, {L"film.mpg"}));
    ASSERT_TRUE(panorell.clickOn(id::kTyp + 1));
    EXPECT_TRUE(lists(panorell, {L"a b.jpg", L"bild2.JPG", L"bild10.jpg", L"Größe [1] ü.jpg"}));
}

TEST(SetUp, KeepsTheSettingsOfEverySet) {
    PictureFolder folder(3, 64, 48);
    Panorell panorell;
    ASSERT_TRUE(panorell.openSetUp(folder.path()));
    ASSERT_TRUE(panorell.retype(id::kIntT, L"23"));
    ASSERT_TRUE(panorell.setTick(id::kLoopC, true));
    ASSERT_TRUE(panorell.setTick(id::kMUTE, false));
    ASSERT_TRUE(panorell.clickOn(id::kSAVE));
    const auto kept = [&](const wchar_t* set, const wchar_t* key) {
        return iniValue(panorell.settingsFile(), set, key);
    };
    ASSERT_TRUE(waitFor([&] { return kept(L"Set1", L"Effekte") == L"1"; }, kPatience, "set 1 is kept"));
    EXPECT_EQ(kept(L"Set1", L"Dir"), folder.path());
    EXPECT_EQ(kept(L"Set1", L"Delay"), L"23");
    EXPECT_EQ(kept(L"Set1", L"Loop"), L"1");
    EXPECT_EQ(kept(L"Set1", L"Date"), L"0");
    EXPECT_EQ(kept(L"Set1", L"Sound"), L"0");
    EXPECT_EQ(kept(L"Set1", L"Music"), L"1");
    EXPECT_EQ(drive(kept(L"Set1", L"Drive")), L"C:");

    // The middle of the option is already its digit.
    ASSERT_TRUE(panorell.clickOn(id::kOption1 + 2));
    EXPECT_TRUE(
        waitFor([&] { return panorell.at(id::kIntT).text() == L"5"; }, kPatience, "set 3 has the defaults"));
    EXPECT_TRUE(waitFor([&] { return panorell.chosenSet() == 3; }, kPatience, "button 3"));
    EXPECT_EQ(panorell.at(id::kLoopC).checkState(), 0);
    EXPECT_EQ(panorell.at(id::kMUTE).checkState(), 1);
    EXPECT_EQ(kept(L"Set3", L"Delay"), L"(missing)");

    ASSERT_TRUE(panorell.clickOn(id::kOption1));
    EXPECT_TRUE(
        waitFor([&] { return panorell.at(id::kIntT).text() == L"23"; }, kPatience, "set 1 comes back"));
    EXPECT_EQ(panorell.at(id::kIntS).position(), 38);
    EXPECT_EQ(panorell.at(id::kLoopC).checkState(), 1);
    EXPECT_EQ(panorell.at(id::kMUTE).checkState(), 0);
    EXPECT_TRUE(lists(panorell, {L"bild01.jpg", L"bild02.jpg", L"bild03.jpg"}));
}

// Both its glyph and its word belong to the check box.
TEST(SetUp, ClicksBesideTheBoxOfTheSecondScreenCount) {
    Panorell panorell;
    ASSERT_TRUE(panorell.openSetUp());
    ASSERT_TRUE(bringToFront(panorell.form()));
    const Control screen2 = panorell.at(id::kScreen2);
    const RECT row = screen2.rectangle();
    const LONG height = row.bottom - row.top;
    int expected = 1;
    for (const LONG right : {height * 5 / 4, height * 2}) {
        ASSERT_TRUE(clickAt({row.left + right, (row.top + row.bottom) / 2}));
        EXPECT_TRUE(waitFor([&] { return screen2.checkState() == expected; }, kPatience, "the click counts"));
        expected = 0;
    }
}

TEST(SetUp, StartsWithTheSettingsOfTheFirstSet) {
    PictureFolder folder(2, 64, 48);
    Panorell panorell;
    panorell.keepSettings(1, {{L"Drive", folder.path().substr(0, 2)},
                              {L"Dir", folder.path()},
                              {L"Delay", L"100"},
                              {L"Loop", L"1"},
                              {L"Date", L"1"},
                              {L"Sound", L"0"},
                              {L"Music", L"0"},
                              {L"Effekte", L"0"}});
    ASSERT_TRUE(panorell.openSetUp());
    EXPECT_EQ(panorell.at(id::kIntT).text(), L"10");
    EXPECT_EQ(panorell.at(id::kIntS).position(), 51);
    EXPECT_EQ(panorell.at(id::kLoopC).checkState(), 1);
    EXPECT_EQ(panorell.at(id::kShowFN).checkState(), 1);
    EXPECT_EQ(panorell.at(id::kMUTE).checkState(), 0);
    EXPECT_EQ(panorell.at(id::kMusik).checkState(), 0);
    EXPECT_EQ(panorell.at(id::kCheck1).checkState(), 0);
    EXPECT_TRUE(lists(panorell, {L"bild01.jpg", L"bild02.jpg"}));
}

TEST(SetUp, AFolderThatIsGoneLeavesTheListsAsTheyAre) {
    Panorell panorell;
    panorell.keepSettings(1, {{L"Drive", L"q:"}, {L"Dir", L"Q:\\not there"}, {L"Delay", L"7"}});
    ASSERT_TRUE(panorell.openSetUp());
    EXPECT_EQ(panorell.at(id::kIntT).text(), L"7");
    EXPECT_THAT(panorell.at(id::kDir1).items(), testing::Not(IsEmpty()));
    EXPECT_EQ(panorell.windowNow(L"#32770"), nullptr) << "no message may appear";
}

TEST(SetUp, AClickOnAFolderOpensIt) {
    PictureFolder folder(1, 64, 48);
    CreateDirectoryW(folder.file(L"Unterordner").c_str(), nullptr);
    writePicture(folder.file(L"Unterordner\\drin.jpg"), {2, 64, 48});
    Panorell panorell;
    ASSERT_TRUE(panorell.openSetUp(folder.path()));
    const Control dir = panorell.at(id::kDir1);
    const auto items = dir.items();
    ASSERT_FALSE(items.empty());
    ASSERT_EQ(items.back(), L"Unterordner");
    ASSERT_TRUE(bringToFront(panorell.form()));
    const RECT area = dir.rectangle();
    const int index = static_cast<int>(items.size()) - 1;
    RECT item = {};
    const int top = dir.topItem();
    const int height = static_cast<int>(SendMessageW(dir.handle(), LB_GETITEMHEIGHT, 0, 0));
    item.top = area.top + 2 + (index - top) * height;
    ASSERT_LT(item.top + height / 2, area.bottom);
    ASSERT_TRUE(clickAt({area.left + 60, item.top + height / 2}));
    EXPECT_TRUE(lists(panorell, {L"drin.jpg"}));
}

TEST(SetUp, TheWindowIsRounded) {
    Panorell panorell;
    ASSERT_TRUE(panorell.openSetUp());
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(GetWindowRgn(panorell.form(), region), COMPLEXREGION);
    const RECT r = Control(panorell.form()).rectangle();
    EXPECT_FALSE(PtInRegion(region, 2, 2));
    EXPECT_TRUE(PtInRegion(region, (r.right - r.left) / 2, 2));
    DeleteObject(region);
}

}  // namespace
}  // namespace program
