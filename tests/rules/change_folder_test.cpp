#include "files/change_folder.h"

#include <gtest/gtest.h>

#include <functional>

#include "rules/journal_scene.h"

namespace files {
namespace {

using End = Outcome::End;
using support::ModelledDisk;
using support::ModelledFileSystem;

class ChangeFolderTest : public testing::Test {
  protected:
    void begin(const Scene& scene) {
        put(scene, disk);
        plan = planOf(scene, fileSystem);
        fileSystem.operations = 0;
    }
    Outcome change() {
        return changeFolder(fileSystem, plan, time.waiting, [this](const ChangeProgress& at) {
            progress.push_back({at.pass, at.index});
        });
    }

    ModelledDisk disk;
    ModelledFileSystem fileSystem{disk};
    VirtualTime time;
    ChangePlan plan;
    std::vector<std::pair<int, int>> progress;
};

TEST_F(ChangeFolderTest, DoesWhatIsPlanned) {
    for (const Scene& scene : {ringScene(1), ringScene(2), ringScene(7), saveScene(7), saveScene(120),
                               caseScene(), copiesScene()}) {
        disk = ModelledDisk();
        begin(scene);
        const Outcome outcome = change();
        EXPECT_EQ(outcome.end, End::Done) << scene.name;
        EXPECT_EQ(outcome.kept, scene.keep) << scene.name;
        EXPECT_TRUE(isWhole(disk, scene, Side::New, scene.keep)) << scene.name;
        EXPECT_EQ(contentOf(disk, kJournalFile).has_value(), scene.keep) << scene.name;
        EXPECT_EQ(time.ms, 0) << scene.name;
    }
}

TEST_F(ChangeFolderTest, ThumbnailsFollowTheirPictures) {
    const Scene scene = saveScene(7);
    begin(scene);
    disk.put(at(L"Mini\\Reise007.bmp"), "an orphan");
    disk.put(at(L"Mini\\geteilt.bmp"), "of two items");
    plan.drops = {L"Mini\\geteilt.bmp", L"Mini\\fehlt.bmp"};
    EXPECT_EQ(change().end, End::Done);
    EXPECT_EQ(contentOf(disk, L"Mini\\Reise007.bmp"), "thumbnail 0");
    EXPECT_EQ(contentOf(disk, L"Mini\\Reise001.bmp"), "thumbnail 6");
    EXPECT_EQ(contentOf(disk, L"Mini\\Reise006.bmp"), std::nullopt) << "that picture has none";
    EXPECT_EQ(contentOf(disk, L"Mini\\geteilt.bmp"), std::nullopt);
}

TEST_F(ChangeFolderTest, WriteProtectedThumbnailsAreNoneInTheWay) {
    Scene scene = saveScene(2);
    begin(scene);
    disk.put(at(L"Mini\\alt.bmp"), "nobody's", kReadOnly);
    plan.drops.push_back(L"Mini\\alt.bmp");
    for (PlannedMove& move : plan.moves) {
        if (isCacheName(move.from)) {
            disk.put(at(move.from), *contentOf(disk, move.from), kReadOnly);
            move.attributes = 0;
        }
    }
    EXPECT_EQ(change().end, End::Done);
    EXPECT_EQ(contentOf(disk, L"Mini\\alt.bmp"), std::nullopt);
    int thumbnails = 0;
    for (const FolderEntry& entry : fileSystem.list(at(L"Mini")).value) {
        EXPECT_EQ(entry.attributes, 0U);
        ++thumbnails;
    }
    EXPECT_GT(thumbnails, 0);
}

TEST_F(ChangeFolderTest, TellsWhichFileItIsAt) {
    begin(ringScene(2));
    EXPECT_EQ(change().end, End::Done);
    const std::vector<std::pair<int, int>> expected{{1, 0}, {1, 1}, {2, 0}, {2, 1}};
    EXPECT_EQ(progress, expected);
}

TEST_F(ChangeFolderTest, RefusesBeforeAnythingIsChanged) {
    struct Case {
        const char* what;
        std::function<void()> spoil;
        Obstacle why;
        std::wstring name;
    };
    const std::wstring longName = std::wstring(250, L'x') + L".jpg";
    const Case cases[] = {
        {"missing", [&] { plan.moves[1].from = L"fehlt.jpg"; }, Obstacle::Missing, L"fehlt.jpg"},
        {"another file", [&] { plan.moves[0].stamp.number = 99; }, Obstacle::Changed, L"P001.jpg"},
        {"grown", [&] { plan.moves[0].stamp.size += 1; }, Obstacle::Changed, L"P001.jpg"},
        {"taken", [&] { plan.moves[0].to = L"FREMD.JPG"; }, Obstacle::Taken, L"FREMD.JPG"},
        {"equal by case", [&] { plan.moves[0].to = L"p003.JPG"; }, Obstacle::TwiceTheSame, L"P003.jpg"},
        {"one file twice", [&] { plan.moves[1].from = L"p001.jpg"; }, Obstacle::TwiceTheSame, L"p001.jpg"},
        {"colon", [&] { plan.moves[2].to = L"a:b.jpg"; }, Obstacle::IllegalName, L"a:b.jpg"},
        {"device", [&] { plan.moves[2].to = L"con.jpg"; }, Obstacle::IllegalName, L"con.jpg"},
        {"elsewhere", [&] { plan.moves[2].from = L"..\\x.jpg"; }, Obstacle::IllegalName, L"..\\x.jpg"},
        {"long", [&] { plan.moves[2].to = longName; }, Obstacle::PathTooLong, longName},
        {"the journal", [&] { plan.moves[2].to = kJournalFile; }, Obstacle::Taken, kJournalFile},
        {"the script", [&] { plan.moves[2].to = L"panorell.TXT"; }, Obstacle::Taken, L"panorell.TXT"},
        {"script changed", [&] { plan.script->before = "x"; }, Obstacle::ScriptChanged, L"Panorell.txt"},
        {"script appeared", [&] { plan.script->before.reset(); }, Obstacle::ScriptChanged, L"Panorell.txt"},
        {"no folder",
         [&] {
             fileSystem.fault = {0, 1, Failure::Missing};
         },
         Obstacle::Missing, L""},
    };
    Scene scene = ringScene(3);
    scene.others = {{L"fremd.jpg", "foreign"}};
    scene.script = ScriptChange{L"Panorell.txt", "a", "b"};
    for (const Case& c : cases) {
        disk = ModelledDisk();
        fileSystem.fault = {};
        begin(scene);
        c.spoil();
        const Outcome outcome = change();
        EXPECT_EQ(outcome.end, End::Refused) << c.what;
        EXPECT_EQ(outcome.obstacle, c.why) << c.what;
        EXPECT_EQ(outcome.name, c.name) << c.what;
        EXPECT_TRUE(isWhole(disk, scene, Side::Old)) << c.what;
        EXPECT_EQ(fileSystem.changes, 0) << c.what;
    }
}

TEST_F(ChangeFolderTest, RefusesWhereTheJournalCannotBeWritten) {
    const std::pair<Failure, Obstacle> cases[] = {{Failure::Denied, Obstacle::Denied},
                                                  {Failure::WriteProtected, Obstacle::WriteProtected},
                                                  {Failure::Full, Obstacle::Full}};
    for (const auto& [failure, why] : cases) {
        disk = ModelledDisk();
        fileSystem.fault = {};
        begin(ringScene(2));
        fileSystem.fault = {2, 1000, failure};
        const Outcome outcome = change();
        EXPECT_EQ(outcome.end, End::Refused);
        EXPECT_EQ(outcome.obstacle, why);
        EXPECT_TRUE(isWhole(disk, ringScene(2), Side::Old));
    }
}

TEST_F(ChangeFolderTest, OneProgramAtATime) {
    const Scene scene = ringScene(2);
    begin(scene);
    disk.put(at(kJournalFile), "");
    fileSystem.inUse.insert(support::foldedPath(at(kJournalFile)));
    const Outcome outcome = change();
    EXPECT_EQ(outcome.end, End::Refused);
    EXPECT_EQ(outcome.obstacle, Obstacle::OtherProgram);
    EXPECT_EQ(recoverFolder(fileSystem, kSceneFolder, time.waiting).end, Recovery::End::Running);
    EXPECT_TRUE(isWhole(disk, scene, Side::Old, true));
}

TEST_F(ChangeFolderTest, NobodyElseOpensTheJournalMeanwhile) {
    begin(ringScene(2));
    int asked = 0;
    changeFolder(fileSystem, plan, time.waiting, [&](const ChangeProgress&) {
        EXPECT_EQ(recoverFolder(fileSystem, kSceneFolder, time.waiting).end, Recovery::End::Running);
        ++asked;
    });
    EXPECT_EQ(asked, 4);
}

TEST_F(ChangeFolderTest, AnUnfinishedChangeComesFirst) {
    const Scene scene = ringScene(2);
    begin(scene);
    disk.put(at(kJournalFile), journalBytes({}));
    EXPECT_EQ(change().obstacle, Obstacle::Unfinished);
    EXPECT_TRUE(isWhole(disk, scene, Side::Old, true));
}

TEST_F(ChangeFolderTest, WaitsForAFileInUse) {
    const Scene scene = ringScene(3);
    begin(scene);
    int seen = 0;
    const auto free = [&](int ms) {
        time.ms += ms;
        seen += 1;
        if (time.ms >= 2000) {
            fileSystem.inUse.erase(support::foldedPath(at(L"P002.jpg")));
        }
    };
    fileSystem.inUse.insert(support::foldedPath(at(L"P002.jpg")));
    const Waiting waiting{time.waiting.now, free};
    EXPECT_EQ(changeFolder(fileSystem, plan, waiting).end, End::Done);
    EXPECT_GE(time.ms, 2000);
    EXPECT_LE(time.ms, 2100);
    EXPECT_TRUE(isWhole(disk, scene, Side::New));
}

TEST_F(ChangeFolderTest, GivesUpAfterThreeSecondsAndUndoes) {
    const Scene scene = ringScene(3);
    begin(scene);
    fileSystem.inUse.insert(support::foldedPath(at(L"P003.jpg")));
    const Outcome outcome = change();
    EXPECT_EQ(outcome.end, End::Undone);
    EXPECT_EQ(outcome.obstacle, Obstacle::InUse);
    EXPECT_EQ(outcome.name, L"P003.jpg");
    EXPECT_GE(time.ms, 3000);
    EXPECT_LE(time.ms, 3100);
    EXPECT_TRUE(isWhole(disk, scene, Side::Old));
}

TEST_F(ChangeFolderTest, ATargetThatAppearsMeanwhileIsNotOverwritten) {
    Scene scene = saveScene(3);
    begin(scene);
    const Outcome outcome = changeFolder(fileSystem, plan, time.waiting, [&](const ChangeProgress& at) {
        if (at.pass == 2 && at.index == 1) {
            disk.put(kSceneFolder + L"\\reise002.JPG", "came late");
        }
    });
    scene.others[L"reise002.JPG"] = "came late";
    EXPECT_EQ(outcome.end, End::Undone);
    EXPECT_EQ(outcome.obstacle, Obstacle::Taken);
    EXPECT_EQ(outcome.name, L"Reise002.jpg");
    EXPECT_TRUE(isWhole(disk, scene, Side::Old));
}

TEST_F(ChangeFolderTest, AThrowOnTheWayLeavesTheJournal) {
    const Scene scene = ringScene(3);
    begin(scene);
    struct Leaving {};
    EXPECT_THROW(changeFolder(fileSystem, plan, time.waiting,
                              [](const ChangeProgress& at) {
                                  if (at.index == 1) {
                                      throw Leaving();
                                  }
                              }),
                 Leaving);
    EXPECT_EQ(recoverFolder(fileSystem, kSceneFolder, time.waiting).end, Recovery::End::Undone);
    EXPECT_TRUE(isWhole(disk, scene, Side::Old));
}

}  // namespace
}  // namespace files
