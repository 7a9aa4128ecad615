#pragma once

#include <optional>

#include "files/file_system.h"
#include "files/plan_check.h"
#include "overview/thumb_record.h"

namespace edit {

/// What stands against a save whatever its prefix, seen from the disk as it is now: files and script that are
/// not those that the records were read from, a script that is hidden or write-protected by now, a change of
/// the folder that another program is at or that was never finished. A file that is marked for deletion may
/// be gone. None: the save may begin, deletions first.
std::optional<files::Refusal> checkBeforeSave(const files::FileSystem& fileSystem,
                                              const overview::ThumbRecords& records);

}  // namespace edit
