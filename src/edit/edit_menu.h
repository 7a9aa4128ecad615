#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <optional>

#include "edit/menu_rule.h"
#include "ui/window.h"

namespace edit {

/// The popup menu of an item. It holds what was provided for it and nothing else.
class EditMenu {
  public:
    using Operation = std::function<void(int index)>;

    explicit EditMenu(const ui::Window& owner) : owner_(owner) {}

    /// What choosing an item of the menu does to an item of the overview.
    void provide(MenuCommand command, Operation operation);
    /// Shows the menu at a place of the screen (pixels) until its user has chosen; none when he left it.
    /// Throws Leaving.
    std::optional<MenuCommand> choose(const MenuState& state, POINT screen) const;
    /// Does what was provided for a command.
    void run(MenuCommand command, int index) const;

  private:
    const ui::Window& owner_;
    std::map<MenuCommand, Operation> operations_;
};

}  // namespace edit
