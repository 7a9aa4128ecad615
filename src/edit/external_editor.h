#pragma once

#include <functional>
#include <string>

#include "edit/dialogue.h"
#include "edit/item_file.h"
#include "overview/thumb_record.h"
#include "ui/event_loop.h"

namespace edit {

/// "Bild bearbeiten": the image program of the user's choice, its start on an item's file, and the wait until
/// it has ended. The file keeps its three times, so that it keeps its place among pictures sorted by date.
class ExternalEditor {
  public:
    /// What happens to the item that is edited, and to the window it lies in.
    struct Desk {
        /// From here to `unblock` the window only paints, since nothing else is dispatched; it shows the
        /// notice, and takes no request to close that another program sends.
        std::function<void(const std::wstring& notice)> block;
        std::function<void()> unblock;
        /// Removes the thumbnail that is stored of an item's file; what there is none of is no failure.
        std::function<void(const std::wstring& fileName)> removeStored;
        /// Makes an item's thumbnail anew from its file.
        std::function<void(int index)> redraw;
    };
    struct Parts {
        ui::EventLoop& loop;
        overview::ThumbRecords& records;
        /// Full path of the program; empty for none.
        std::wstring& EditorPath;
        Dialogue dialogue;
        Desk desk;
        /// Keeps the path of the program for the next time; whether it could.
        std::function<bool(const std::wstring& path)> keepPath;
    };
    explicit ExternalEditor(Parts parts) : parts_(std::move(parts)) {}

    /// Whether a program is known that could be started.
    bool known() const { return !parts_.EditorPath.empty(); }

    /// Asks for the program, again and again while there is no such file, starts it on an item and keeps its
    /// path. An empty answer, or none, leaves everything as it was. Throws Leaving.
    void choose(int index);
    /// Starts the program on an item's file and waits until it has ended. Throws Leaving, never while the
    /// file's times are to be put back.
    void run(int index);

  private:
    /// Each gives the sentence that tells what failed; empty for nothing.
    std::wstring edit(const ItemFile& former, int index);
    std::wstring putBack(const ItemFile& former, int index, unsigned long timesCode);
    void tell(const std::wstring& sentence) const;

    Parts parts_;
};

}  // namespace edit
