#pragma once

#include <string>

namespace show {

/// How the show steps: `showMode`.
enum ShowMode : int {
    kNoShow = 0,
    kByHand = 1,         ///< a tick of Timer1 shows one more item and stops
    kAutomatically = 2,  ///< Timer1 goes on
};

/// What the parts of a running show know of each other. The show changes it; the others read it.
struct ShowState {
    int showMode = kNoShow;
    /// Index into File1 of the item shown; a step adds 1 before it loads. The number of items after the end.
    int pictureIndex = 0;
    /// 1 after DOWN, 0 after UP: the next item is shown, then the show waits.
    int pausedFlag = 0;
    /// Full path of the item shown.
    std::wstring currentPicture;
    /// A key or the mouse has asked for the next item at once, and it has not come yet.
    bool quickStepPending = false;
    /// Size of the show surface in pixels.
    int screenWidth = 0;
    int screenHeight = 0;
};

}  // namespace show
