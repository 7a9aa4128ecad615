#include "fuzz/check.h"
#include "media/program_stream.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace {

using fuzz::check;
using Bytes = std::vector<std::uint8_t>;

constexpr std::int64_t kWrap = std::int64_t{1} << 33;

/// The time stamp whose five bytes begin at `at`.
std::int64_t stampIn(const Bytes& bytes, std::size_t at) {
    return std::int64_t{bytes[at] >> 1 & 7} << 30 | std::int64_t{bytes[at + 1]} << 22 |
           std::int64_t{bytes[at + 2] >> 1} << 15 | std::int64_t{bytes[at + 3]} << 7 | bytes[at + 4] >> 1;
}

bool isCode(const Bytes& bytes, std::size_t at, std::uint8_t code) {
    return bytes[at] == 0 && bytes[at + 1] == 0 && bytes[at + 2] == 1 && bytes[at + 3] == code;
}

void checkClosing(const media::ProgramStream& stream) {
    constexpr std::size_t kPackSize = 2048;
    const Bytes closing = media::closingPacks(stream);
    const std::size_t packet = stream.mpeg2 ? 14 : 12;
    check(closing.size() == kPackSize + 4);
    check(isCode(closing, 0, 0xBA) && isCode(closing, packet, stream.videoId));
    check(isCode(closing, kPackSize, 0xB9));
    // A length taken from the first and the last time stamp reaches to the end, counted from the first clock.
    const std::int64_t late = stampIn(closing, packet + (stream.mpeg2 ? 9 : 6));
    const std::int64_t length = ((late - stream.firstClock - stream.firstStamp) % kWrap + kWrap) % kWrap;
    check(length >= stream.end);
}

void checkStream(const Bytes& head, const Bytes& tail) {
    const auto stream = media::readProgramStream(head, tail);
    if (!stream) {
        return;
    }
    check(stream->videoId >= 0xE0 && stream->videoId <= 0xEF);
    check(stream->firstClock >= 0 && stream->firstClock < kWrap);
    check(stream->end > stream->firstStamp);
    check(stream->end < kWrap / 2 && stream->end - stream->firstStamp < kWrap / 2);
    checkClosing(*stream);
}

}  // namespace

/// The first byte tells where the head ends, the second how often the tail is repeated: long damaged films
/// come from a few bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const std::size_t split = 2 + std::min<std::size_t>(2 * data[0], size - 2);
    const Bytes head(data + 2, data + split);
    Bytes tail;
    for (int i = 0; i <= data[1]; ++i) {
        tail.insert(tail.end(), data + split, data + size);
    }
    checkStream(head, head);
    checkStream(head, tail);
    return 0;
}
