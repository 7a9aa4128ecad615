#pragma once

#include <string>

#include "files/plan_check.h"

namespace files {

/// Why a folder's files could not be changed, for its user: one German sentence. Empty for None. `name`: the
/// file or name that it is about, empty for the folder as a whole.
std::wstring obstacleText(Obstacle obstacle, const std::wstring& name);

}  // namespace files
