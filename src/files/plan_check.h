#pragma once

#include <optional>
#include <string>

#include "files/change_plan.h"
#include "files/file_system.h"
#include "files/folder_view.h"
#include "files/journal.h"

namespace files {

/// Why a change was not made, or not to its end.
enum class Obstacle {
    None,
    Missing,         ///< a file of the plan is not there
    Changed,         ///< a file of the plan is not the one that it was
    Taken,           ///< a new name belongs to a file outside the plan
    TwiceTheSame,    ///< two files would get one name, or one file two
    IllegalName,     ///< a name that no file may have
    PathTooLong,     ///< a path that not every program could open
    ScriptChanged,   ///< the script is not what it was, or cannot be read
    OtherProgram,    ///< another program is changing the folder right now
    Unfinished,      ///< an earlier change waits to be finished or undone
    Denied,          ///< no permission
    InUse,           ///< another program holds a file
    WriteProtected,  ///< the medium takes no change
    Full,            ///< no room on the medium
    Other
};

Obstacle obstacleOf(Failure failure);

/// What stands against a plan.
struct Refusal {
    Obstacle obstacle = Obstacle::None;
    std::wstring name;  ///< the file or the new name that it is about; empty for the folder as a whole
};

/// The first thing that stands against a plan, seen from what the folder holds; none: it can begin. Of the
/// cache nothing is asked, since its files can be made again.
std::optional<Refusal> checkPlan(const FileSystem& fileSystem, const FolderView& view,
                                 const ChangePlan& plan);

/// The journal of a plan that passed the check: with temporary names that nothing in the folder has, files
/// of the cache left out where they are missing, and its leftovers at names that are needed dropped.
Journal journalOf(const FileSystem& fileSystem, const FolderView& view, const ChangePlan& plan);

}  // namespace files
