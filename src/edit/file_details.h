#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "picture/camera_notes.h"
#include "picture/picture_size.h"
#include "text/date_time.h"

namespace edit {

/// What can be told of a file. What is not known is missing.
struct FileDetails {
    std::wstring name;
    std::wstring folder;
    std::uint64_t size = 0;  ///< bytes
    std::optional<text::DateTime> created;
    std::optional<text::DateTime> written;
    std::optional<text::DateTime> accessed;
    std::optional<picture::PictureSize> pixels;
    std::optional<text::DateTime> taken;  ///< by the camera's clock
    picture::CameraNotes camera;
};

/// A line for each of them that is known, for a box.
std::wstring fileDetailsText(const FileDetails& details);

/// "1/250 s", "0,5 s", "2 s"
std::wstring exposureTimeText(double seconds);

/// A number of bytes for a reader: "999 Bytes", "1.234.567 Bytes".
std::wstring bytesText(std::uint64_t bytes);

}  // namespace edit
