#pragma once

#include <string>

namespace app {

/// The tooltip of `File1` for a number of files.
std::wstring fileCountText(int count);

}  // namespace app
