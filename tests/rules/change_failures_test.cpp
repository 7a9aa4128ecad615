// Every operation of a change fails once, for good, or for a while.
#include <gtest/gtest.h>

#include "files/change_folder.h"
#include "files/recovery.h"
#include "rules/journal_scene.h"

namespace files {
namespace {

using End = Outcome::End;
using support::ModelledDisk;
using support::ModelledFileSystem;

struct Attempt {
    ModelledDisk disk;
    Outcome outcome;
    int operations = 0;
};

Attempt runWith(const Scene& scene, support::ModelledFault fault) {
    Attempt run;
    put(scene, run.disk);
    ModelledFileSystem fileSystem(run.disk);
    const ChangePlan plan = planOf(scene, fileSystem);
    fileSystem.operations = 0;
    fileSystem.fault = fault;
    const VirtualTime time;
    run.outcome = changeFolder(fileSystem, plan, time.waiting);
    run.operations = fileSystem.operations;
    return run;
}

// What must hold when a change has ended so, and once the folder is opened again without the fault.
void expectSound(Attempt& run, const Scene& scene, const std::string& where) {
    const End end = run.outcome.end;
    const bool done = end == End::Done;
    if (end != End::Left) {
        // A journal that the fault kept from being removed does no harm.
        EXPECT_TRUE(isWhole(run.disk, scene, done ? Side::New : Side::Old, true)) << where;
    }
    EXPECT_EQ(run.outcome.obstacle == Obstacle::None, done) << where;
    ModelledFileSystem healthy(run.disk);
    const VirtualTime time;
    const Recovery recovery = recoverFolder(healthy, kSceneFolder, time.waiting);
    EXPECT_TRUE(recovery.skipped.empty()) << where;
    EXPECT_TRUE(isWholeOnEitherSide(run.disk, scene, scene.keep)) << where;
    if (end != End::Left) {
        EXPECT_TRUE(isWhole(run.disk, scene, done ? Side::New : Side::Old, scene.keep)) << where;
    }
    EXPECT_EQ(recoverFolder(healthy, kSceneFolder, time.waiting).end, Recovery::End::Nothing) << where;
}

const Failure kFailures[] = {Failure::Denied, Failure::InUse, Failure::Full, Failure::WriteProtected};

std::vector<Scene> scenes() {
    return {ringScene(1), ringScene(2), ringScene(7), saveScene(1),
            saveScene(2), saveScene(7), caseScene(),  copiesScene()};
}

TEST(ChangeFailures, ASingleOneAtEveryOperation) {
    int undone = 0;
    for (const Scene& scene : scenes()) {
        const int operations = runWith(scene, {}).operations;
        for (int i = 0; i < operations; ++i) {
            for (const Failure failure : {Failure::Full, Failure::Other}) {
                Attempt run = runWith(scene, {i, 1, failure});
                expectSound(run, scene, scene.name + ", operation " + std::to_string(i));
                EXPECT_NE(run.outcome.end, End::Left) << scene.name << " " << i;
                undone += run.outcome.end == End::Undone ? 1 : 0;
            }
        }
    }
    EXPECT_GT(undone, 100) << "the faults did not strike";
}

TEST(ChangeFailures, AShortOneAtEveryOperationIsWaitedFor) {
    for (const Scene& scene : scenes()) {
        const int operations = runWith(scene, {}).operations;
        for (int i = 0; i < operations; ++i) {
            Attempt run = runWith(scene, {i, 5, Failure::InUse});
            expectSound(run, scene, scene.name + ", operation " + std::to_string(i));
        }
    }
}

TEST(ChangeFailures, OneThatLastsFromEveryOperationOn) {
    int left = 0;
    for (const Scene& scene : scenes()) {
        const int operations = runWith(scene, {}).operations;
        for (int i = 0; i < operations; ++i) {
            for (const Failure failure : kFailures) {
                Attempt run = runWith(scene, {i, 1'000'000, failure});
                expectSound(run, scene, scene.name + ", from operation " + std::to_string(i));
                left += run.outcome.end == End::Left ? 1 : 0;
            }
        }
    }
    EXPECT_GT(left, 100) << "the faults did not strike";
}

TEST(ChangeFailures, AtManyPointsOfALongSave) {
    const Scene scene = saveScene(120);
    const int operations = runWith(scene, {}).operations;
    for (int i = 3; i < operations; i += 17) {
        Attempt run = runWith(scene, {i, i % 2 == 0 ? 1 : 1'000'000, Failure::Full});
        expectSound(run, scene, scene.name + ", operation " + std::to_string(i));
    }
}

}  // namespace
}  // namespace files
