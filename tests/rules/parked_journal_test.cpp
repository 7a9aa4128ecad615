// What was saved last can be taken back as long as it is so: changes of other files, and changes that came to
// nothing, leave the kept journal alone, whatever happens to them.
#include "files/parked_journal.h"

#include <gtest/gtest.h>

#include "files/change_folder.h"
#include "files/recovery.h"
#include "files/take_back.h"
#include "rules/journal_scene.h"
#include "rules/power_cut.h"

namespace files {
namespace {

using End = Outcome::End;
using support::ModelledDisk;
using support::ModelledFileSystem;

/// The folder as `saved` left it, with one more file: titles that get their reverse order.
Scene musicAfter(const Scene& saved) {
    Scene music;
    music.name = "music after a save";
    music.items = {{L"01 Meer.mp3", L"02 Meer.mp3", "sea"}, {L"02 Wind.mp3", L"01 Wind.mp3", "wind"}};
    music.others = saved.others;
    for (const Scene::Item& item : saved.items) {
        music.others[item.after] = item.content;
        if (!item.thumbnail.empty()) {
            music.others[thumbnailOf(item.after)] = item.thumbnail;
        }
    }
    music.others[saved.script->name] = *saved.script->after;
    return music;
}

/// A second save, of what `saved` left.
Scene saveAfter(const Scene& saved) {
    Scene next = saved;
    next.name = "a save after a save";
    for (Scene::Item& item : next.items) {
        const std::wstring extension = item.after.substr(item.after.rfind(L'.'));
        item.before = item.after;
        item.after = L"Berg" + item.before.substr(item.before.rfind(L'.') - 3, 3) + extension;
    }
    next.script = ScriptChange{saved.script->name, saved.script->after, "Berg001 Gipfel\r\n"};
    return next;
}

class ParkedJournalTest : public testing::TestWithParam<int> {
  protected:
    const Machine& machine() const { return kMachines[GetParam()]; }

    /// A disk on which `saved_` was carried out, and on which the music lies.
    ModelledDisk savedDisk() const {
        ModelledDisk disk(machine().model);
        put(saved_, disk);
        ModelledFileSystem fileSystem = machine().fileSystem(disk);
        const VirtualTime time;
        EXPECT_TRUE(changeFolder(fileSystem, planOf(saved_, fileSystem), time.waiting).kept);
        for (const Scene::Item& title : musicAfter(saved_).items) {
            disk.put(at(title.before), title.content);
        }
        disk.flushAll();
        return disk;
    }
    /// Which names the pictures get when the last save is taken back: those before the first one, or those
    /// before the second one; -1 where nothing can be taken back.
    int takesBackSave(ModelledDisk& disk) const {
        ModelledFileSystem fileSystem = machine().fileSystem(disk);
        const std::optional<ChangePlan> plan = takeBackPlan(fileSystem, kSceneFolder);
        if (!plan) {
            return -1;
        }
        return plan->moves.front().to == saved_.items.front().before ? 1 : 2;
    }
    /// Opens the folder anew and looks whether everything holds.
    void expectSound(const Scene& scene, ModelledDisk disk, const std::string& where) const {
        ModelledFileSystem fileSystem = machine().fileSystem(disk);
        const VirtualTime time;
        EXPECT_TRUE(recoverFolder(fileSystem, kSceneFolder, time.waiting).skipped.empty()) << where;
        EXPECT_TRUE(isWholeOnEitherSide(disk, scene, true)) << where;
        EXPECT_FALSE(contentOf(disk, kParkedJournalFile).has_value()) << where;
        const bool second = scene.keep && isWhole(disk, scene, Side::New, true);
        EXPECT_EQ(takesBackSave(disk), second ? 2 : 1) << where;
    }
    /// Carries `scene` out after the save, the power going before every change of the disk.
    void cutEverywhere(const Scene& scene) const {
        bool cut = true;
        int cuts = 0;
        for (int cutAt = 0; cut && !HasFailure(); ++cutAt) {
            ModelledDisk disk = savedDisk();
            ModelledFileSystem fileSystem = machine().fileSystem(disk);
            const ChangePlan plan = planOf(scene, fileSystem);
            fileSystem.cutAt = cutAt;
            const VirtualTime time;
            cut = false;
            try {
                EXPECT_EQ(changeFolder(fileSystem, plan, time.waiting).end, End::Done);
            } catch (const support::PowerCut&) {
                cut = true;
                ++cuts;
            }
            for (const std::uint64_t bits : choices(disk.pendingCount(), 8)) {
                expectSound(
                    scene, disk.afterCut(bits),
                    scene.name + ", cut before " + std::to_string(cutAt) + ", bits " + std::to_string(bits));
            }
        }
        EXPECT_GT(cuts, 8);
    }

