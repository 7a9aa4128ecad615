#include "files/change_folder.h"

#include <memory>
#include <utility>

#include "files/folder_view.h"
#include "files/journal.h"
#include "files/journal_run.h"
#include "files/parked_journal.h"
#include "platform/directory.h"

namespace files {

namespace {

using Place = JournalRun::Place;

Outcome refused(Obstacle obstacle, std::wstring name = {}) {
    return {Outcome::End::Refused, obstacle, std::move(name), false};
}

/// A change on its way: the steps in their order, and the way back.
class Change {
  public:
    Change(FileSystem& fileSystem, const ChangePlan& plan, const Waiting& waiting,
           const std::function<void(const ChangeProgress&)>& onProgress)
        : fileSystem_(fileSystem), plan_(plan), patience_(waiting), onProgress_(onProgress) {}

    Outcome carryOut() {
        Answer<FolderView> view = FolderView::read(fileSystem_, plan_.folder);
        if (view.failure != Failure::None) {
            return refused(obstacleOf(view.failure));
        }
        if (std::optional<Refusal> refusal = checkPlan(fileSystem_, view.value, plan_)) {
            return refused(refusal->obstacle, refusal->name);
        }
        journal_ = journalOf(fileSystem_, view.value, plan_);
        if (const Obstacle found = lock(); found != Obstacle::None) {
            return refused(found);
        }
        // Another program may have been at work between the look and the lock.
        view = FolderView::read(fileSystem_, plan_.folder);
        if (view.failure != Failure::None) {
            unlock();
            return refused(obstacleOf(view.failure));
        }
        if (std::optional<Refusal> refusal = checkPlan(fileSystem_, view.value, plan_)) {
            unlock();
            return refused(refusal->obstacle, refusal->name);
        }
        JournalRun run(fileSystem_, plan_.folder, journal_, patience_);
        return firstPass(run);
    }

  private:
    Obstacle lock() {
        const std::wstring path = platform::joinPath(plan_.folder, kJournalFile);
        if (const Obstacle found = makeRoom(path); found != Obstacle::None) {
            return found;
        }
        const std::string bytes = journalBytes(journal_);
        FileSystem::Held held;
        patience_.until([&] { return (held = fileSystem_.createHeld(path, bytes)).failure; });
        held_ = std::move(held.file);
        if (held.failure != Failure::None) {
            unparkJournal(fileSystem_, plan_.folder);
        }
        return held.failure == Failure::Exists ? Obstacle::OtherProgram : obstacleOf(held.failure);
    }

    // The last change can be taken back as long as this one has not ended.
    Obstacle makeRoom(const std::wstring& path) {
        FileSystem::Held former = fileSystem_.openHeld(path);
        if (former.failure == Failure::Missing) {
            return Obstacle::None;
        }
        if (former.failure != Failure::None) {
            return former.failure == Failure::InUse ? Obstacle::OtherProgram : obstacleOf(former.failure);
        }
        const Answer<std::string> bytes = former.file->read();
        const JournalReading reading = readJournal(bytes.value);
        const bool torn = reading.kind == JournalReading::Kind::Torn;
        const bool done = reading.kind == JournalReading::Kind::Whole && reading.phase == Phase::Done;
        if (bytes.failure != Failure::None || !(torn || done)) {
            return Obstacle::Unfinished;
        }
        if (torn) {
            return obstacleOf(patience_.until([&] { return former.file->remove(); }));
        }
        former.file.reset();
        return obstacleOf(patience_.until([&] { return parkJournal(fileSystem_, plan_.folder); }));
    }

    void unlock() {
        if (held_->remove() == Failure::None) {
            unparkJournal(fileSystem_, plan_.folder);
        }
    }

    void tell(int pass, std::size_t i, std::size_t count) const {
        if (onProgress_) {
            onProgress_({pass, static_cast<int>(i), static_cast<int>(count)});
        }
    }

    // The name of the first file that could not be brought on; empty when all could.
    Failure pass(JournalRun& run, int number, Place to) {
        for (std::size_t i = 0; i < run.count(); ++i) {
            tell(number, i, run.count());
            if (const Failure result = run.bring(i, to); result != Failure::None) {
                failedAt_ = number == 1 ? run.moveOf(i).oldName : run.moveOf(i).newName;
                return result;
            }
        }
        return Failure::None;
    }

    Outcome firstPass(JournalRun& run) {
        run.dropCache();
        Failure failure = pass(run, 1, Place::Temporary);
        if (failure == Failure::None) {
            failure = run.enter(Phase::Second, *held_);
        }
        if (failure != Failure::None) {
            return undoFirst(run, obstacleOf(failure));
        }
        return secondPass(run);
    }

    Outcome secondPass(JournalRun& run) {
        const Failure renamed = pass(run, 2, Place::New);
        if (renamed != Failure::None) {
            return undoSecond(run, obstacleOf(renamed));
        }
        if (const Obstacle found = run.bringScript(Place::New); found != Obstacle::None) {
            failedAt_ = plan_.script->name;
            return undoSecond(run, found);
        }
        if (const Failure result = run.bringAttributes(Place::New); result != Failure::None) {
            return undoSecond(run, obstacleOf(result));
        }
        Outcome outcome;
        outcome.kept = plan_.keep && run.enter(Phase::Done, *held_) == Failure::None;
        // All is done: a journal that cannot be removed is, when the folder is next opened.
        if (outcome.kept || run.close(*held_) == Failure::None) {
            settleFormer();
        }
        return outcome;
    }

    void settleFormer() {
        if (plan_.keep || plan_.takesBack) {
            dropParkedJournal(fileSystem_, plan_.folder);
        } else {
            unparkJournal(fileSystem_, plan_.folder);
        }
    }

    Outcome undoSecond(JournalRun& run, Obstacle why) {
        patience_.renew();
        const Obstacle script = run.bringScript(Place::Old);
        const bool back = (script == Obstacle::None || script == Obstacle::ScriptChanged) &&
                          run.bringAll(Place::New, Place::Temporary) == Failure::None &&
                          run.enter(Phase::First, *held_) == Failure::None;
        if (back) {
            return undoFirst(run, why);
        }
        // Better new names than temporary ones, until the folder is opened again.
        run.bringAll(Place::Temporary, Place::New);
        run.bringScript(Place::New);
        return {Outcome::End::Left, why, failedAt_, false};
    }

    Outcome undoFirst(JournalRun& run, Obstacle why) {
        patience_.renew();
        const bool back = run.bringAll(Place::Temporary, Place::Old) == Failure::None &&
                          run.bringAttributes(Place::Old) == Failure::None;
        if (back && run.close(*held_) == Failure::None) {
            unparkJournal(fileSystem_, plan_.folder);
        }
        return {back ? Outcome::End::Undone : Outcome::End::Left, why, failedAt_, false};
    }

    FileSystem& fileSystem_;
    const ChangePlan& plan_;
    Patience patience_;
    const std::function<void(const ChangeProgress&)>& onProgress_;
    Journal journal_;
    std::unique_ptr<HeldFile> held_;
    std::wstring failedAt_;
};

}  // namespace

Outcome changeFolder(FileSystem& fileSystem, const ChangePlan& plan, const Waiting& waiting,
                     const std::function<void(const ChangeProgress&)>& onProgress) {
    return Change(fileSystem, plan, waiting, onProgress).carryOut();
}

}  // namespace files
