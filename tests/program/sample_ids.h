#pragma once

namespace sample {

/// The controls of the sample program's window.
enum ControlId : int { kTyped = 101, kTick = 102, kList = 103, kQuit = 104, kPane = 105 };

/// The colours (0xRRGGBB) of the window: as started, after a left and after a right click on it.
inline constexpr unsigned kFresh = 0x204080;
inline constexpr unsigned kLeftClicked = 0x20A040;
inline constexpr unsigned kRightClicked = 0xC03020;

}  // namespace sample
