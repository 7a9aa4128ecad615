#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace overview {

/// One title of the folder's music.
struct MusicEntry {
    std::wstring fileName;  ///< the file that it came from, without its folder
    std::wstring title;     ///< as the list shows it
    bool plays = true;      ///< false: locked, the rotation passes it over
    friend bool operator==(const MusicEntry&, const MusicEntry&) = default;
};

/// The titles of files, in their order. A title whose file name begins with "99 " is locked.
std::vector<MusicEntry> musicOrder(const std::vector<std::wstring>& fileNames);

/// A place of the list that is no row of it: below the last one.
inline constexpr int kBelowRows = -1;

/// What the release of the mouse does after a press on a row.
struct MusicRelease {
    enum class Kind {
        Nothing,
        FlipLock,  ///< of the pressed row
        Move,      ///< of the pressed row to `to`
    };
    Kind kind = Kind::Nothing;
    int to = 0;  ///< the moved row's new index
    friend bool operator==(const MusicRelease&, const MusicRelease&) = default;
};

/// A release on the pressed row is a click. On another row it moves the pressed one to that index, so that on
/// the last row, and below all rows, it becomes the last. A press below the rows (kBelowRows) does nothing,
/// whatever follows. `pressed` and `released`: 0 ... count - 1 or kBelowRows.
MusicRelease musicRelease(int pressed, int released, int count);

/// Moves one entry; those between its old and its new place close up. Indices: 0 ... size - 1.
void moveEntry(std::vector<MusicEntry>& order, int from, int to);

/// What became of the order when the files were to take it.
struct MusicRenamed {
    /// Why it could not be done, one German sentence; all is as it was then. None: it is done.
    std::optional<std::wstring> refusal;
    /// The entries of `musicList` from now on, in the order given.
    std::vector<std::wstring> musicList;
};

/// Gives the files of a folder (its path ends in "\") the names that keep their order and their locks.
using RenameMusic =
    std::function<MusicRenamed(const std::wstring& musicFolder, const std::vector<MusicEntry>& order)>;

}  // namespace overview
