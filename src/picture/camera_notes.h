#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace picture {

/// What a camera tells of itself and of how it took a picture. What it did not tell, or told in a damaged
/// way, is missing.
struct CameraNotes {
    std::string make;                    ///< bytes as stored, without blanks at the ends; empty for none
    std::string model;                   ///< likewise; many begin with the make
    std::optional<double> exposureTime;  ///< seconds, above 0
    std::optional<double> fNumber;       ///< above 0
    std::optional<int> sensitivity;      ///< ISO, above 0
    std::optional<double> focalLength;   ///< mm, above 0
};

/// Reads them from the first EXIF block of a JPEG file. A file without one gives none of them; no input
/// fails.
CameraNotes readCameraNotes(std::span<const std::uint8_t> file);

}  // namespace picture
