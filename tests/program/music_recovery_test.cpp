// A rename of a folder's music that was killed is put right by the real program: in the set-up, and where the
// overview is opened.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "program/support/environment.h"
#include "program/support/files.h"
#include "program/support/overview_test_base.h"
#include "support/child_process.h"

namespace program {
namespace {

constexpr DWORD kKilled = 9;
constexpr const wchar_t* kJournal = L"Panorell.journal";

using Disk = std::map<std::wstring, std::string>;

/// What the titles are called at first, and in their reverse order with every second one locked.
const Disk kBefore = {{L"01 Meer.mp3", "meer"}, {L"02 Sturm.mp3", "sturm"}, {L"99 Abend.mp3", "abend"}};
const Disk kAfter = {{L"01 Abend.mp3", "abend"}, {L"99 Sturm.mp3", "sturm"}, {L"03 Meer.mp3", "meer"}};

class MusicRecoveryTest : public OverviewTest {
  protected:
    MusicRecoveryTest() : folder_(2) {
        for (const auto& [name, content] : kBefore) {
            writeBytes(folder_.file(name), content);
        }
    }
    /// Begins the rename and is killed before its operation `last`.
    void interrupt(int last) const {
        const std::wstring sample = sampleExe();
        const support::ChildProcess probe(sample.substr(0, sample.rfind(L'\\') + 1) + L"journal_probe.exe",
                                          L"music " + folder_.path() + L" " + std::to_wstring(last));
        ASSERT_TRUE(waitFor([&] { return probe.exitCode().has_value(); }, kPatience, "the end of the probe"));
        ASSERT_EQ(probe.exitCode(), kKilled);
        ASSERT_TRUE(exists(folder_.file(kJournal)));
        ASSERT_FALSE(isWhole(kBefore) || isWhole(kAfter)) << "the names are between two orders";
    }
    /// Whether the titles have just these names, each its own content, and no journal is left.
    bool isWhole(const Disk& names) const {
        for (const auto& [name, content] : names) {
            if (!exists(folder_.file(name)) || readBytes(folder_.file(name)) != content) {
                return false;
            }
        }
        const Disk& others = &names == &kBefore ? kAfter : kBefore;
        for (const auto& [name, content] : others) {
            if (!names.contains(name) && exists(folder_.file(name))) {
                return false;
            }
        }
        return !exists(folder_.file(kJournal));
    }
    testing::AssertionResult becomesWhole(const Disk& names) const {
        return waitFor([&] { return isWhole(names); }, kPatience, "the names of one order");
    }

    PictureFolder folder_;
};

/// Before the second rename of the first pass, and of the second one.
constexpr int kInFirstPass = 3;
constexpr int kInSecondPass = 7;

TEST_F(MusicRecoveryTest, TheSetUpUndoesWhatHadHardlyBegun) {
    interrupt(kInFirstPass);
    panorell_.keepShow(folder_.path(), {});
    ASSERT_TRUE(panorell_.openSetUp());
    EXPECT_TRUE(becomesWhole(kBefore));
}

TEST_F(MusicRecoveryTest, TheSetUpFinishesWhatHadItsNames) {
    interrupt(kInSecondPass);
    panorell_.keepShow(folder_.path(), {});
    ASSERT_TRUE(panorell_.openSetUp());
    EXPECT_TRUE(becomesWhole(kAfter));
}

TEST_F(MusicRecoveryTest, TheWayIntoTheOverviewUndoesToo) {
    panorell_.keepShow(folder_.path(), {});
    ASSERT_TRUE(panorell_.openSetUp());
    interrupt(kInFirstPass);
    enter();
    EXPECT_TRUE(becomesWhole(kBefore));
    EXPECT_TRUE(becomes(folder_, {1, 2}));
}

TEST_F(MusicRecoveryTest, TheWayIntoTheOverviewFinishesToo) {
    panorell_.keepShow(folder_.path(), {});
    ASSERT_TRUE(panorell_.openSetUp());
    interrupt(kInSecondPass);
    enter();
    EXPECT_TRUE(becomesWhole(kAfter));
    EXPECT_TRUE(becomes(folder_, {1, 2}));
}

}  // namespace
}  // namespace program
