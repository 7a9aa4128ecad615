#include "ui/menu_item.h"

#include <utility>

namespace ui {

MenuItem menuSeparator() {
    MenuItem line;
    line.separator = true;
    return line;
}

std::vector<MenuItem> shownMenuItems(const std::vector<MenuItem>& items) {
    std::vector<MenuItem> shown;
    bool separated = false;
    for (const MenuItem& item : items) {
        if (item.separator) {
            separated = item.visible || separated;
            continue;
        }
        MenuItem copy = item;
        copy.submenu = shownMenuItems(item.submenu);
        if (!item.visible || (copy.submenu.empty() && !item.submenu.empty())) {
            continue;
        }
        if (separated && !shown.empty()) {
            shown.push_back(menuSeparator());
        }
        separated = false;
        shown.push_back(std::move(copy));
    }
    return shown;
}

}  // namespace ui
