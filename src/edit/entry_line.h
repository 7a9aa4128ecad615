#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace edit {

/// The items of the editor's lists, by index. A pause of n seconds is item n; "#" is item 1 of the effects
/// and a letter the item with its character value - 63; item 0 is the empty one.
std::vector<std::wstring> pauseItems();
std::vector<std::wstring> effectItems();

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
};

/// The entry line: the title, then " *P=", " *E=", " *D" and " *M=" for what is not empty, all values without
/// blanks at their ends. Empty when nothing stands anywhere.
std::wstring writeEntryLine(const EntryTexts& texts);

/// A text for the title as it can be taken: line breaks become blanks. None for one with a "*", which would
/// end the title.
std::optional<std::wstring> acceptedTitle(std::wstring_view typed);

/// The caption of the editor for the item with an index from 0.
std::wstring editorCaption(int index);

}  // namespace edit
