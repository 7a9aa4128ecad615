#pragma once

#include <cstdint>
#include <string>

#include "overview/thumb_record.h"
#include "overview/thumbnail_store.h"

namespace overview {

/// At most so many items are shown, since a process has no more than 10,000 windows.
inline constexpr int kMostThumbnails = 8000;

/// What the overview of a folder begins with.
struct ThumbFolder {
    ThumbRecords records;
    ThumbnailStore store;
    int leftOut = 0;  ///< files that match as well, but are too many
};

/// Reads a folder, its store and its script, each of them once: the files that match `pattern`, hidden ones
/// too, in Explorer's order, with entry, lock and stamp. Their tips are empty yet. A folder that cannot be
/// read gives none.
ThumbFolder readThumbFolder(const std::wstring& folder, const std::wstring& pattern);

/// Whether files can be written to a folder. Found out by a file that is made new, under a name that nobody
/// uses, and gone again even if the program ends meanwhile.
bool canWriteTo(const std::wstring& folder);

/// A file's time (units of 100 ns since 1601, UTC) as a tip tells it, in the user's own format; empty for one
/// beyond the calendar.
std::wstring tipDate(std::uint64_t written);

/// The tip of a record, with the date of its file in the user's own format.
std::wstring tipOf(const ThumbRecord& record);

}  // namespace overview
