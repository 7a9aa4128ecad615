// The power goes before every change of the disk, of a change of a folder and of its recovery, and any of
// the changes that were not flushed may be missing afterwards.
#include <gtest/gtest.h>

#include "files/change_folder.h"
#include "files/recovery.h"
#include "files/take_back.h"
#include "rules/journal_scene.h"
#include "rules/power_cut.h"

namespace files {
namespace {

using support::ModelledDisk;
using support::ModelledFileSystem;

/// Carries out the scene until the power goes; true when it went.
bool changeUntilCut(const Scene& scene, const Machine& machine, ModelledDisk& disk, int cutAt) {
    put(scene, disk);
    ModelledFileSystem fileSystem = machine.fileSystem(disk);
    const ChangePlan plan = planOf(scene, fileSystem);
    fileSystem.cutAt = cutAt;
    const VirtualTime time;
    try {
        changeFolder(fileSystem, plan, time.waiting);
    } catch (const support::PowerCut&) {
        return true;
    }
    return false;
}

bool recoverUntilCut(const Machine& machine, ModelledDisk& disk, int cutAt) {
    ModelledFileSystem fileSystem = machine.fileSystem(disk);
    fileSystem.cutAt = cutAt;
    const VirtualTime time;
    try {
        const Recovery recovery = recoverFolder(fileSystem, kSceneFolder, time.waiting);
        EXPECT_TRUE(recovery.skipped.empty());
        EXPECT_NE(recovery.end, Recovery::End::Waiting);
    } catch (const support::PowerCut&) {
        return true;
    }
    return false;
}

/// Recovers, cutting the power again at every change of the recovery; where many changes were under way, at
/// some.
void expectRecovers(const Scene& scene, const Machine& machine, const ModelledDisk& found,
                    const std::string& where) {
    for (int cutAt = 0;; ++cutAt) {
        ModelledDisk disk = found;
        if (!recoverUntilCut(machine, disk, cutAt)) {
            EXPECT_TRUE(isWholeOnEitherSide(disk, scene, scene.keep)) << where;
            return;
        }
        if (scene.items.size() > 2) {
            cutAt += static_cast<int>(randomBits() % 8);
        }
        for (const std::uint64_t bits : choices(disk.pendingCount(), 2)) {
            ModelledDisk again = disk.afterCut(bits);
            recoverUntilCut(machine, again, -1);
            ASSERT_TRUE(isWholeOnEitherSide(again, scene, scene.keep))
                << where << ", recovery cut before change " << cutAt << ", bits " << bits;
        }
    }
}

int cutEverywhere(const Scene& scene, const Machine& machine, std::size_t most) {
    for (int cutAt = 0;; ++cutAt) {
        ModelledDisk disk(machine.model);
        if (!changeUntilCut(scene, machine, disk, cutAt)) {
            return cutAt;
        }
        for (const std::uint64_t bits : choices(disk.pendingCount(), most)) {
            const std::string where = scene.name + ", cut before change " + std::to_string(cutAt) +
                                      ", bits " + std::to_string(bits);
            expectRecovers(scene, machine, disk.afterCut(bits), where);
            if (testing::Test::HasFailure()) {
                return cutAt;
            }
        }
    }
}

class PowerCutTest : public testing::TestWithParam<int> {
  protected:
    const Machine& machine() const { return kMachines[GetParam()]; }
};

TEST_P(PowerCutTest, OneAndTwoFiles) {
    for (const Scene& scene : {ringScene(1), ringScene(2), saveScene(1), saveScene(2)}) {
        EXPECT_GT(cutEverywhere(scene, machine(), 8), 5) << scene.name;
    }
}

TEST_P(PowerCutTest, NamesThatOverlap) {
    for (const Scene& scene : {ringScene(7), copiesScene(), caseScene()}) {
        EXPECT_GT(cutEverywhere(scene, machine(), 6), 10) << scene.name;
    }
}

TEST_P(PowerCutTest, ASaveOfSeven) {
    EXPECT_GT(cutEverywhere(saveScene(7), machine(), 4), 30);
}

TEST_P(PowerCutTest, RandomPointsOfALongSave) {
    const Scene scene = saveScene(120);
    ModelledDisk whole(machine().model);
    ASSERT_FALSE(changeUntilCut(scene, machine(), whole, -1));
    for (int i = 0; i < 12; ++i) {
        ModelledDisk disk(machine().model);
        const int cutAt = static_cast<int>(randomBits() % 370);
        ASSERT_TRUE(changeUntilCut(scene, machine(), disk, cutAt)) << cutAt;
        for (const std::uint64_t bits : choices(disk.pendingCount(), 4)) {
            ModelledDisk after = disk.afterCut(bits);
            const int recoveryCut = static_cast<int>(randomBits() % 200);
            if (recoverUntilCut(machine(), after, recoveryCut)) {
                after = after.afterCut(randomBits());
                recoverUntilCut(machine(), after, -1);
            }
            EXPECT_TRUE(isWholeOnEitherSide(after, scene, true)) << cutAt << " bits " << bits;
        }
    }
}

// After a change has ended, a cut may not take it apart either.
TEST_P(PowerCutTest, RightAfterTheEnd) {
    for (const Scene& scene : {ringScene(2), ringScene(7), saveScene(7)}) {
        ModelledDisk disk(machine().model);
        ASSERT_FALSE(changeUntilCut(scene, machine(), disk, -1));
        for (const std::uint64_t bits : choices(disk.pendingCount(), 16)) {
            expectRecovers(scene, machine(), disk.afterCut(bits), scene.name);
        }
    }
}

TEST_P(PowerCutTest, OfTakingBack) {
    Scene scene = saveScene(2);
    ModelledDisk saved(machine().model);
    ASSERT_FALSE(changeUntilCut(scene, machine(), saved, -1));
    saved.flushAll();
    bool cut = true;
    int cuts = 0;
    for (int cutAt = 0; cut; ++cutAt) {
        ModelledDisk disk = saved;
        ModelledFileSystem fileSystem = machine().fileSystem(disk);
        const std::optional<ChangePlan> plan = takeBackPlan(fileSystem, kSceneFolder);
        ASSERT_TRUE(plan.has_value());
        fileSystem.cutAt = cutAt;
        const VirtualTime time;
        cut = false;
        try {
            EXPECT_EQ(changeFolder(fileSystem, *plan, time.waiting).end, Outcome::End::Done);
        } catch (const support::PowerCut&) {
            cut = true;
            ++cuts;
        }
        for (const std::uint64_t bits : choices(disk.pendingCount(), 16)) {
            expectRecovers(scene, machine(), disk.afterCut(bits), "cut before " + std::to_string(cutAt));
        }
    }
    EXPECT_GT(cuts, 10);
}

INSTANTIATE_TEST_SUITE_P(Machines, PowerCutTest, testing::Range(0, static_cast<int>(std::size(kMachines))));

}  // namespace
}  // namespace files
