#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "edit/dialogue.h"
#include "overview/thumb_record.h"

namespace edit {

/// "Datum ändern": sets the times of an item's file to a date that the user types. The entry of the item and
/// the order of the items stay as they are.
class FileDates {
  public:
    struct Parts {
        overview::ThumbRecords& records;
        Dialogue dialogue;
        /// The tip of an item has changed.
        std::function<void(int index)> tipChanged;
    };
    explicit FileDates(Parts parts) : parts_(std::move(parts)) {}

    /// Asks for the date of an item's file, again and again while the answer cannot be understood, and sets
    /// all three times of the file to it. An answer that is empty or the date as it is changes nothing: so
    /// "OK" alone never touches the fractions of a second, or the other two times. Throws Leaving.
    void change(int index);

  private:
    void set(int index, std::uint64_t time);

    Parts parts_;
};

}  // namespace edit
