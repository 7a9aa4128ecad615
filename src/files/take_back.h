#pragma once

#include <optional>
#include <string>

#include "files/change_plan.h"
#include "files/file_system.h"

namespace files {

/// The plan that takes the last change of a folder back, to be carried out like any other: names, attributes
/// and script as they were. None unless its journal was kept and every file of it has the name and the stamp
/// that the change left, and the script its text. `deleted` of the plan are the files that do not come back.
std::optional<ChangePlan> takeBackPlan(const FileSystem& fileSystem, const std::wstring& folder);

}  // namespace files
