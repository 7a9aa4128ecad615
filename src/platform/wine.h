#pragma once

namespace platform {

/// Whether the program runs under Wine instead of Windows.
bool runsUnderWine();

}  // namespace platform
