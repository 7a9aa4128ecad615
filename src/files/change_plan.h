#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_stamp.h"

namespace files {

/// The folder of stored thumbnails below a picture folder. What lies in it can be made again.
inline constexpr std::wstring_view kCacheFolder = L"Mini";

/// One file and the name that it is to have. A name is a bare one, or one of the cache: "Mini\a.bmp".
struct PlannedMove {
    std::wstring from;
    std::wstring to;
    FileStamp stamp;                          ///< as it was when the user saw it; not asked for in the cache
    std::optional<std::uint32_t> attributes;  ///< what it is to have (kKeptAttributes); none: what it has
};

/// The text file that goes with the names, both contents in full; none: there is no such file.
struct ScriptChange {
    std::wstring name;
    std::optional<std::string> before;  ///< as it was when the user saw it
    std::optional<std::string> after;
};

/// What is to become of a folder: all of it or nothing.
struct ChangePlan {
    std::wstring folder;  ///< without a "\" at its end, unless it is a root
    /// Files that keep their name may be in it: they then belong to what is checked and can be taken back.
    std::vector<PlannedMove> moves;
    std::vector<std::wstring> drops;    ///< files of the cache that are of no use any more
    std::vector<std::wstring> deleted;  ///< files that were deleted before, to be told when it is taken back
    std::optional<ScriptChange> script;
    bool keep = false;  ///< the journal stays, so that the change can be taken back
    /// The change takes the last one back, which then cannot be taken back again. Any other change that is
    /// not kept leaves the kept journal alone.
    bool takesBack = false;
};

/// Whether a name lies in the cache.
bool isCacheName(std::wstring_view name);

}  // namespace files
