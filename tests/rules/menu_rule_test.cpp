#include "edit/menu_rule.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <string>

namespace edit {
namespace {

using testing::ElementsAre;
using C = MenuCommand;

const std::set<C> kAll{C::Mvor, C::Mfrei, C::Msperr, C::Minf,         C::Mdate, C::Mauf, C::Mprog, C::Munt,
                       C::Mopt, C::Mdel,  C::Msav,   C::TakeSaveBack, C::Mmusi, C::Mmin, C::MminL, C::Mab};

/// A picture among others in a folder that can be written, where nothing happened yet.
MenuState plain() {
    MenuState state;
    state.folderWritable = true;
    state.musicTitles = true;
    state.editorName = L"MSPAINT";
    return state;
}

/// The captions that the menu shows, a blank for disabled ones and "*" for checked ones before them; lines
/// as "-", the items of submenus behind ">".
std::vector<std::wstring> shown(const MenuState& state, const std::set<C>& available = kAll) {
    std::vector<std::wstring> texts;
    const std::function<void(const std::vector<ui::MenuItem>&, const std::wstring&)> collect =
        [&](const std::vector<ui::MenuItem>& items, const std::wstring& before) {
            for (const ui::MenuItem& item : items) {
                const std::wstring flags =
                    std::wstring(item.enabled ? L"" : L" ") + (item.checked ? L"*" : L"");
                texts.push_back(before + (item.separator ? L"-" : flags + item.caption));
                collect(item.submenu, L">");
            }
        };
    collect(ui::shownMenuItems(editMenu(state, available)), L"");
    return texts;
}

/// Whether an item is shown, and then whether it can be chosen.
enum class Offer { Absent, Off, On };

const ui::MenuItem* find(const std::vector<ui::MenuItem>& items, C command) {
    for (const ui::MenuItem& item : items) {
        if (item.id == static_cast<int>(command) && !item.separator && item.submenu.empty()) {
            return &item;
        }
        if (const ui::MenuItem* inner = find(item.submenu, command)) {
            return inner;
        }
    }
    return nullptr;
}

Offer offer(const MenuState& state, C command) {
    const std::vector<ui::MenuItem> items = ui::shownMenuItems(editMenu(state, kAll));
    const ui::MenuItem* item = find(items, command);
    return item == nullptr ? Offer::Absent : item->enabled ? Offer::On : Offer::Off;
}

TEST(MenuRule, APictureHasAllItemsInTheirOrder) {
    EXPECT_THAT(shown(plain()),
                ElementsAre(L"Bild &vergrößern", L"Bild &sperren", L"-", L"Datei-&Info", L"&Datum ändern",
                            L"Bild &bearbeiten", L">«MSPAINT» starten", L">Programm auswählen", L"-",
                            L"&Titel / Pause / n.Effekt / Musik", L"Bild-&Einstellungen anzeigen", L"-",
                            L"Bild &löschen", L"-", L" Änderungen speichern", L"-", L"Musik bearbeiten",
                            L"Minibilder speichern", L" Minibilder löschen", L"-", L"B&eenden (zurück)"));
}

TEST(MenuRule, AVideoLacksOnlyTheEditor) {
    MenuState state = plain();
    state.video = true;
    const std::vector<std::wstring> all = shown(plain());
    std::vector<std::wstring> without;
    std::copy_if(all.begin(), all.end(), std::back_inserter(without), [](const std::wstring& caption) {
        return caption != L"Bild &bearbeiten" && caption[0] != L'>';
    });
    EXPECT_EQ(shown(state), without);
}

TEST(MenuRule, AMarkedItemOffersOnlyTheWayBackSavingAndLeaving) {
    MenuState state = plain();
    state.deleted = true;
    state.anyDeleted = true;
    state.changed = true;
    state.storePresent = true;
    state.saveToTakeBack = true;
    EXPECT_THAT(shown(state),
                ElementsAre(L"Bild &freigeben", L"-", L"Änderungen speichern", L"-", L"B&eenden (zurück)"));
    state.locked = true;
    EXPECT_THAT(shown(state),
                ElementsAre(L"Bild &freigeben", L"-", L"Änderungen speichern", L"-", L"B&eenden (zurück)"));
}

TEST(MenuRule, InAFolderThatCannotBeWrittenWhatWritesIsOff) {
    MenuState state = plain();
    state.folderWritable = false;
    state.changed = true;
    state.storePresent = true;
    state.saveToTakeBack = true;
    EXPECT_THAT(shown(state),
                ElementsAre(L"Bild &vergrößern", L" Bild &sperren", L"-", L"Datei-&Info", L" &Datum ändern",
                            L" Bild &bearbeiten", L"> «MSPAINT» starten", L"> Programm auswählen", L"-",
                            L" &Titel / Pause / n.Effekt / Musik", L"Bild-&Einstellungen anzeigen", L"-",
                            L" Bild &löschen", L"-", L" Änderungen speichern",
                            L" Letztes Speichern zurücknehmen", L"-", L"Musik bearbeiten",
                            L" *Minibilder speichern", L" Minibilder löschen", L"-", L"B&eenden (zurück)"));
    state.locked = true;
    EXPECT_EQ(offer(state, C::Mfrei), Offer::Off);
}

TEST(MenuRule, EachItemFollowsItsState) {
    const struct {
        const char* why;
        std::function<void(MenuState&)> change;
        C command;
        Offer expected;
    } cases[] = {
        {"nothing locks a locked item", [](MenuState& s) { s.locked = true; }, C::Msperr, Offer::Absent},
        {"a locked item can be freed", [](MenuState& s) { s.locked = true; }, C::Mfrei, Offer::On},
        {"nothing frees a free item", [](MenuState&) {}, C::Mfrei, Offer::Absent},
        {"a show needs an item", [](MenuState& s) { s.lastShown = true; }, C::Msperr, Offer::Off},
        {"a show needs an item", [](MenuState& s) { s.lastShown = true; }, C::Mdel, Offer::Off},
        {"the only item stays", [](MenuState& s) { s.locked = s.onlyItem = true; }, C::Mdel, Offer::Off},
        {"a locked item can be marked", [](MenuState& s) { s.locked = true; }, C::Mdel, Offer::On},
        {"no editor is known", [](MenuState& s) { s.editorName.clear(); }, C::Mauf, Offer::Off},
        {"but one can be chosen", [](MenuState& s) { s.editorName.clear(); }, C::Mprog, Offer::On},
        {"the settings are shown", [](MenuState& s) { s.settingsShown = true; }, C::Mopt, Offer::Off},
        {"something changed", [](MenuState& s) { s.changed = true; }, C::Msav, Offer::On},
        {"a save to take back", [](MenuState& s) { s.saveToTakeBack = true; }, C::TakeSaveBack, Offer::On},
        {"it would take more along", [](MenuState& s) { s.saveToTakeBack = s.changed = true; },
         C::TakeSaveBack, Offer::Off},
        {"no save to take back", [](MenuState&) {}, C::TakeSaveBack, Offer::Absent},
        {"no music", [](MenuState& s) { s.musicTitles = false; }, C::Mmusi, Offer::Off},
        {"the music is shown", [](MenuState& s) { s.musicShown = true; }, C::Mmusi, Offer::Off},
        {"a store", [](MenuState& s) { s.storePresent = true; }, C::Mmin, Offer::Off},
        {"a store", [](MenuState& s) { s.storePresent = true; }, C::MminL, Offer::On},
        {"marked ones are not stored", [](MenuState& s) { s.anyDeleted = true; }, C::Mmin, Offer::Off},
        {"the store can go", [](MenuState& s) { s.anyDeleted = s.storePresent = true; }, C::MminL, Offer::On},
    };
    for (const auto& c : cases) {
        MenuState state = plain();
        c.change(state);
        EXPECT_EQ(offer(state, c.command), c.expected) << c.why << ", " << static_cast<int>(c.command);
    }
}

TEST(MenuRule, WhatIsNotAvailableIsLeftOut) {
    MenuState state = plain();
    state.locked = true;
    EXPECT_THAT(shown(state, {C::Mfrei, C::Mab}),
                ElementsAre(L"Bild &freigeben", L"-", L"B&eenden (zurück)"));
    EXPECT_THAT(shown(plain(), {C::Mprog}), ElementsAre(L"Bild &bearbeiten", L">Programm auswählen"));
    EXPECT_TRUE(shown(plain(), {}).empty());
}

overview::ThumbRecords records(const std::vector<overview::ThumbRecord>& all) {
    overview::ThumbRecords result;
    result.thumbRecords = all;
    result.folderWritable = true;
    return result;
}

overview::ThumbRecord record(const wchar_t* name, bool locked, bool deleted) {
    overview::ThumbRecord result;
    result.fileName = name;
    result.locked = locked;
    result.deleted = deleted;
    return result;
}

TEST(MenuRule, TheRecordsTellTheirPartOfTheState) {
    const auto free = record(L"a.jpg", false, false);
    const auto locked = record(L"b.jpg", true, false);
    const auto marked = record(L"c.MPG", false, true);
    const struct {
        std::vector<overview::ThumbRecord> all;
        bool lastShown, onlyItem, anyDeleted;  // of the first one
    } cases[] = {
        {{free}, true, true, false},
        {{free, free}, false, false, false},
        {{free, locked}, true, false, false},
        {{free, marked}, true, true, true},
        {{locked}, false, true, false},
        {{locked, marked}, false, true, true},
        {{locked, free}, false, false, false},
        {{marked, free}, false, false, true},
        {{free, free, marked}, false, false, true},
    };
    for (const auto& c : cases) {
        const MenuState state = menuStateOf(records(c.all), 0);
        const auto index = &c - cases;
        EXPECT_EQ(state.lastShown, c.lastShown) << index;
        EXPECT_EQ(state.onlyItem, c.onlyItem) << index;
        EXPECT_EQ(state.anyDeleted, c.anyDeleted) << index;
        EXPECT_EQ(state.locked, c.all[0].locked) << index;
        EXPECT_EQ(state.deleted, c.all[0].deleted) << index;
        EXPECT_TRUE(state.folderWritable);
    }
    overview::ThumbRecords both = records({free, marked});
    both.changed = true;
    EXPECT_TRUE(menuStateOf(both, 1).video);
    EXPECT_FALSE(menuStateOf(both, 0).video);
    EXPECT_TRUE(menuStateOf(both, 0).changed);
}

}  // namespace
}  // namespace edit
