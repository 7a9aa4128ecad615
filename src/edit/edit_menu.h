#pragma once

#include <windows.h>

#include <functional>
#include <map>

#include "edit/menu_rule.h"
#include "ui/window.h"

namespace edit {

/// The popup menu of an item. It holds what was provided for it and nothing else.
class EditMenu {
  public:
    using Operation = std::function<void(int index)>;

    explicit EditMenu(const ui::Window& owner) : owner_(owner) {}

    /// What choosing an item does, with the index that the menu was opened for.
    void provide(MenuCommand command, Operation operation);
    /// Shows the menu at a place of the screen (pixels) until its user has chosen, and does that. Throws
    /// Leaving.
    void open(const MenuState& state, int index, POINT screen);

  private:
    const ui::Window& owner_;
    std::map<MenuCommand, Operation> operations_;
};

}  // namespace edit
