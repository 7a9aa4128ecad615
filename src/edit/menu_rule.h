#pragma once

#include <set>
#include <string>
#include <vector>

#include "overview/thumb_record.h"
#include "ui/menu_item.h"

namespace edit {

/// What can be chosen in the popup menu; the values are the numbers of the menu's items.
enum class MenuCommand {
    Mvor = 1,
    Mfrei,
    Msperr,
    Minf,
    Mdate,
    Mauf,
    Mprog,
    Munt,
    Mopt,
    Mdel,
    Msav,
    TakeSaveBack,
    Mmusi,
    Mmin,
    MminL,
    Mab,
};

/// What the menu of an item depends on.
struct MenuState {
    // The item.
    bool locked = false;
    bool deleted = false;  ///< marked for deletion
    bool video = false;
    bool lastShown = false;  ///< no other item is neither locked nor marked, so that a show needs this one
    bool onlyItem = false;   ///< no other item is without a mark
    // The folder and what was done in it.
    bool folderWritable = false;
    bool changed = false;
    bool anyDeleted = false;  ///< some item is marked for deletion
    bool storePresent = false;
    bool settingsShown = false;
    bool musicTitles = false;  ///< the folder has music
    bool musicShown = false;   ///< its list is shown
    bool saveToTakeBack = false;
    std::wstring editorName{};  ///< of the external editor, without folder and extension; empty for none
};

/// The part of a state that the records tell. `index` is valid.
MenuState menuStateOf(const overview::ThumbRecords& records, int index);

/// Whether a show needs an item, because every other one is locked or marked for deletion. `index` is valid.
bool isLastShown(const overview::ThumbRecords& records, int index);

/// The menu: all its items in their order. Those that are not in `available` are invisible.
std::vector<ui::MenuItem> editMenu(const MenuState& state, const std::set<MenuCommand>& available);

}  // namespace edit
