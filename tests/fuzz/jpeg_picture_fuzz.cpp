#include "fuzz/check.h"
#include "picture/jpeg_library.h"
#include "picture/jpeg_picture.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace {

using fuzz::check;
using Bytes = std::vector<std::uint8_t>;

/// Larger pictures take the time of many small ones and show nothing new.
constexpr int kMostSide = 256;

/// All rows, read `band` at a time into memory that holds `before`; none when there is no picture.
std::optional<Bytes> readAll(const Bytes& file, int band, std::uint8_t before) {
    try {
        picture::JpegPicture picture(file);
        const int width = picture.width();
        const int height = picture.height();
        check(width >= 1 && height >= 1 && picture.memory() > 0);
        if (width > kMostSide || height > kMostSide) {
            return std::nullopt;
        }
        const std::size_t stride = static_cast<std::size_t>(width) * 3;
        Bytes rows(stride * static_cast<std::size_t>(height), before);
        for (int y = 0; y < height; y += band) {
            picture.read(0, y, width, std::min(band, height - y),
                         rows.data() + stride * static_cast<std::size_t>(y), stride);
        }
        return rows;
    } catch (const picture::JpegError&) {
        return std::nullopt;
    }
}

/// Every row is written, whatever is damaged, and the same however they are asked for.
void checkRows(const Bytes& file) {
    const auto one = readAll(file, 1, 0x55);
    check(one == readAll(file, 19, 0xAA));
}

void checkScale(const Bytes& file, int eighths) {
    picture::JpegLibrary library(file);
    if (!library.readHeader() || library.width() > kMostSide || library.height() > kMostSide) {
        return;
    }
    const int width = library.width();
    const int height = library.height();
    library.setScale(eighths);
    check(library.width() == (width * eighths + 7) / 8 && library.height() == (height * eighths + 7) / 8);
    library.start();
    Bytes row(static_cast<std::size_t>(library.width()) * static_cast<std::size_t>(library.bytesPerPixel()));
    int rows = 0;
    std::uint8_t* line = row.data();
    while (const int read = library.readRows(&line, 1)) {
        rows += read;
    }
    check(rows <= library.height());
    check(library.firstMissingRow() >= 0 && library.firstMissingRow() <= library.height());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Bytes file(data, data + size);
    checkRows(file);
    for (const int eighths : {1, 2, 4, 8}) {
        checkScale(file, eighths);
    }
    return 0;
}
