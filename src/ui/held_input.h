#pragma once

namespace ui {

/// Keys and mouse stay in the queue, in their order, while somebody holds them: what is typed before a window
/// can make use of it is then meant for what its user sees. On the window thread only; calls come in pairs.
void holdInput();
void releaseInput();
bool inputHeld();

}  // namespace ui
