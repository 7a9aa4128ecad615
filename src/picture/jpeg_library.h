#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace picture {

/// The decoder of the JPEG library for one file in memory. The library leaves a call that fails by a jump
/// past its callers' destructors; here such a call returns false instead. What a damaged file yields up to
/// the damage is kept.
///
/// The order of calls: readHeader(), setScale(), start(), readRows() until all are read. After one of them
/// has failed only readRows() may be called, and it fails.
class JpegLibrary {
  public:
    /// `file` must outlive the object.
    explicit JpegLibrary(std::span<const std::uint8_t> file);
    JpegLibrary(const JpegLibrary&) = delete;
    JpegLibrary& operator=(const JpegLibrary&) = delete;
    ~JpegLibrary();

    /// Reads up to the picture data. Fails on what is no JPEG, on a kind that the library does not decode,
    /// and when there is no picture data.
    bool readHeader();

    /// What the samples of a pixel are: blue, green, red, or four inks.
    enum class Colours { BlueGreenRed, Inks, InksInverted };
    Colours colours() const { return colours_; }
    /// Bytes of a pixel in the rows.
    int bytesPerPixel() const { return colours_ == Colours::BlueGreenRed ? 3 : 4; }

    /// Size of the rows in pixels, at the scale that is set; once the header is read.
    int width() const;
    int height() const;

    /// Decodes at `eighths` (1 to 8) eighths of the size, rounded up.
    void setScale(int eighths);

    /// Bytes that decoding takes besides the file and the rows that are handed out.
    std::uint64_t memory() const;

    /// Starts the decoding; a picture in several scans is decoded but for its last step, as far as it goes.
    /// When that fails there are no rows.
    void start();

    /// Reads up to `count` (at least 1) of the next rows, one to each pointer. Returns how many were read, at
    /// least one; 0 when no more can be read.
    int readRows(std::uint8_t** rows, int count);

    /// The first row of which no data has come; height() as long as none is missing. Rows from there on are
    /// grey. It is known when the row has been read.
    int firstMissingRow() const;

    /// How many scans of a picture of that many pixels are read. About ten are common; a file of some
    /// kilobytes can hold thousands, each of which passes over the whole picture. 500 for a small picture,
    /// less for one of more than eight megapixels, 32 at least.
    static int mostScans(std::uint64_t pixels);

  private:
    struct State;

    bool readScans();

    std::unique_ptr<State> state_;
    Colours colours_ = Colours::BlueGreenRed;
    int eighths_ = 8;
};

}  // namespace picture