    Scene saved_ = saveScene(3);
};

TEST_P(ParkedJournalTest, TheMusicLeavesTheSaveAlone) {
    ModelledDisk disk = savedDisk();
    ModelledFileSystem fileSystem = machine().fileSystem(disk);
    const VirtualTime time;
    const Scene music = musicAfter(saved_);
    const std::optional<std::string> kept = contentOf(disk, kJournalFile);
    EXPECT_EQ(changeFolder(fileSystem, planOf(music, fileSystem), time.waiting).end, End::Done);
    EXPECT_EQ(contentOf(disk, kJournalFile), kept);
    EXPECT_FALSE(contentOf(disk, kParkedJournalFile).has_value());
    const std::optional<ChangePlan> plan = takeBackPlan(fileSystem, kSceneFolder);
    ASSERT_TRUE(plan.has_value());
    EXPECT_EQ(changeFolder(fileSystem, *plan, time.waiting).end, End::Done);
    EXPECT_EQ(contentOf(disk, L"Bild0.jpg"), "content 0");
    EXPECT_EQ(contentOf(disk, L"02 Meer.mp3"), "sea") << "the music's order is not the save's";
    EXPECT_FALSE(contentOf(disk, kJournalFile).has_value());
}

TEST_P(ParkedJournalTest, ThePowerGoesWhileTheMusicIsRenamed) {
    cutEverywhere(musicAfter(saved_));
}

TEST_P(ParkedJournalTest, ThePowerGoesDuringTheNextSave) {
    Scene next = saveAfter(saved_);
    next.others[L"01 Meer.mp3"] = "sea";
    next.others[L"02 Wind.mp3"] = "wind";
    cutEverywhere(next);
}

TEST_P(ParkedJournalTest, AChangeThatComesToNothingLeavesTheSaveAlone) {
    Scene next = saveAfter(saved_);
    next.others[L"01 Meer.mp3"] = "sea";
    next.others[L"02 Wind.mp3"] = "wind";
    int refused = 0;
    int undone = 0;
    for (const Scene& scene : {musicAfter(saved_), next}) {
        bool struck = true;
        for (int i = 0; struck; ++i) {
            for (const Failure failure : {Failure::Full, Failure::Other}) {
                ModelledDisk disk = savedDisk();
                ModelledFileSystem fileSystem = machine().fileSystem(disk);
                const ChangePlan plan = planOf(scene, fileSystem);
                fileSystem.operations = 0;
                fileSystem.fault = {i, 1, failure};
                const VirtualTime time;
                const Outcome outcome = changeFolder(fileSystem, plan, time.waiting);
                struck = fileSystem.operations > i;
                refused += outcome.end == End::Refused ? 1 : 0;
                undone += outcome.end == End::Undone ? 1 : 0;
                const std::string where = scene.name + ", operation " + std::to_string(i);
                if (outcome.end == End::Refused || outcome.end == End::Undone) {
                    EXPECT_NE(takesBackSave(disk), 2) << where;
                }
                // A save that is done but could not be kept is not taken back, nor is the one before it.
                if (!scene.keep || outcome.end != End::Done || outcome.kept) {
                    expectSound(scene, disk, where);
                }
            }
        }
    }
    EXPECT_GT(refused, 8) << "the faults did not strike";
    EXPECT_GT(undone, 8);
}

TEST_P(ParkedJournalTest, AJournalThatWasLeftAsideComesBackWhenTheFolderIsOpened) {
    ModelledDisk disk = savedDisk();
    ModelledFileSystem fileSystem = machine().fileSystem(disk);
    EXPECT_EQ(parkJournal(fileSystem, kSceneFolder), Failure::None);
    EXPECT_EQ(takesBackSave(disk), -1);
    const VirtualTime time;
    EXPECT_EQ(recoverFolder(fileSystem, kSceneFolder, time.waiting).end, Recovery::End::Nothing);
    EXPECT_EQ(takesBackSave(disk), 1);
}

INSTANTIATE_TEST_SUITE_P(Machines, ParkedJournalTest,
                         testing::Range(0, static_cast<int>(std::size(kMachines))));

}  // namespace
}  // namespace files
