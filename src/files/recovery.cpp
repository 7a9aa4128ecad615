#include "files/recovery.h"

#include <algorithm>

#include "files/folder_view.h"
#include "files/journal.h"
#include "files/journal_run.h"
#include "files/parked_journal.h"
#include "platform/directory.h"

namespace files {

namespace {

using Place = JournalRun::Place;
using End = Recovery::End;

Recovery ended(End end, Failure failure = Failure::None) {
    return {end, {}, obstacleOf(failure), {}};
}

/// A change that was interrupted, being brought to one of its two ends.
class Interrupted {
  public:
    Interrupted(FileSystem& fileSystem, const std::wstring& folder, const Waiting& waiting,
                const JournalReading& reading, HeldFile& held)
        : fileSystem_(fileSystem),
          folder_(folder),
          patience_(waiting),
          run_(fileSystem, folder, reading.journal, patience_),
          reading_(reading),
          held_(held),
          side_(reading.phase == Phase::First ? Place::Old : Place::New) {}

    Recovery settle(const FolderView& view) {
        run_.locate(view, reading_.phase);
        if (reading_.phase == Phase::Done && !anyAtTemporaryName()) {
            dropParkedJournal(fileSystem_, folder_);
            return {};
        }
        reportMissing(view);
        bringToNames();
        settleScript();
        block(run_.bringAttributes(side_));
        if (!blocked()) {
            end();
        }
        report_.end = blocked() ? End::Waiting : side_ == Place::New ? End::Finished : End::Undone;
        return report_;
    }

  private:
    bool blocked() const { return report_.obstacle != Obstacle::None; }

    void end() {
        const bool keep = side_ == Place::New && reading_.journal.keep && report_.skipped.empty();
        block(keep ? run_.enter(Phase::Done, held_) : run_.close(held_));
        if (blocked()) {
            return;
        }
        // One that this change has outdated by its names is found to be so when it is to be taken back.
        if (keep) {
            dropParkedJournal(fileSystem_, folder_);
        } else {
            unparkJournal(fileSystem_, folder_);
        }
    }

    bool anyAtTemporaryName() const {
        for (std::size_t i = 0; i < run_.count(); ++i) {
            if (run_.at(i) == Place::Temporary) {
                return true;
            }
        }
        return false;
    }

    void reportMissing(const FolderView& view) {
        for (std::size_t i = 0; i < run_.count(); ++i) {
            const JournalMove& move = run_.moveOf(i);
            if (run_.at(i) != Place::Gone || isCacheName(move.oldName)) {
                continue;
            }
            const bool there = view.find(move.temporaryName) != nullptr || view.find(nameOf(move)) != nullptr;
            report_.skipped.push_back({nameOf(move), there ? Obstacle::Changed : Obstacle::Missing});
        }
    }

    const std::wstring& nameOf(const JournalMove& move) const {
        return side_ == Place::Old ? move.oldName : move.newName;
    }

    void bringToNames() {
        const Place other = side_ == Place::Old ? Place::New : Place::Old;
        // A file on the other side may have the name of another one that is still to come.
        block(run_.bringAll(other, Place::Temporary));
        std::vector<std::size_t> taken;
        for (std::size_t i = 0; i < run_.count(); ++i) {
            if (run_.at(i) != Place::Temporary) {
                continue;
            }
            const Failure result = run_.bring(i, side_);
            if (result == Failure::Exists) {
                report_.skipped.push_back({nameOf(run_.moveOf(i)), Obstacle::Taken});
                taken.push_back(i);
            } else {
                block(result, nameOf(run_.moveOf(i)));
            }
        }
        // Only now: its other name may be one that a file of the change was on the way to.
        for (const std::size_t i : taken) {
            block(run_.bring(i, other), nameOf(run_.moveOf(i)));
        }
    }

    void settleScript() {
        const Obstacle found = run_.bringScript(side_);
        if (found == Obstacle::ScriptChanged) {
            report_.skipped.push_back({reading_.journal.script->name, found});
        } else if (found != Obstacle::None) {
            block(found, reading_.journal.script->name);
        }
    }

    void block(Failure failure, const std::wstring& name = {}) { block(obstacleOf(failure), name); }

    // The first one is told.
    void block(Obstacle obstacle, const std::wstring& name) {
        if (!blocked()) {
            report_.obstacle = obstacle;
            report_.name = obstacle == Obstacle::None ? std::wstring() : name;
        }
    }

    FileSystem& fileSystem_;
    const std::wstring& folder_;
    Patience patience_;
    JournalRun run_;
    const JournalReading& reading_;
    HeldFile& held_;
    Place side_;
    Recovery report_;
};

}  // namespace

Recovery recoverFolder(FileSystem& fileSystem, const std::wstring& folder, const Waiting& waiting) {
    const FileSystem::Held held = fileSystem.openHeld(platform::joinPath(folder, kJournalFile));
    switch (held.failure) {
        case Failure::None:
            break;
        case Failure::Missing:
            unparkJournal(fileSystem, folder);
            return {};
        case Failure::InUse:
            return ended(End::Running);
        default:
            return ended(End::Waiting);
    }
    const Answer<std::string> bytes = held.file->read();
    if (bytes.failure != Failure::None) {
        return ended(End::Waiting, bytes.failure);
    }
    const JournalReading reading = readJournal(bytes.value);
    if (reading.kind == JournalReading::Kind::Foreign) {
        return ended(End::Foreign);
    }
    if (reading.kind == JournalReading::Kind::Torn) {
        const Failure removed = held.file->remove();
        if (removed != Failure::None) {
            return ended(End::Waiting, removed);
        }
        unparkJournal(fileSystem, folder);
        return {};
    }
    const Answer<FolderView> view = FolderView::read(fileSystem, folder);
    if (view.failure != Failure::None) {
        return ended(End::Waiting, view.failure);
    }
    return Interrupted(fileSystem, folder, waiting, reading, *held.file).settle(view.value);
}

}  // namespace files
