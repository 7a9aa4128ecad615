#include "edit/edit_menu.h"

#include <set>
#include <utility>

#include "ui/popup_menu.h"

namespace edit {

void EditMenu::provide(MenuCommand command, Operation operation) {
    operations_[command] = std::move(operation);
}

void EditMenu::open(const MenuState& state, int index, POINT screen) {
    std::set<MenuCommand> available;
    for (const auto& [command, operation] : operations_) {
        available.insert(command);
    }
    const auto chosen = ui::popupMenu(owner_, editMenu(state, available), screen);
    if (!chosen) {
        return;
    }
    // What the menu covered is painted before anything takes its time. Nothing else may come in between: a
    // window that is closed right now would save, and the index would be another item's.
    RedrawWindow(owner_.hwnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    if (const auto found = operations_.find(static_cast<MenuCommand>(*chosen)); found != operations_.end()) {
        found->second(index);
    }
}

}  // namespace edit
