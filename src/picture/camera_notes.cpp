#include "picture/camera_notes.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "picture/exif_block.h"
#include "picture/jpeg_header.h"

namespace picture {

namespace {

// A damaged length can reach to the end of the block.
constexpr std::size_t kLongestText = 80;

std::string textOf(const ExifBlock& block, std::size_t directory, ExifTag tag) {
    std::string result;
    const auto bytes = block.findText(directory, tag);
    for (std::size_t i = 0; bytes && i < std::min(bytes->size(), kLongestText) && (*bytes)[i] != 0; ++i) {
        constexpr std::uint8_t kFirstPrintable = 0x20;
        constexpr std::uint8_t kDelete = 0x7F;
        const std::uint8_t byte = (*bytes)[i];
        result += static_cast<char>(byte < kFirstPrintable || byte == kDelete ? ' ' : byte);
    }
    const std::size_t first = result.find_first_not_of(' ');
    if (first == std::string::npos) {
        return {};
    }
    return result.substr(first, result.find_last_not_of(' ') - first + 1);
}

CameraNotes readBlock(const ExifBlock& block) {
    CameraNotes notes;
    const auto first = block.firstDirectory();
    if (!first) {
        return notes;
    }
    notes.make = textOf(block, *first, ExifTag::Make);
    notes.model = textOf(block, *first, ExifTag::Model);
    if (const auto camera = block.findNumber(*first, ExifTag::CameraDirectory)) {
        notes.exposureTime = block.findFraction(*camera, ExifTag::ExposureTime);
        notes.fNumber = block.findFraction(*camera, ExifTag::FNumber);
        notes.focalLength = block.findFraction(*camera, ExifTag::FocalLength);
        const auto sensitivity = block.findNumber(*camera, ExifTag::Sensitivity);
        constexpr auto kMost = static_cast<std::uint32_t>(std::numeric_limits<int>::max());
        if (sensitivity && *sensitivity > 0 && *sensitivity <= kMost) {
            notes.sensitivity = static_cast<int>(*sensitivity);
        }
    }
    return notes;
}

}  // namespace

CameraNotes readCameraNotes(std::span<const std::uint8_t> file) {
    JpegSegments segments(file);
    while (const auto segment = segments.next()) {
        if (const auto range = exifBlockIn(file, *segment)) {
            return readBlock(ExifBlock(file.subspan(range->offset, range->length)));
        }
    }
    return {};
}

}  // namespace picture
