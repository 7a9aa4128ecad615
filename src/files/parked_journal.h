#pragma once

#include <string>

#include "files/file_system.h"

namespace files {

/// Where the journal of the last save waits while another change of its folder is under way, which needs the
/// name for itself. It comes back when that change took nothing from it: one that was refused or undone, or
/// one of other files, as the music's.
inline constexpr const wchar_t* kParkedJournalFile = L"Panorell.journal.kept";

/// Puts the kept journal aside, in the place of one that was left there.
Failure parkJournal(FileSystem& fileSystem, const std::wstring& folder);

/// Brings it back. Nothing where there is none, or where another journal has its name; where it cannot be
/// done, it is done when the folder is next opened.
void unparkJournal(FileSystem& fileSystem, const std::wstring& folder);

/// Removes it: what it would take back is no longer so.
void dropParkedJournal(FileSystem& fileSystem, const std::wstring& folder);

}  // namespace files
