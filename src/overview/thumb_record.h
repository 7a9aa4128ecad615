#pragma once

#include <string>
#include <vector>

#include "files/file_stamp.h"
#include "script/script_file.h"

namespace overview {

/// One item of the overview: what its thumbnail stands for. Reordering moves whole records.
struct ThumbRecord {
    std::wstring fileName;  ///< without its folder
    /// What the show script says of it: the line without the key and the blank behind it; empty for none.
    std::wstring entry;
    std::wstring toolTip;    ///< lines that end in CR
    files::FileStamp stamp;  ///< the file as it was when it was read
    bool locked = false;     ///< hidden on the disk, so that the show leaves it out
    bool deleted = false;    ///< marked for deletion by the next save
};

/// What the overview and everything that edits share: the items in their order. Indices start at 0.
struct ThumbRecords {
    std::wstring folder;  ///< without a "\\" at its end, unless it is a root
    std::vector<ThumbRecord> thumbRecords;
    /// All pictures and films of the folder when its script was read, hidden and filtered ones too.
    std::vector<std::wstring> folderNames;
    script::ScriptReading script;  ///< as it was when the entries were taken from it
    int pressedIndex = -1;         ///< the item last pressed, which a menu works on; -1 for none
    bool folderWritable = false;
    /// Something changed that only saving makes permanent: order, an entry, a mark for deletion.
    bool changed = false;

    int thumbCount() const { return static_cast<int>(thumbRecords.size()); }
};

}  // namespace overview
