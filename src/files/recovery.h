#pragma once

#include <string>
#include <vector>

#include "files/file_system.h"
#include "files/patience.h"
#include "files/plan_check.h"

namespace files {

/// What became of a change that was interrupted.
struct Recovery {
    enum class End {
        Nothing,   ///< there was none
        Finished,  ///< all files have their new names
        Undone,    ///< all files have their old names
        Waiting,   ///< something cannot be written now; the journal stays for the next time
        Running,   ///< another program is changing the folder right now
        Foreign    ///< the journal is of another version of the program, and stays
    };
    /// A file that was left as it is.
    struct Skipped {
        std::wstring name;
        Obstacle why = Obstacle::None;  ///< Missing, Changed, Taken or ScriptChanged
    };
    End end = End::Nothing;
    std::vector<Skipped> skipped;
    /// What is in the way while it waits; None where the folder takes no change at all.
    Obstacle obstacle = Obstacle::None;
    std::wstring name;  ///< the file that the obstacle is about; empty for the folder as a whole
};

/// Finishes or undoes what a journal in the folder tells of, deciding from what lies on the disk. Overwrites
/// nothing; skips what is missing, changed or foreign. The kept journal of the change before comes back, if
/// that can still be taken back. May be interrupted and called again at any time, and costs two attempts at a
/// file where there is no journal.
Recovery recoverFolder(FileSystem& fileSystem, const std::wstring& folder, const Waiting& waiting);

}  // namespace files
