#include "edit/menu_rule.h"

#include <algorithm>
#include <utility>

#include "files/file_filter.h"

namespace edit {

namespace {

using overview::ThumbRecord;

bool inShow(const ThumbRecord& record) {
    return !record.locked && !record.deleted;
}

std::wstring startCaption(const std::wstring& editorName) {
    return editorName.empty() ? L"Programm starten" : L"«" + editorName + L"» starten";
}

/// Collects the items of a menu. An item is visible when its command is available and the state wants it.
class MenuBuilder {
  public:
    explicit MenuBuilder(const std::set<MenuCommand>& available) : available_(available) {}

    ui::MenuItem& add(MenuCommand command, std::wstring caption, bool visible, bool enabled) {
        ui::MenuItem item;
        item.id = static_cast<int>(command);
        item.caption = std::move(caption);
        item.visible = visible && available_.contains(command);
        item.enabled = enabled;
        items_.push_back(std::move(item));
        return items_.back();
    }
    void separate() { items_.push_back(ui::menuSeparator()); }
    /// Puts the items of another menu into one item of this one.
    void addSubmenu(std::wstring caption, bool visible, bool enabled, MenuBuilder inner) {
        ui::MenuItem item;
        item.caption = std::move(caption);
        item.visible = visible;
        item.enabled = enabled;
        item.submenu = std::move(inner.items_);
        items_.push_back(std::move(item));
    }
    std::vector<ui::MenuItem> items() { return std::move(items_); }

  private:
    const std::set<MenuCommand>& available_;
    std::vector<ui::MenuItem> items_;
};

// Taking a mark for deletion back is offered under the same name as unlocking: both bring a picture back.
void addLocking(MenuBuilder& menu, const MenuState& state) {
    menu.add(MenuCommand::Mfrei, L"Bild &freigeben", state.locked || state.deleted, state.folderWritable);
    menu.add(MenuCommand::Msperr, L"Bild &sperren", !state.locked && !state.deleted,
             state.folderWritable && !state.lastShown);
}

void addFile(MenuBuilder& menu, const MenuState& state, const std::set<MenuCommand>& available) {
    const bool offered = !state.deleted;
    const bool writable = state.folderWritable;
    menu.add(MenuCommand::Minf, L"Datei-&Info", offered, true);
    menu.add(MenuCommand::Mdate, L"&Datum ändern", offered, writable);
    MenuBuilder editor(available);
    editor.add(MenuCommand::Mauf, startCaption(state.editorName), true,
               writable && !state.editorName.empty());
    editor.add(MenuCommand::Mprog, L"Programm auswählen", true, writable);
    menu.addSubmenu(L"Bild &bearbeiten", offered && !state.video, writable, std::move(editor));
}

void addFolder(MenuBuilder& menu, const MenuState& state) {
    const bool offered = !state.deleted;
    const bool writable = state.folderWritable;
    menu.add(MenuCommand::Msav, L"Änderungen speichern", true, writable && state.changed);
    // What was changed since would be lost with it.
    menu.add(MenuCommand::TakeSaveBack, L"Letztes Speichern zurücknehmen", offered && state.saveToTakeBack,
             writable && !state.changed);
    menu.separate();
    menu.add(MenuCommand::Mmusi, L"Musik bearbeiten", offered, state.musicTitles && !state.musicShown);
    menu.add(MenuCommand::Mmin, L"Minibilder speichern", offered,
             writable && !state.storePresent && !state.anyDeleted)
        .checked = state.storePresent;
    menu.add(MenuCommand::MminL, L"Minibilder löschen", offered, writable && state.storePresent);
}

}  // namespace

bool isLastShown(const overview::ThumbRecords& records, int index) {
    const auto& all = records.thumbRecords;
    return inShow(all[static_cast<std::size_t>(index)]) && std::count_if(all.begin(), all.end(), inShow) == 1;
}

MenuState menuStateOf(const overview::ThumbRecords& records, int index) {
    const auto& all = records.thumbRecords;
    const ThumbRecord& record = all[static_cast<std::size_t>(index)];
    const auto marked =
        std::count_if(all.begin(), all.end(), [](const ThumbRecord& other) { return other.deleted; });
    MenuState state;
    state.locked = record.locked;
    state.deleted = record.deleted;
    state.video = files::isVideoName(record.fileName);
    state.lastShown = isLastShown(records, index);
    state.onlyItem = !record.deleted && records.thumbCount() - marked == 1;
    state.folderWritable = records.folderWritable;
    state.changed = records.changed;
    state.anyDeleted = marked > 0;
    return state;
}

std::vector<ui::MenuItem> editMenu(const MenuState& state, const std::set<MenuCommand>& available) {
    const bool offered = !state.deleted;
    const bool writable = state.folderWritable;
    MenuBuilder menu(available);
    menu.add(MenuCommand::Mvor, L"Bild &vergrößern", offered, true);
    addLocking(menu, state);
    menu.separate();
    addFile(menu, state, available);
    menu.separate();
    // An entry is kept by saving only.
    menu.add(MenuCommand::Munt, L"&Titel / Pause / n.Effekt / Musik", offered, writable);
    menu.add(MenuCommand::Mopt, L"Bild-&Einstellungen anzeigen", offered, !state.settingsShown);
    menu.separate();
    menu.add(MenuCommand::Mdel, L"Bild &löschen", offered, writable && !state.lastShown && !state.onlyItem);
    menu.separate();
    addFolder(menu, state);
    menu.separate();
    menu.add(MenuCommand::Mab, L"B&eenden (zurück)", true, true);
    return menu.items();
}

}  // namespace edit
