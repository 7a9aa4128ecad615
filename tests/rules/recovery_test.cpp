#include "files/recovery.h"

#include <gtest/gtest.h>

#include <functional>

#include "files/take_back.h"
#include "rules/journal_scene.h"

namespace files {
namespace {

using End = Recovery::End;
using support::ModelledDisk;
using support::ModelledFileSystem;

class RecoveryTest : public testing::Test {
  protected:
    /// A change of `scene` that ended where the power went, everything before being on the medium.
    void cutBefore(const Scene& scene, int pass, int index) {
        disk = ModelledDisk();
        put(scene, disk);
        ModelledFileSystem changing(disk);
        const ChangePlan plan = planOf(scene, changing);
        const VirtualTime passing;
        struct Cut {};
        EXPECT_THROW(changeFolder(changing, plan, passing.waiting,
                                  [&](const ChangeProgress& now) {
                                      if (now.pass == pass && now.index == index) {
                                          throw Cut();
                                      }
                                  }),
                     Cut);
    }
    void remove(const std::wstring& name) { fileSystem.remove(at(name)); }
    Recovery recover() { return recoverFolder(fileSystem, kSceneFolder, time.waiting); }
    bool journalIsThere() const { return contentOf(disk, kJournalFile).has_value(); }

    ModelledDisk disk;
    ModelledFileSystem fileSystem{disk};
    VirtualTime time;
};

TEST_F(RecoveryTest, WithoutAJournalNothingHappens) {
    put(ringScene(2), disk);
    EXPECT_EQ(recover().end, End::Nothing);
    EXPECT_EQ(fileSystem.operations, 2);
    EXPECT_TRUE(isWhole(disk, ringScene(2), Side::Old));
}

TEST_F(RecoveryTest, ATornJournalIsRemoved) {
    put(ringScene(2), disk);
    disk.put(at(kJournalFile), "Panorell-Journal 1\nmove\tP001");
    EXPECT_EQ(recover().end, End::Nothing);
    EXPECT_TRUE(isWhole(disk, ringScene(2), Side::Old));
}

TEST_F(RecoveryTest, AForeignJournalStays) {
    put(ringScene(2), disk);
    disk.put(at(kJournalFile), "Panorell-Journal 2\n");
    EXPECT_EQ(recover().end, End::Foreign);
    EXPECT_TRUE(journalIsThere());
}

TEST_F(RecoveryTest, TheFirstPassIsUndoneTheSecondFinished) {
    const Scene scene = ringScene(3);
    cutBefore(scene, 1, 2);
    EXPECT_EQ(recover().end, End::Undone);
    EXPECT_TRUE(isWhole(disk, scene, Side::Old));
    cutBefore(scene, 2, 0);
    EXPECT_EQ(recover().end, End::Finished);
    EXPECT_TRUE(isWhole(disk, scene, Side::New));
    EXPECT_EQ(recover().end, End::Nothing);
}

TEST_F(RecoveryTest, FilesMayHaveOtherNumbersAfterARestart) {
    for (const int pass : {1, 2}) {
        const Scene scene = saveScene(7);
        cutBefore(scene, pass, 3);
        fileSystem.numbersFrom += 1000;
        EXPECT_TRUE(recover().skipped.empty());
        EXPECT_TRUE(isWhole(disk, scene, pass == 1 ? Side::Old : Side::New, true));
    }
}

TEST_F(RecoveryTest, ItsCallerMayPaintBetweenTwoFiles) {
    cutBefore(ringScene(7), 2, 0);
    int steps = 0;
    time.waiting.step = [&] { ++steps; };
    EXPECT_EQ(recover().end, End::Finished);
    EXPECT_EQ(steps, 7);
}

TEST_F(RecoveryTest, AMissingFileIsSkipped) {
    cutBefore(ringScene(3), 2, 1);
    remove(L"TMP002.jpg");
    const Recovery recovery = recover();
    EXPECT_EQ(recovery.end, End::Finished);
    ASSERT_EQ(recovery.skipped.size(), 1U);
    EXPECT_EQ(recovery.skipped[0].name, L"P003.jpg");
    EXPECT_EQ(recovery.skipped[0].why, Obstacle::Missing);
    EXPECT_EQ(contentOf(disk, L"P002.jpg"), "picture 0");
    EXPECT_EQ(contentOf(disk, L"P001.jpg"), "picture 2");
    EXPECT_FALSE(journalIsThere());
}

TEST_F(RecoveryTest, AChangedFileIsSkipped) {
    cutBefore(ringScene(3), 1, 2);
    remove(L"TMP002.jpg");
    disk.put(at(L"TMP002.jpg"), "edited meanwhile");
    const Recovery recovery = recover();
    EXPECT_EQ(recovery.end, End::Undone);
    ASSERT_EQ(recovery.skipped.size(), 1U);
    EXPECT_EQ(recovery.skipped[0].name, L"P002.jpg");
    EXPECT_EQ(recovery.skipped[0].why, Obstacle::Changed);
    EXPECT_EQ(contentOf(disk, L"TMP002.jpg"), "edited meanwhile");
    EXPECT_EQ(contentOf(disk, L"P001.jpg"), "picture 0");
}

TEST_F(RecoveryTest, ATakenNameIsNotOverwrittenAndTheOtherOneTaken) {
    Scene scene = saveScene(3);
    cutBefore(scene, 2, 0);
    disk.put(at(L"Reise002.jpg"), "foreign");
    const Recovery recovery = recover();
    EXPECT_EQ(recovery.end, End::Finished);
    ASSERT_EQ(recovery.skipped.size(), 1U);
    EXPECT_EQ(recovery.skipped[0].why, Obstacle::Taken);
    EXPECT_EQ(contentOf(disk, L"Reise002.jpg"), "foreign");
    EXPECT_EQ(contentOf(disk, L"Bild1.jpg"), "content 1");
    EXPECT_EQ(contentOf(disk, L"Reise001.mpg"), "content 2");
    EXPECT_EQ(contentOf(disk, L"Reise003.jpg"), "content 0");
    EXPECT_FALSE(journalIsThere()) << "what is not as it was planned cannot be taken back";
}

TEST_F(RecoveryTest, WhereBothNamesAreTakenTheJournalStays) {
    cutBefore(saveScene(2), 2, 0);
    disk.put(at(L"Reise001.jpg"), "foreign");
    disk.put(at(L"Bild1.jpg"), "foreign too");
    const Recovery waiting = recover();
    EXPECT_EQ(waiting.end, End::Waiting);
    EXPECT_EQ(waiting.obstacle, Obstacle::Taken);
    EXPECT_EQ(waiting.name, L"Reise001.jpg");
    EXPECT_TRUE(journalIsThere());
    EXPECT_EQ(contentOf(disk, L"TMP-2-002.jpg"), "content 1");
    remove(L"Bild1.jpg");
    EXPECT_EQ(recover().end, End::Finished);
    EXPECT_EQ(contentOf(disk, L"Bild1.jpg"), "content 1");
    EXPECT_EQ(contentOf(disk, L"Reise001.jpg"), "foreign");
}

TEST_F(RecoveryTest, AForeignScriptIsLeft) {
    cutBefore(saveScene(2), 2, 1);
    remove(L"Panorell.txt");
    disk.put(at(L"Panorell.txt"), "written by hand");
    const Recovery recovery = recover();
    EXPECT_EQ(recovery.end, End::Finished);
    ASSERT_EQ(recovery.skipped.size(), 1U);
    EXPECT_EQ(recovery.skipped[0].why, Obstacle::ScriptChanged);
    EXPECT_EQ(contentOf(disk, L"Panorell.txt"), "written by hand");
}

TEST_F(RecoveryTest, ItWaitsSilentlyWhereNothingCanBeWritten) {
    const Scene scene = saveScene(3);
    cutBefore(scene, 1, 2);
    ModelledDisk before = disk;
    for (const Failure failure : {Failure::Denied, Failure::WriteProtected, Failure::InUse, Failure::Full}) {
        for (int from = 0; from < 3; ++from) {
            disk = before;
            fileSystem.operations = 0;
            fileSystem.fault = {from, 1'000'000, failure};
            const Recovery recovery = recover();
            const bool running = from == 0 && failure == Failure::InUse;
            EXPECT_EQ(recovery.end, running ? End::Running : End::Waiting);
            EXPECT_EQ(recovery.obstacle != Obstacle::None, from > 0) << "only what began to move is told of";
            EXPECT_TRUE(recovery.skipped.empty());
            EXPECT_TRUE(journalIsThere());
            fileSystem.fault = {};
            EXPECT_EQ(recover().end, End::Undone);
            EXPECT_TRUE(isWhole(disk, scene, Side::Old));
        }
    }
}

TEST_F(RecoveryTest, EveryFailureOfItIsMadeUpForNextTime) {
    for (const Scene& scene : {saveScene(3), ringScene(3), caseScene()}) {
        for (const int pass : {1, 2}) {
            cutBefore(scene, pass, 2);
            const ModelledDisk before = disk;
            fileSystem.operations = 0;
            recover();
            const int operations = fileSystem.operations;
            for (int i = 0; i < operations; ++i) {
                disk = before;
                fileSystem.operations = 0;
                fileSystem.fault = {i, 1, Failure::Other};
                recover();
                fileSystem.fault = {};
                recover();
                EXPECT_TRUE(isWholeOnEitherSide(disk, scene, scene.keep))
                    << scene.name << " " << pass << " " << i;
            }
        }
    }
}

class TakeBackTest : public RecoveryTest {
  protected:
    void save(const Scene& scene) {
        put(scene, disk);
        ChangePlan plan = planOf(scene, fileSystem);
        plan.deleted = {L"weg.jpg"};
        EXPECT_TRUE(changeFolder(fileSystem, plan, time.waiting).kept);
    }
    std::optional<ChangePlan> plan() const { return takeBackPlan(fileSystem, kSceneFolder); }
};

TEST_F(TakeBackTest, RestoresNamesAttributesAndScript) {
    Scene scene = saveScene(7);
    save(scene);
    fileSystem.setAttributes(at(L"Reise007.jpg"), kHidden);
    const std::optional<ChangePlan> back = plan();
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(back->deleted, std::vector<std::wstring>{L"weg.jpg"});
    EXPECT_EQ(changeFolder(fileSystem, *back, time.waiting).end, Outcome::End::Done);
    EXPECT_TRUE(isWhole(disk, scene, Side::Old));
    EXPECT_EQ(contentOf(disk, L"Mini\\Bild0.bmp"), "thumbnail 0");
    EXPECT_FALSE(plan().has_value());
    EXPECT_FALSE(journalIsThere());
}

TEST_F(TakeBackTest, OnlyWhereTheFolderIsAsTheSaveLeftIt) {
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"a picture is gone", [&] { remove(L"Reise001.mpg"); }},
        {"a picture has another name", [&] { fileSystem.rename(at(L"Reise001.mpg"), at(L"x.mpg")); }},
        {"a picture was replaced",
         [&] {
             remove(L"Reise001.mpg");
             disk.put(at(L"Reise001.mpg"), "content 2");
         }},
        {"an old name is taken", [&] { disk.put(at(L"BILD1.jpg"), "new"); }},
        {"the script is gone", [&] { remove(L"Panorell.txt"); }},
        {"no journal", [&] { remove(kJournalFile); }},
    };
    for (const auto& [what, spoil] : cases) {
        disk = ModelledDisk();
        save(saveScene(3));
        EXPECT_TRUE(plan().has_value());
        spoil();
        EXPECT_FALSE(plan().has_value()) << what;
    }
}

TEST_F(TakeBackTest, TheKeptJournalDisturbsNeitherRecoveryNorTheNextSave) {
    Scene scene = saveScene(2);
    save(scene);
    EXPECT_EQ(recover().end, End::Nothing);
    EXPECT_TRUE(plan().has_value());
    Scene next;
    next.items = {{L"Reise001.jpg", L"Berg001.jpg", "content 1", kHidden}};
    ChangePlan second = planOf(next, fileSystem);
    second.keep = true;
    EXPECT_TRUE(changeFolder(fileSystem, second, time.waiting).kept);
    ASSERT_TRUE(plan().has_value());
    EXPECT_EQ(plan()->moves[0].from, L"Berg001.jpg");
}

TEST_F(TakeBackTest, ARecoveredSaveCanBeTakenBack) {
    const Scene scene = saveScene(3);
    cutBefore(scene, 2, 1);
    EXPECT_FALSE(plan().has_value());
    EXPECT_EQ(recover().end, End::Finished);
    EXPECT_TRUE(plan().has_value());
}

}  // namespace
}  // namespace files
