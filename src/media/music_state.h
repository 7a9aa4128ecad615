#pragma once

#include <string>
#include <vector>

namespace media {

/// The music of the picture folder and where the rotation stands in it.
struct MusicState {
    /// One entry for each file of File2, in its order; see musicEntry.
    std::vector<std::wstring> musicList;
    /// Index of the title to play next.
    int musicIndex = 0;
    /// The folder that file names are appended to; ends in "\".
    std::wstring musicFolder;
    /// The volume that is set or to be set, in the device's units.
    int musicVolume = 200;
    /// Time of day in seconds from which on the next title starts; 0 is at once.
    int musicEndTime = 0;
    /// The title that the show script asks for, "<" to stop the music, or empty.
    std::wstring musicRequest;
};

}  // namespace media
