// The command line of the real program: what every parameter changes, and what broken ones leave alone.
#include <gmock/gmock.h>

#include "program/support/files.h"
#include "program/support/panorell.h"
#include "program/support/picture_folder.h"
#include "program/support/show_watch.h"
#include "ui/control_ids.h"

namespace program {
namespace {

namespace id = ui::id;

struct Expected {
    const wchar_t* pause = L"5";
    int date = 0;
    int loop = 0;
    int sound = 1;
    int music = 1;
    int set = 0;  // number of the chosen set, 0 when none is
    int files = 3;
    int selected = -1;  // -1: whatever is selected
};

struct Case {
    const char* name;
    const wchar_t* before;  // what stands in front of the folder
    const wchar_t* after;   // and what behind it; nullptr leaves the folder out
    Expected expected;
};

class CommandLine : public testing::TestWithParam<Case> {};

TEST_P(CommandLine, Applies) {
    const Case& c = GetParam();
    PictureFolder folder(3, 64, 48);
    Panorell panorell;
    panorell.keepSettings(2, {{L"Delay", L"31"}, {L"Loop", L"1"}, {L"Music", L"0"}});
    const std::wstring arguments = c.after ? c.before + folder.path() + c.after : std::wstring(c.before);
    ASSERT_TRUE(panorell.openSetUp(arguments));
    const Expected& e = c.expected;
    EXPECT_EQ(panorell.at(id::kIntT).text(), e.pause);
    EXPECT_EQ(panorell.at(id::kIntS).position(), 61 - std::stoi(e.pause));
    EXPECT_EQ(panorell.at(id::kShowFN).checkState(), e.date);
    EXPECT_EQ(panorell.at(id::kLoopC).checkState(), e.loop);
    EXPECT_EQ(panorell.at(id::kMUTE).checkState(), e.sound);
    EXPECT_EQ(panorell.at(id::kMusik).checkState(), e.music);
    EXPECT_EQ(panorell.chosenSet(), e.set);
    EXPECT_EQ(panorell.at(id::kFile1).items().size(), static_cast<std::size_t>(e.files));
    if (e.selected >= 0) {
        EXPECT_EQ(panorell.at(id::kFile1).selectedItem(), e.selected);
    }
    EXPECT_EQ(panorell.windowNow(L"#32770"), nullptr) << "no message may appear";
}

INSTANTIATE_TEST_SUITE_P(
    Parameters, CommandLine,
    testing::Values(Case{"folder_alone", L"", L"", {}}, Case{"quoted_folder", L"\"", L"\"", {}},
                    Case{"quoted_folder_with_keys", L"\"", L"\" P=8 E=1", {L"8", 0, 1}},
                    Case{"all_keys", L"", L" P=7 D=1 E=1 V=0 M=0 S=1", {L"7", 1, 1, 0, 0, 1}},
                    Case{"keys_in_any_order", L"", L" M=0 V=0 E=1 D=1 P=9", {L"9", 1, 1, 0, 0}},
                    Case{"set_is_loaded_first", L"", L" S=2", {L"31", 0, 1, 1, 0, 2}},
                    Case{"keys_override_the_set", L"", L" P=4 E=0 S=2", {L"4", 0, 0, 1, 0, 2}},
                    Case{"set_beyond_the_last", L"", L" P=6 S=7", {L"6"}},
                    Case{"two_digits_of_the_pause", L"", L" P=123", {L"12"}},
                    Case{"flags_that_are_no_digits", L"", L" D=x E=y V=z M=?", {}},
                    Case{"index", L"", L" L=2", {L"5", 0, 0, 1, 1, 0, 3, 2}},
                    Case{"one_digit_of_the_index", L"", L" L=12", {L"5", 0, 0, 1, 1, 0, 3, 1}},
                    Case{"no_folder", L"P=9 D=1", nullptr, {L"9", 1, 0, 1, 1, 0, 0}},
                    Case{"bad_folder", L"C:\\not\\there P=9", nullptr, {L"9", 0, 0, 1, 1, 0, 0}}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST(CommandLineRun, StartsTheShowAtOnce) {
    PictureFolder folder(3);
    const ShowWatch watch(folder.pictures());
    Panorell panorell;
    panorell.start(folder.path() + L" P=2 M=0 R=1");
    EXPECT_TRUE(watch.comes(1));
    EXPECT_TRUE(watch.comes(2));
    EXPECT_FALSE(panorell.inSetUpState());
}

TEST(CommandLineRun, StartsAtTheGivenIndex) {
    PictureFolder folder(3);
    const ShowWatch watch(folder.pictures());
    Panorell panorell;
    panorell.start(folder.path() + L" P=9 M=0 L=2R=1");
    EXPECT_TRUE(watch.comes(3));
}

// Explorer starts the program like this; quotes are there when the path holds a blank.
TEST(CommandLineRun, AFolderDroppedOntoTheProgram) {
    for (const wchar_t* name : {L"Süße Grüße [1]", L"日本 ☂ 2003", L"schlicht"}) {
        const PictureFolder folder;
        const std::wstring path = folder.file(name);
        ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
        writePicture(path + L"\\a.jpg", {1, 64, 48});
        writePicture(path + L"\\b c.jpg", {2, 64, 48});
        const bool quotes = path.find(L' ') != std::wstring::npos;
        Panorell panorell;
        ASSERT_TRUE(panorell.openSetUp(quotes ? L"\"" + path + L"\"" : path));
        EXPECT_THAT(panorell.at(id::kFile1).items(), testing::ElementsAre(L"a.jpg", L"b c.jpg"));
        EXPECT_THAT(panorell.at(id::kDir1).items(), testing::Contains(name));
    }
}

TEST(CommandLineRun, AnEmptyFolderStaysInTheSetUpState) {
    PictureFolder folder;
    Panorell panorell;
    ASSERT_TRUE(panorell.openSetUp(folder.path() + L" R=1"));
    EXPECT_TRUE(stays([&] { return panorell.inSetUpState() && panorell.running(); },
                      std::chrono::milliseconds(500), "the set-up window stands"));
}

}  // namespace
}  // namespace program
