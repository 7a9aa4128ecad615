#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "edit/entry_line.h"
#include "edit/form3.h"
#include "overview/thumb_record.h"
#include "ui/event_loop.h"

namespace edit {

/// Edits the entries of the overview's items, one at a time, in a window beside the item's thumbnail. What is
/// edited stays with its item when the order changes meanwhile. Only memory is changed; saving writes it.
class EntryEditor {
  public:
    struct Parts {
        ui::EventLoop& loop;
        Form3& form;
        overview::ThumbRecords& records;
        /// The music files of the folder, in the order of their list.
        std::function<std::vector<std::wstring>()> musicFiles;
        /// The place of an item's thumbnail on the screen, in pixels.
        std::function<RECT(int index)> place;
        /// Makes an item's thumbnail anew from its file.
        std::function<void(int index)> redraw;
        /// The toolTip of a record is another one.
        std::function<void(int index)> tipChanged;
        /// Writes the settings of all items anew where they are being shown.
        std::function<void()> shownAgain;
        /// Whether thumbnails may show their tips, which would lie over the open editor.
        std::function<void(bool allowed)> allowTips;
    };
    /// Takes the form's events over for as long as it lives.
    explicit EntryEditor(Parts parts);
    ~EntryEditor();
    EntryEditor(const EntryEditor&) = delete;
    EntryEditor& operator=(const EntryEditor&) = delete;

    /// Shows the editor, filled for an item; one that is open is filled anew, and what stood in it is
    /// dropped. An item that is marked for deletion, or whose file is gone, closes it instead.
    void open(int index);
    /// Hides the editor without taking anything over: the overview closes, or its files get other names.
    void close();
    bool isOpen() const { return !fileName_.empty(); }
    /// The order of the items changed, or what is marked for deletion: the editor follows its item, and
    /// closes when that is gone. To be called after each such change.
    void recordsChanged();

    /// What was edited cannot be taken over; a sentence for the user.
    std::function<void(const std::wstring& sentence)> onRefused;

  private:
    void accept();
    bool typed(wchar_t character);
    bool pressed(int key, bool repeated);
    /// Where the item of a file lies now; none when it is marked for deletion or gone.
    std::optional<int> itemOf(const std::wstring& fileName) const;
    bool isThere(int index) const;
    void fillMusic(const std::vector<std::wstring>& musicFiles);
    void show(int index);
    void placeBeside(int index);
    void fill(int index, const std::vector<std::wstring>& musicFiles);
    void store(int index, const std::wstring& line);

    Parts parts_;
    std::wstring fileName_;  ///< of the item that is edited; empty while the editor is closed
    EntryTexts opened_;      ///< what the boxes held when they had been filled
};

}  // namespace edit
