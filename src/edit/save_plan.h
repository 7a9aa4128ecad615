#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/change_plan.h"
#include "overview/thumb_record.h"

namespace edit {

/// The prefix that a save offers: the first file's key before its first "0", or all of it.
std::wstring defaultPrefix(std::wstring_view firstFileName);

/// A file's number in the show order, from its position (0-based): three digits, or four where there are
/// 1,000 files and more, since the show would take the lines of 1000 to 1009 for picture 100 as well.
std::wstring orderNumber(int position, int count);

/// The name that a file gets: prefix, number, and its extension, the text behind its last dot. "JPG" and
/// "MPG" become small, every other spelling stays.
std::wstring orderedName(std::wstring_view prefix, int position, int count, std::wstring_view fileName);

/// Why files cannot get the names that a prefix gives.
enum class PrefixFault {
    None,
    Character,     ///< one that no file name may have
    Dot,           ///< the key of a picture ends at its first dot
    LeadingBlank,  ///< names that begin so are hard to find and to type
    Reserved,      ///< a name that the system keeps for a device
    TooLong,       ///< the path could not be opened by every program
    KeyTaken,      ///< a file that is not in the overview has a name that differs in its extension only
    LineTaken      ///< the show would take the line of a file outside the overview for one of these
};

/// What stands against a prefix, and the file that it is about; an empty name where it is the prefix itself.
struct PrefixRefusal {
    PrefixFault fault = PrefixFault::None;
    std::wstring name;
    friend bool operator==(const PrefixRefusal&, const PrefixRefusal&) = default;
};

/// One German sentence.
std::wstring sentenceOf(const PrefixRefusal& refusal);

/// What there is in the folder besides the records.
struct SaveFolder {
    /// All pictures and films that the folder held when its script was read, hidden and filtered ones too.
    std::vector<std::wstring> formerNames;
    /// The same, as it is now.
    std::vector<std::wstring> names;
    /// The bitmaps of the thumbnail store.
    std::vector<std::wstring> thumbnails;
    /// The script's text and its bytes as they were read; none where there was no script.
    std::wstring scriptText;
    std::optional<std::string> scriptBytes;
};

/// A save: the folder's change, or why it cannot be.
struct SavePlan {
    PrefixRefusal refusal;
    files::ChangePlan change;
    /// The records' new file names, in their order.
    std::vector<std::wstring> newNames;
    /// What a SaveFolder has of them, once it is done.
    std::vector<std::wstring> names;
    std::wstring scriptText;
};

/// Gives a script's text the bytes that it is written in.
using ScriptEncoder = std::function<std::string(std::wstring_view text)>;

/// Plans to name the records' files in their order and to write the script anew: a line for each record with
/// an entry, then the lines of files that are not among the records, as they are. Thumbnails get the names of
/// their files; one that several files share is dropped, and so is one that nobody owns at a name of a record
/// that has none. No record is marked for deletion. `deleted`: files
/// that were deleted just before, to be told when the save is taken back.
SavePlan planSave(const overview::ThumbRecords& records, std::wstring_view prefix, const SaveFolder& folder,
                  const std::vector<std::wstring>& deleted, const ScriptEncoder& encode);

}  // namespace edit
