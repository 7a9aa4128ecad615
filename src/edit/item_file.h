#pragma once

#include <optional>
#include <string>

#include "edit/dialogue.h"
#include "overview/thumb_record.h"
#include "platform/file_facts.h"

namespace edit {

/// The file behind an item of the overview, as it is on the disk now.
struct ItemFile {
    std::wstring path;
    platform::FileFacts facts;
};

/// Where the item of a file lies now; none when there is no such item any more.
std::optional<int> itemNamed(const overview::ThumbRecords& records, const std::wstring& fileName);

/// The path of an item's file. `index`: from 0.
std::wstring pathOf(const overview::ThumbRecords& records, int index);

/// The file of an item, where it is still the one that its record tells of: whatever changes a file asks this
/// first, since another program or a second window may have renamed or replaced files meanwhile. Otherwise
/// the user is told so in one sentence under that title, and nothing is to be changed.
std::optional<ItemFile> unchangedFile(const overview::ThumbRecords& records, int index,
                                      const Dialogue& dialogue, const std::wstring& title);

/// The sentences for a file that is gone, and for one that is not the one that its record was read from.
std::wstring missingText(const std::wstring& fileName);
std::wstring changedText(const std::wstring& fileName);

/// Which of them is true of an item's file; empty where it is unchanged.
std::wstring fileFault(const overview::ThumbRecords& records, int index);

/// The program has changed an item's file itself: its record tells of the file as it is now. None when the
/// file is gone; the record stays as it was.
std::optional<ItemFile> renewStamp(overview::ThumbRecords& records, int index);

}  // namespace edit
