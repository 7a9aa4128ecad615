#pragma once

#include <windows.h>

#include <functional>

#include "picture/surface.h"

namespace ui {

/// What covers a form from its first moment on, while its controls are still being made.
struct Curtain {
    RECT place{};  ///< on the desktop, pixels
    /// The picture, as large as the place; waited for when the form is made. Null where there is none, or
    /// none any more: the form's own ground counts then.
    std::function<const picture::Surface*()> picture;
};

}  // namespace ui
