#pragma once

#include <cstdint>
#include <string>

namespace bench {

/// A JPEG file of that many megapixels in the shape 3:2 (24 megapixels are 6000 x 4000), as large as a
/// camera's: about a third of a byte a pixel. Made on first use; lives in temporaryFolder().
std::wstring photograph(int megapixels);

/// The colours 0x00RRGGBB of the marks in a markedFolder(), in turn.
inline constexpr std::uint32_t kMarks[] = {0xFF00FF, 0x00FFFF, 0xFFFF00};
inline constexpr int kMarkCount = 3;

/// A folder of `count` photographs of 24 megapixels whose left eighth is a mark of one colour, so that the
/// screen tells them apart: the first has kMarks[0], the next kMarks[1] and so on in turn. Made on first use;
/// lives in temporaryFolder(). No backslash at its end.
std::wstring markedFolder(int count);

/// A folder of kMarkCount pictures of 800 x 600 whose left half is a mark, kMarks[0] first. Made on first
/// use; lives in temporaryFolder(). No backslash at its end.
std::wstring smallFolder();

/// What a folder of a camera's pictures holds besides these.
struct CameraFolder {
    int count = 0;
    bool thumbnails = false;  ///< the camera's own in each file: 160 x 120
    bool store = false;       ///< a bitmap of 160 x 120 for each file in the overview's store
};

/// A folder of pictures of 12 megapixels (4000 x 3000) with a camera's notes: kMarkCount files of 4 MB, the
/// others are links to them, which all read the same from the system's cache. Made on first use; lives in
/// temporaryFolder(). No backslash at its end.
std::wstring cameraFolder(const CameraFolder& kind);

/// Writes into `folder` what ./bench peers shows by all programs: "large" is as markedFolder(200), "small"
/// holds three pictures of 800 x 600 whose mark is the left half, because some programs enlarge them and some
/// do not. Throws platform::Error or
/// std::filesystem::filesystem_error where a file cannot be written.
void writePhotographsForPeers(const std::wstring& folder);

}  // namespace bench
