#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/change_plan.h"
#include "files/file_stamp.h"

namespace media {

/// A title of the music list, and the file that it came from.
struct OrderedTitle {
    std::wstring fileName;   ///< without its folder
    files::FileStamp stamp;  ///< the file as it was when the list was filled
    bool plays = true;       ///< false: the rotation skips it
};

/// What makes an order permanent.
struct MusicRenames {
    files::ChangePlan plan;               ///< each file from its old name to its new one
    std::vector<std::wstring> musicList;  ///< the entries once the plan was carried out
};

/// A file's name without the prefix that orders it: two digits and a blank. "1999.mp3" has none.
std::wstring bareMusicName(std::wstring_view fileName);

/// Names the files of a folder so that they carry the order of `titles`: a title that plays has its place
/// from 01 on and a blank in front of its bare name, one that does not "99 ". Locked titles count as places.
/// None when a title that plays would have place 99 or beyond, where it would read as locked. Two locked
/// files of one bare name get one name, which the plan's check refuses.
std::optional<MusicRenames> musicRenames(const std::wstring& folder, const std::vector<OrderedTitle>& titles);

}  // namespace media
