#include "fuzz/check.h"
#include "picture/camera_notes.h"
#include "picture/exif.h"
#include "picture/jpeg_header.h"

#include <cstdint>
#include <string>
#include <vector>

namespace {

using fuzz::check;
using Bytes = std::vector<std::uint8_t>;

bool within(int value, int lowest, int highest) {
    return value >= lowest && value <= highest;
}

void checkExif(const Bytes& file) {
    const picture::ExifInfo info = picture::readExif(file);
    check(within(static_cast<int>(info.orientation), 1, 8));
    if (info.thumbnail) {
        check(info.thumbnail->offset < file.size());
        check(info.thumbnail->length >= 2 && info.thumbnail->length <= file.size() - info.thumbnail->offset);
        check(file[info.thumbnail->offset] == 0xFF && file[info.thumbnail->offset + 1] == 0xD8);
    }
    if (info.date) {
        check(within(info.date->year, 1, 9999) && within(info.date->month, 1, 12));
        check(within(info.date->day, 1, info.date->month == 2 ? 29 : 31));
        check(within(info.date->hour, 0, 23) && within(info.date->minute, 0, 59));
        check(within(info.date->second, 0, 59));
    }
}

void checkNotes(const Bytes& file) {
    const picture::CameraNotes notes = picture::readCameraNotes(file);
    for (const std::string& text : {notes.make, notes.model}) {
        check(text.size() <= 80 && text.find('\0') == std::string::npos);
        check(text.empty() || (text.front() != ' ' && text.back() != ' '));
    }
    for (const auto& number : {notes.exposureTime, notes.fNumber, notes.focalLength}) {
        check(!number || (*number > 0 && *number < 1e10));
    }
    check(!notes.sensitivity || *notes.sensitivity > 0);
}

void checkSegments(const Bytes& file) {
    picture::JpegSegments segments(file);
    std::size_t behind = 2;
    while (const auto segment = segments.next()) {
        check(segment->offset >= behind && segment->offset <= file.size());
        check(segment->length <= file.size() - segment->offset);
        behind = segment->offset + segment->length;
    }
    check(!segments.next());
}

void checkHeader(const Bytes& file) {
    if (const auto header = picture::readJpegHeader(file)) {
        check(within(header->width, 1, 65535) && within(header->height, 1, 65535));
        check(header->dataLength < file.size());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Bytes file(data, data + size);
    checkExif(file);
    checkNotes(file);
    checkSegments(file);
    checkHeader(file);
    return 0;
}
