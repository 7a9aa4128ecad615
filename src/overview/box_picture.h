#pragma once

#include "picture/pixels.h"
#include "ui/vector_path.h"

namespace overview {

/// The colours of the overview: a neutral dark ground, so that no picture seems tinted beside it.
inline constexpr ui::Rgb kGroundColour = 0x262626;
inline constexpr ui::Rgb kEmptyColour = 0x1C1C1C;
inline constexpr ui::Rgb kSelectionColour = 0x9C9C9C;
inline constexpr ui::Rgb kHotColour = 0xF2F2F2;
inline constexpr ui::Rgb kLandingColour = 0x4C9BFF;
inline constexpr ui::Rgb kLockColour = 0xFFFF00;
inline constexpr ui::Rgb kDeletionColour = 0xFF0000;

/// Where an item would land that is dragged over a box.
enum class Landing { None, Before, After };

/// What a thumbnail's box shows besides its image.
struct BoxLook {
    int gap = 0;  ///< pixels between two thumbnails; half of it lies on each side of a box
    bool locked = false;
    bool deleted = false;  ///< marked for deletion: the image is gone
    bool selected = false;
    bool hot = false;  ///< the pointer is over it
    Landing landing = Landing::None;
};

/// The place of the image in a box of that size: the box without its share of the gap.
struct ImagePlace {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};
ImagePlace imagePlace(int boxWidth, int boxHeight, int gap);

/// A box, all painted: ground, image (empty: none yet; scaled where it has another size than its place),
/// frame and marks. The marks of locking and of deletion go from the image's lower left corner to its upper
/// right one; of both the one of deletion is shown.
picture::Pixels composeBox(int width, int height, const picture::Pixels& image, const BoxLook& look);

/// The same image at another size; a mean of the pixels where it becomes smaller.
picture::Pixels scaledTo(const picture::Pixels& image, int width, int height);

}  // namespace overview
