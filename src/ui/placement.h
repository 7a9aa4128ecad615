#pragma once

namespace ui {

/// A stretch of one axis of the screen, in pixels; `end` lies behind it.
struct Stretch {
    int begin = 0;
    int end = 0;
};

/// Where something of a size begins that lies in the middle of `over`, moved so that it lies within `bounds`.
/// Where it is too large for them it begins where they do, so that its title stays in reach.
int centredOver(Stretch over, int size, Stretch bounds);

/// Whether what opens beside something, to its begin or to its end, has more room at its begin.
bool moreRoomBefore(Stretch thing, Stretch bounds);

}  // namespace ui
