#include "edit/editor_place.h"

#include <algorithm>

namespace edit {

EditorPlace placeEditor(const ScreenArea& thumbnail, int width, int height, int gap, const ScreenArea& work) {
    EditorPlace place;
    place.rightOfThumbnail = !ui::moreRoomBefore(thumbnail.across, work.across);
    const int left =
        place.rightOfThumbnail ? thumbnail.across.end + gap : thumbnail.across.begin - gap - width;
    place.left = ui::centredOver({left, left + width}, width, work.across);
    place.top = ui::centredOver(thumbnail.down, height, work.down);
    // What of the thumbnail lies beyond the work area cannot be seen.
    const int begin = std::clamp(thumbnail.down.begin, work.down.begin, work.down.end);
    const int end = std::clamp(thumbnail.down.end, work.down.begin, work.down.end);
    place.pointedAt = begin + (end - begin) / 2;
    return place;
}

}  // namespace edit
