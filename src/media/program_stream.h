#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace media {

/// What has to be known of an MPEG program stream to play it to its very end.
struct ProgramStream {
    /// MPEG-2 packs and packets instead of MPEG-1 ones.
    bool mpeg2 = false;
    /// The stream id of the video packets, 0xE0 to 0xEF.
    std::uint8_t videoId = 0xE0;
    /// The clock reference of the first pack, in 1/90,000 s.
    std::int64_t firstClock = 0;
    /// Time stamp of the first video packet, counted from firstClock, in 1/90,000 s.
    std::int64_t firstStamp = 0;
    /// The clock reference of the last pack, counted from firstClock, in 1/90,000 s.
    std::int64_t lastClock = 0;
    /// When the last picture's time is over, counted from firstClock, in 1/90,000 s.
    std::int64_t end = 0;
    friend bool operator==(const ProgramStream&, const ProgramStream&) = default;
};

/// How much of a file's beginning and of its end tells all: the last packets with a time stamp lie in it.
inline constexpr std::size_t kProgramStreamWindow = std::size_t{512} * 1024;

/// Reads `head` (the file's first bytes) and `tail` (its last ones; the whole file may be both).
/// Nothing if it is no program stream with video in it, too damaged to tell where it ends, or as it seems
/// longer than half of the circle of time stamps (13 hours).
std::optional<ProgramStream> readProgramStream(std::span<const std::uint8_t> head,
                                               std::span<const std::uint8_t> tail);

/// Packs to put behind the film's last byte: a video packet that ends the sequence, with a time stamp so late
/// that a reader which takes the length of the film from first and last time stamp, and counts it from the
/// first clock reference, does not cut the film. Their own clock goes on where the film's ended: a reader
/// takes a leap of it for a new beginning and sets all time stamps anew.
std::vector<std::uint8_t> closingPacks(const ProgramStream& stream);

}  // namespace media
