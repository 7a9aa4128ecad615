#pragma once

#include <string>

namespace platform {

/// The folder of the program's file; it ends in "\" only when it is a root.
std::wstring programDir();

}  // namespace platform
