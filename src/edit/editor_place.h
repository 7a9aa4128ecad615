#pragma once

#include "ui/placement.h"

namespace edit {

/// A rectangle of the screen, in pixels.
struct ScreenArea {
    ui::Stretch across;
    ui::Stretch down;
};

/// Where the editor lies beside a thumbnail, in pixels of the screen.
struct EditorPlace {
    int left = 0;
    int top = 0;
    bool rightOfThumbnail = false;
    int pointedAt = 0;  ///< the height at which the arrow points at the thumbnail
    friend bool operator==(const EditorPlace&, const EditorPlace&) = default;
};

/// Lays an editor of a size beside a thumbnail, `gap` pixels from it, its middle at the thumbnail's middle,
/// moved as far as it needs to lie on the work area. It comes to the right of a thumbnail in the left half
/// and to the left of one in the right half. Where a thumbnail leaves too little room, it is covered in part.
EditorPlace placeEditor(const ScreenArea& thumbnail, int width, int height, int gap, const ScreenArea& work);

}  // namespace edit
