#include "ui/menu_item.h"

#include <gmock/gmock.h>

namespace ui {
namespace {

using testing::ElementsAre;

MenuItem item(int id, bool visible = true) {
    return {.id = id, .caption = std::to_wstring(id), .visible = visible};
}

MenuItem menu(std::vector<MenuItem> items, bool visible = true) {
    return {.caption = L"mehr", .visible = visible, .submenu = std::move(items)};
}

/// "1 - 2 (3 4)": items by number, "-" for separators, submenus in brackets.
std::string textOf(const std::vector<MenuItem>& items) {
    std::string text;
    for (const MenuItem& one : items) {
        text += text.empty() ? "" : " ";
        if (one.separator) {
            text += "-";
        } else {
            text += one.submenu.empty() ? std::to_string(one.id) : "(" + textOf(one.submenu) + ")";
        }
    }
    return text;
}

TEST(MenuItems, WhatIsShown) {
    struct Case {
        std::vector<MenuItem> items;
        std::string shown;
    };
    const MenuItem line = menuSeparator();
    MenuItem hiddenLine = menuSeparator();
    hiddenLine.visible = false;
    const std::vector<Case> cases = {
        {{}, ""},
        {{item(1), item(2)}, "1 2"},
        {{item(1), line, item(2)}, "1 - 2"},
        {{item(1), item(2, false), item(3)}, "1 3"},
        {{line, item(1), line}, "1"},
        {{item(1), line, line, item(2)}, "1 - 2"},
        {{item(1), line, item(2, false), line, item(3)}, "1 - 3"},
        {{item(1, false), line, item(2)}, "2"},
        {{item(1), line, item(2, false)}, "1"},
        {{item(1), hiddenLine, item(2)}, "1 2"},
        {{item(1), hiddenLine, line, item(2)}, "1 - 2"},
        {{line, line}, ""},
        {{item(1), menu({item(2), line, item(3)})}, "1 (2 - 3)"},
        {{item(1), menu({item(2, false), item(3)})}, "1 (3)"},
        {{item(1), menu({item(2, false)})}, "1"},
        {{item(1), line, menu({item(2, false), line})}, "1"},
        {{item(1), menu({item(2)}, false)}, "1"},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(textOf(shownMenuItems(one.items)), one.shown) << textOf(one.items);
    }
}

TEST(MenuItems, WhatIsShownKeepsItsState) {
    MenuItem off{.id = 4, .caption = L"&Aus", .enabled = false, .checked = true};
    EXPECT_THAT(shownMenuItems({off}), ElementsAre(off));
}

}  // namespace
}  // namespace ui
