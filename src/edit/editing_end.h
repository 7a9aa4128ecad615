#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "overview/thumb_record.h"
#include "ui/timer.h"
#include "ui/window.h"

namespace edit {

/// The way out of the overview: asks whether changes shall be saved, and then hands the program over.
class EditingEnd {
  public:
    struct Parts {
        const ui::Window& owner;  ///< of the question
        ui::Timer& Timer1;        ///< the position of a film that is played
        overview::ThumbRecords& records;
    };
    explicit EditingEnd(const Parts& parts) : parts_(parts) {}

    /// Leaves. Where something changed that can be saved it asks first; a save that was wished for and wrote
    /// nothing keeps the overview open. Throws Leaving.
    void run();

    /// Saves; whether that was done.
    std::function<bool()> onSave;
    /// Reads what a show of the folder lists now, in its order.
    std::function<std::vector<std::wstring>()> listed;
    /// Restarts the program at the file with this index; none: where it was.
    std::function<void(std::optional<int> startIndex)> onLeave;

  private:
    class Asking;

    bool mayLeave();

    Parts parts_;
    bool asking_ = false;
};

}  // namespace edit
