#pragma once

#include <string>
#include <vector>

namespace ui {

/// One line of a menu.
struct MenuItem {
    int id = 0;              ///< what choosing it gives, above 0; of no meaning for separators and submenus
    std::wstring caption{};  ///< "&" underlines the letter behind it
    bool enabled = true;
    bool visible = true;
    bool checked = false;
    bool separator = false;
    std::vector<MenuItem> submenu{};  ///< not empty: choosing it opens these
    friend bool operator==(const MenuItem&, const MenuItem&) = default;
};

/// A line between two groups of items.
MenuItem menuSeparator();

/// The lines that a menu shows: without invisible items, without submenus that show nothing, and with
/// separators only between items, never two in a row.
std::vector<MenuItem> shownMenuItems(const std::vector<MenuItem>& items);

}  // namespace ui
