#pragma once

#include <windows.h>

#include <optional>
#include <vector>

#include "ui/menu_item.h"
#include "ui/window.h"

namespace ui {

/// Shows a menu with its top left corner at a place of the screen (pixels), or where it fits, and waits until
/// its user has chosen: the number of the item, or std::nullopt for none. `owner`: the window, or a control
/// of it, that the menu belongs to; it comes to the front. A menu that shows no item is not opened.
///
/// Timers and other events go on meanwhile. When the program is being left the menu closes and Leaving is
/// thrown.
std::optional<int> popupMenu(const Window& owner, const std::vector<MenuItem>& items, POINT screen);

}  // namespace ui
