#include "picture/orientation.h"

#include <algorithm>

namespace picture {

namespace {

/// What an orientation does: first the axes are exchanged, then the upright axes are reversed.
struct Steps {
    bool exchange;
    bool reverseX;
    bool reverseY;
};

Steps stepsOf(Orientation orientation) {
    switch (orientation) {
        case Orientation::Upright:
            return {false, false, false};
        case Orientation::MirrorHorizontally:
            return {false, true, false};
        case Orientation::Turn180:
            return {false, true, true};
        case Orientation::MirrorVertically:
            return {false, false, true};
        case Orientation::Transpose:
            return {true, false, false};
        case Orientation::Turn90:
            return {true, true, false};
        case Orientation::Transverse:
            return {true, true, true};
        case Orientation::Turn270:
            return {true, false, true};
    }
    return {false, false, false};
}

}  // namespace

std::optional<Orientation> orientationFromValue(unsigned value) {
    if (value < 1 || value > 8) {
        return std::nullopt;
    }
    return static_cast<Orientation>(value);
}

bool exchangesSides(Orientation orientation) {
    return stepsOf(orientation).exchange;
}

Placement visiblePart(const Placement& placement, const Canvas& surface) {
    const int left = std::max(0, placement.left);
    const int top = std::max(0, placement.top);
    const int right = std::min(surface.width, placement.left + placement.width);
    const int bottom = std::min(surface.height, placement.top + placement.height);
    if (left >= right || top >= bottom) {
        return {};
    }
    return {left, top, right - left, bottom - top};
}

StoredPart storedPart(Orientation orientation, const Placement& placement, const Canvas& surface) {
    const Steps steps = stepsOf(orientation);
    StoredPart part;
    part.width = steps.exchange ? placement.height : placement.width;
    part.height = steps.exchange ? placement.width : placement.height;

    // The visible part in the upright picture's own coordinates.
    const int left = std::max(0, -placement.left);
    const int top = std::max(0, -placement.top);
    const int right = std::min(placement.width, surface.width - placement.left);
    const int bottom = std::min(placement.height, surface.height - placement.top);
    if (left >= right || top >= bottom) {
        return part;
    }
    // Stored (0, 0) of that part lies in the corner where the reversed axes end.
    const int startX = steps.reverseX ? right - 1 : left;
    const int startY = steps.reverseY ? bottom - 1 : top;
    const std::ptrdiff_t alongX = steps.reverseX ? -1 : 1;
    const std::ptrdiff_t alongY = steps.reverseY ? -static_cast<std::ptrdiff_t>(surface.width)
                                                 : static_cast<std::ptrdiff_t>(surface.width);
    part.view.origin = surface.row(placement.top + startY) + (placement.left + startX);
    part.view.xStep = steps.exchange ? alongY : alongX;
    part.view.yStep = steps.exchange ? alongX : alongY;

    const int storedX = steps.reverseX ? placement.width - right : left;
    const int storedY = steps.reverseY ? placement.height - bottom : top;
    if (steps.exchange) {
        part.visible = {storedY, storedX, bottom - top, right - left};
    } else {
        part.visible = {storedX, storedY, right - left, bottom - top};
    }
    return part;
}

}  // namespace picture
