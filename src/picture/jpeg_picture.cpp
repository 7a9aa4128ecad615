#include "picture/jpeg_picture.h"

#include <algorithm>
#include <cstring>

#include "picture/picture_size.h"

namespace picture {

namespace {

// A picture at a half, a quarter or an eighth of its size is the exact mean of 2 x 2, 4 x 4 or 8 x 8 pixels.
// Scaled to a size that cuts through these, it is not quite the mean of the whole picture: where the scaler
// still reduces it by 1.5, photographs with a camera's grain come within 49 dB of that, sharpened ones within
// 34 dB; at 2 within 53 and 37 dB. Lines of one pixel in full contrast come within 15 dB only and leave other
// traces. Those are drawn, not photographed: a picture up to the size of a large screen is decoded whole.
// Other eighths are neither means nor faster; docs/benchmarks.md has the figures.
constexpr std::uint64_t kLargestScreen = std::uint64_t{3840} * 2160;
constexpr int kEighthsThatAreMeans[] = {1, 2, 4, 8};

std::uint64_t pixelsOf(const JpegLibrary& library) {
    return static_cast<std::uint64_t>(library.width()) * static_cast<std::uint64_t>(library.height());
}

/// Whether the scaler reduces `from` pixels to `to` by 1.5 at least.
bool leavesEnough(int from, int to) {
    return 2 * std::int64_t{from} >= 3 * std::int64_t{to};
}

/// One colour of a pixel in inks, of which 255 is none: what the colour's ink and the black one let through.
std::uint8_t throughInks(int ink, int black) {
    return static_cast<std::uint8_t>((ink * black + 127) / 255);
}

/// Cyan, magenta, yellow and black to blue, green, red; `flip` is 255 where 255 is full ink, else 0.
void inksToColours(const std::uint8_t* inks, int pixels, int flip, std::uint8_t* colours) {
    for (int i = 0; i < pixels; ++i, inks += 4, colours += kBytesPerPixel) {
        const int black = inks[3] ^ flip;
        colours[0] = throughInks(inks[2] ^ flip, black);
        colours[1] = throughInks(inks[1] ^ flip, black);
        colours[2] = throughInks(inks[0] ^ flip, black);
    }
}

}  // namespace

JpegPicture::JpegPicture(std::span<const std::uint8_t> file) : library_(file) {
    if (!library_.readHeader()) {
        throw JpegError("no JPEG picture that can be decoded");
    }
    if (pixelsOf(library_) > kMostPixels) {
        throw JpegError("a JPEG picture that is too large");
    }
}

void JpegPicture::reduceFor(int width, int height) {
    if (pixelsOf(library_) <= kLargestScreen) {
        return;
    }
    for (const int eighths : kEighthsThatAreMeans) {
        library_.setScale(eighths);
        if (leavesEnough(library_.width(), width) && leavesEnough(library_.height(), height)) {
            break;
        }
    }
}

void JpegPicture::read(int x, int y, int width, int rows, std::uint8_t* target, std::size_t stride) {
    skipTo(y);
    const std::size_t rowBytes = static_cast<std::size_t>(width) * kBytesPerPixel;
    int row = 0;
    while (row < rows && !ended_) {
        std::uint8_t* first = target + static_cast<std::size_t>(row) * stride;
        row += readRows(x, width, rows - row, first, stride);
    }
    for (; row < rows; ++row) {
        std::memset(target + static_cast<std::size_t>(row) * stride, 0, rowBytes);
    }
}

/// Rows above the wanted ones are decoded as well: each needs what stands before it in the file.
void JpegPicture::skipTo(int row) {
    const std::size_t lineBytes =
        static_cast<std::size_t>(width()) * static_cast<std::size_t>(library_.bytesPerPixel());
    line_.resize(lineBytes);
    while (nextRow_ < row && !ended_) {
        std::uint8_t* line = line_.data();
        decodeRows(&line, 1);
    }
}

/// Reads up to `rows` rows, as many as come at a time; 0 when the picture ends.
int JpegPicture::readRows(int x, int width, int rows, std::uint8_t* target, std::size_t stride) {
    constexpr int kMostLines = 16;
    std::uint8_t* lines[kMostLines] = {line_.data()};
    const bool direct =
        x == 0 && width == this->width() && library_.colours() == JpegLibrary::Colours::BlueGreenRed;
    const int count = direct ? std::min(rows, kMostLines) : 1;
    for (int i = 0; direct && i < count; ++i) {
        lines[i] = target + static_cast<std::size_t>(i) * stride;
    }
    const int decoded = decodeRows(lines, count);
    if (!direct && decoded > 0) {
        copyPart(x, width, target);
    }
    return decoded;
}

/// The next rows of the library that hold something.
int JpegPicture::decodeRows(std::uint8_t** lines, int count) {
    if (!started_) {
        started_ = true;
        library_.start();
    }
    const int decoded = library_.readRows(lines, count);
    if (decoded == 0 && nextRow_ == 0) {
        throw JpegError("a JPEG picture without a row");
    }
    const int present = std::clamp(library_.firstMissingRow() - nextRow_, 0, decoded);
    nextRow_ += present;
    ended_ = present == 0;
    return present;
}

void JpegPicture::copyPart(int x, int width, std::uint8_t* target) const {
    const std::uint8_t* first =
        line_.data() + static_cast<std::size_t>(x) * static_cast<std::size_t>(library_.bytesPerPixel());
    if (library_.colours() == JpegLibrary::Colours::BlueGreenRed) {
        std::memcpy(target, first, static_cast<std::size_t>(width) * kBytesPerPixel);
    } else {
        const bool inverted = library_.colours() == JpegLibrary::Colours::InksInverted;
        inksToColours(first, width, inverted ? 0 : 255, target);
    }
}

}  // namespace picture
