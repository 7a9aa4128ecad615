#pragma once

#include <functional>
#include <string>

#include "files/change_plan.h"
#include "files/file_system.h"
#include "files/patience.h"
#include "files/plan_check.h"

namespace files {

/// How a change of a folder ended.
struct Outcome {
    enum class End {
        Done,     ///< all is as planned
        Refused,  ///< nothing was changed
        Undone,   ///< it failed on the way, and all is as it was
        Left      ///< it failed, and so did undoing it: the journal waits for the next opening of the folder
    };
    End end = End::Done;
    Obstacle obstacle = Obstacle::None;  ///< why, unless Done
    std::wstring name;  ///< the file or name that it is about; empty for the folder as a whole
    bool kept = false;  ///< the change can be taken back
};

/// Which file a change is at.
struct ChangeProgress {
    int pass = 1;   ///< 1: to temporary names, 2: to the new ones
    int index = 0;  ///< of the plan's files that are there, from 0
    int count = 0;
};

/// Carries out a plan: checks it, writes the journal, renames every file to a temporary name and then to its
/// new one, swaps the script, sets attributes, and removes the journal or keeps it. Nothing is ever
/// overwritten. The kept journal of an earlier change gives way only to one that is kept as well or takes it
/// back, and only when that has ended. The journal is held open, so that no other running program changes the
/// folder meanwhile. `onProgress` may be empty. What `waiting.pause` or `onProgress` throws goes through and
/// leaves the journal.
Outcome changeFolder(FileSystem& fileSystem, const ChangePlan& plan, const Waiting& waiting,
                     const std::function<void(const ChangeProgress&)>& onProgress = {});

}  // namespace files
