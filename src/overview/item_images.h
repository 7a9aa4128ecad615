#pragma once

#include <optional>

#include "picture/pixels.h"

namespace overview {

/// The images of an item, made from its file; none where the file cannot be shown.
struct ItemImages {
    std::optional<picture::Pixels> shown;  ///< for its cell, in the colours of the monitor
    /// For the store: in the file's own colours, and as large as the cells are when all items are shown,
    /// however large they are now.
    std::optional<picture::Pixels> kept;
};

}  // namespace overview
