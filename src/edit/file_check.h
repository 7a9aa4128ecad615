#pragma once

#include <optional>
#include <string>

#include "files/file_stamp.h"
#include "overview/thumb_record.h"

namespace edit {

/// Why nothing is done to a file that is not the one its record was read from.
inline constexpr const wchar_t* kFileHasChanged =
    L"Die Datei wurde inzwischen von einem anderen Programm geändert, umbenannt oder gelöscht; "
    L"bitte die Übersicht neu öffnen.";

/// The full path of an item's file.
std::wstring pathOf(const overview::ThumbRecords& records, const overview::ThumbRecord& record);

/// A file as it is on the disk now; none where it is missing.
std::optional<files::FileStamp> freshStamp(const std::wstring& path);

/// Whether an item's file is still the one that its record was read from. Another window may have renamed it
/// meanwhile and given its name to another picture.
bool isUnchanged(const overview::ThumbRecords& records, const overview::ThumbRecord& record);

/// After a change of the program's own: the record stands for the file as it is now.
void renewStamp(const overview::ThumbRecords& records, overview::ThumbRecord& record);

}  // namespace edit
