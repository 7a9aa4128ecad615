#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/change_plan.h"
#include "files/file_stamp.h"

namespace files {

/// The journal's name in the folder that it belongs to.
inline constexpr const wchar_t* kJournalFile = L"Panorell.journal";

/// One file on its way from its old name to its new one.
struct JournalMove {
    std::wstring oldName;
    std::wstring temporaryName;
    std::wstring newName;
    FileStamp stamp;
    std::uint32_t oldAttributes = 0;
    std::uint32_t newAttributes = 0;

    bool stays() const { return oldName == newName; }
};

/// All that is needed to finish a change of a folder or to undo it.
struct Journal {
    std::vector<JournalMove> moves;
    std::vector<std::wstring> drops;
    std::vector<std::wstring> deleted;
    std::optional<ScriptChange> script;
    std::wstring temporaryScript;  ///< where a text is written before it takes the script's place
    bool keep = false;
};

/// How far the change is. Each step forth or back is marked at the journal's end, and only once the names
/// that belong to it are on the medium, so that a name is never two files' at once:
enum class Phase {
    First,   ///< every file has its old or its temporary name: undone after an accident
    Second,  ///< every file has its temporary or its new name: finished after an accident
    Done     ///< every file has its new name; the journal is kept
};

/// The journal's bytes: lines of UTF-8, fields parted by tabs, the last line telling length and checksum.
std::string journalBytes(const Journal& journal);

/// What is added to a journal when it comes into a phase.
std::string phaseMark(Phase phase);

/// A journal as it was found.
struct JournalReading {
    enum class Kind {
        Torn,     ///< not complete: nothing was changed yet
        Foreign,  ///< of another version of the program, or no journal at all
        Whole
    };
    Kind kind = Kind::Torn;
    Journal journal;
    Phase phase = Phase::First;
};

/// Never fails; a name that leads out of the folder makes it Foreign. Marks that are torn do not count.
JournalReading readJournal(std::string_view bytes);

}  // namespace files
