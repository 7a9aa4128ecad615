#include "edit/edit_menu.h"

#include <set>
#include <utility>

#include "ui/popup_menu.h"

namespace edit {

void EditMenu::provide(MenuCommand command, Operation operation) {
    operations_[command] = std::move(operation);
}

std::optional<MenuCommand> EditMenu::choose(const MenuState& state, POINT screen) const {
    std::set<MenuCommand> available;
    for (const auto& [command, operation] : operations_) {
        available.insert(command);
    }
    const auto chosen = ui::popupMenu(owner_, editMenu(state, available), screen);
    return chosen ? std::optional(static_cast<MenuCommand>(*chosen)) : std::nullopt;
}

void EditMenu::run(MenuCommand command, int index) const {
    if (const auto found = operations_.find(command); found != operations_.end()) {
        found->second(index);
    }
}

}  // namespace edit
