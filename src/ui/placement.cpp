#include "ui/placement.h"

#include <algorithm>

namespace ui {

int centredOver(Stretch over, int size, Stretch bounds) {
    const int begin = over.begin + (over.end - over.begin - size) / 2;
    return std::max(std::min(begin, bounds.end - size), bounds.begin);
}

bool moreRoomBefore(Stretch thing, Stretch bounds) {
    return thing.begin - bounds.begin > bounds.end - thing.end;
}

}  // namespace ui
