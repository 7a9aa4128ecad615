#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace edit {

/// The items of the editor's lists, by index. A pause of n seconds is item n; "#" is item 1 of the effects
/// and a letter the item with its character value - 63; item 0 is the empty one.
std::vector<std::wstring> pauseItems();
std::vector<std::wstring> effectItems();

/// The index of an effect's character in effectItems; 0 for one that the list does not have.
int effectIndex(wchar_t effect);

/// The items of the music list for the folder's music files, in their order: an empty one, the titles, and
/// "<", which stops the music. None without files: the list then keeps what it held.
std::vector<std::wstring> musicItems(const std::vector<std::wstring>& musicFiles);

/// What the editor shows of an entry line.
struct EntryFields {
    std::wstring title;
    int pause = 0;   ///< index in pauseItems
    int effect = 0;  ///< index in effectItems
    bool date = false;
    int music = -1;  ///< index in musicItems; -1: nothing is selected
    friend bool operator==(const EntryFields&, const EntryFields&) = default;
};

/// Takes an entry line apart. Markers are looked for by their first occurrence, with their case. A pause that
/// is no whole number is rounded; a pause beyond 60 and an effect that the list does not have leave their
/// lists empty. The music is the last file whose name contains the marker's text, so "<" selects nothing.
EntryFields readEntryLine(std::wstring_view line, const std::vector<std::wstring>& musicFiles);

/// What stands in the editor's boxes.
struct EntryTexts {
    std::wstring title;
    std::wstring pause;
    std::wstring effect;
    bool date = false;
    std::wstring music;
    friend bool operator==(const EntryTexts&, const EntryTexts&) = default;
};

/// The entry line: the title, then " *P=", " *E=", " *D" and " *M=" for what is not empty, all values without
/// blanks at their ends. Empty when nothing stands anywhere.
std::wstring writeEntryLine(const EntryTexts& texts);

/// The entry line for what stands in the boxes now, where they held `opened` when `line` was taken apart. A
/// line that says more than the boxes can show (a pause beyond 60, music that is not there, "<") stays as it
/// is while nothing in the boxes was changed.
std::wstring editedEntryLine(std::wstring_view line, const EntryTexts& opened, const EntryTexts& now);

/// A text as a title can take it.
struct TitleText {
    std::wstring text;
    bool refused = false;  ///< a "*" was left out: it would end the title
    friend bool operator==(const TitleText&, const TitleText&) = default;
};

/// Makes a text fit for a title: line breaks become blanks, stars are left out.
TitleText titleText(std::wstring_view text);

/// The caption of the editor for the item with an index from 0.
std::wstring editorCaption(int index);

}  // namespace edit
