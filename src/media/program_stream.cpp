#include "media/program_stream.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace media {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::int64_t kSecond = 90'000;
constexpr std::int64_t kWrap = std::int64_t{1} << 33;

constexpr std::uint8_t kEndCode = 0xB9;
constexpr std::uint8_t kPack = 0xBA;
constexpr std::uint8_t kPadding = 0xBE;
constexpr std::uint8_t kFirstPacket = 0xBB;
constexpr std::uint8_t kFirstVideo = 0xE0;
constexpr std::uint8_t kLastVideo = 0xEF;
constexpr std::uint8_t kPicture = 0x00;
constexpr std::uint8_t kSequence = 0xB3;
constexpr std::uint8_t kSequenceEnd = 0xB7;
constexpr std::uint8_t kGroup = 0xB8;

/// Differences of stamps are taken on the circle of 33 bits and lie within half of it.
std::int64_t since(std::int64_t stamp, std::int64_t origin) {
    const std::int64_t forward = ((stamp - origin) % kWrap + kWrap) % kWrap;
    return forward >= kWrap / 2 ? forward - kWrap : forward;
}

/// Five bytes with 3 + 15 + 15 bits and marker bits between.
std::int64_t stampAt(Bytes bytes) {
    return (std::int64_t{bytes[0]} >> 1 & 7) << 30 | std::int64_t{bytes[1]} << 22 |
           (std::int64_t{bytes[2]} >> 1) << 15 | std::int64_t{bytes[3]} << 7 | std::int64_t{bytes[4]} >> 1;
}

/// The start code prefix 00 00 01 at or after `from`; bytes.size() where there is none with its code byte.
std::size_t findStartCode(Bytes bytes, std::size_t from) {
    for (std::size_t i = from; i + 3 < bytes.size(); ++i) {
        if (bytes[i] == 0 && bytes[i + 1] == 0 && bytes[i + 2] == 1) {
            return i;
        }
    }
    return bytes.size();
}

struct Packet {
    std::optional<std::int64_t> stamp;
    Bytes payload;
};

/// `body` is a packet behind its length field.
std::optional<Packet> readPacket(Bytes body, bool mpeg2) {
    std::size_t at = 0;
    Packet packet;
    if (mpeg2) {
        if (body.size() < 3 || (body[0] & 0xC0) != 0x80 || body.size() < 3u + body[2]) {
            return {};
        }
        if ((body[1] & 0x80) != 0 && body[2] >= 5) {
            packet.stamp = stampAt(body.subspan(3));
        }
        packet.payload = body.subspan(3u + body[2]);
        return packet;
    }
    while (at < body.size() && body[at] == 0xFF) {
        ++at;
    }
    if (at + 2 <= body.size() && (body[at] & 0xC0) == 0x40) {
        at += 2;  // buffer size
    }
    if (at >= body.size()) {
        return {};
    }
    const int mark = body[at] >> 4;
    if (mark == 2 || mark == 3) {
        const std::size_t length = mark == 2 ? 5 : 10;
        if (at + length > body.size()) {
            return {};
        }
        packet.stamp = stampAt(body.subspan(at));
        at += length;
    } else {
        ++at;
    }
    packet.payload = body.subspan(at);
    return packet;
}

/// The video of a stretch of stream: its elementary bytes, and the time stamps by the byte they stand at.
struct Video {
    struct Stamp {
        std::size_t at;
        std::int64_t value;
    };
    std::optional<std::int64_t> firstClock;
    std::int64_t lastClock = 0;
    bool mpeg2 = false;
    std::uint8_t id = 0;
    std::vector<std::uint8_t> bytes;
    std::vector<Stamp> stamps;
};

std::int64_t clockOf(Bytes pack, bool mpeg2) {
    if (!mpeg2) {
        return stampAt(pack);
    }
    return (std::int64_t{pack[0]} >> 3 & 7) << 30 | (std::int64_t{pack[0]} & 3) << 28 |
           std::int64_t{pack[1]} << 20 | (std::int64_t{pack[2]} >> 3) << 15 |
           (std::int64_t{pack[2]} & 3) << 13 | std::int64_t{pack[3]} << 5 | std::int64_t{pack[4]} >> 3;
}

/// Takes the video packets of one stream out of `stream`, from its first pack on.
Video takeVideo(Bytes stream) {
    Video video;
    std::size_t at = 0;
    while ((at = findStartCode(stream, at)) < stream.size()) {
        const std::uint8_t code = stream[at + 3];
        if (code == kPack && at + 9 <= stream.size()) {
            const bool mpeg2 = stream[at + 4] >> 6 == 1;
            video.lastClock = clockOf(stream.subspan(at + 4), mpeg2);
            if (!video.firstClock) {
                video.mpeg2 = mpeg2;
                video.firstClock = video.lastClock;
            }
            at += mpeg2 ? 14 : 12;
            continue;
        }
        if (!video.firstClock || code < kFirstPacket || at + 6 > stream.size()) {
            at += 4;
            continue;
        }
        const std::size_t length = std::size_t{stream[at + 4]} << 8 | stream[at + 5];
        const std::size_t begin = at + 6;
        const Bytes body = stream.subspan(begin, std::min(length, stream.size() - begin));
        at = begin + body.size();
        if (code < kFirstVideo || code > kLastVideo || (video.id != 0 && code != video.id)) {
            continue;
        }
        video.id = code;
        if (const auto packet = readPacket(body, video.mpeg2)) {
            if (packet->stamp) {
                video.stamps.push_back({video.bytes.size(), *packet->stamp});
            }
            video.bytes.insert(video.bytes.end(), packet->payload.begin(), packet->payload.end());
        }
    }
    return video;
}

/// The time of one picture by the sequence header's rate code; 0 where it tells none.
std::int64_t pictureTime(Bytes video) {
    constexpr std::array<double, 9> kRates = {0,  24000.0 / 1001, 24, 25, 30000.0 / 1001, 30,
                                              50, 60000.0 / 1001, 60};
    for (std::size_t at = 0; (at = findStartCode(video, at)) < video.size(); at += 4) {
        if (video[at + 3] == kSequence && at + 8 <= video.size()) {
            const unsigned code = video[at + 7] & 0x0F;
            return code == 0 || code >= kRates.size() ? 0 : static_cast<std::int64_t>(kSecond / kRates[code]);
        }
    }
    return 0;
}

/// When the last picture is over, counted from `origin`: pictures without a time stamp of their own follow
/// from their number within their group. Nothing if no picture has a time stamp.
std::optional<std::int64_t> endOfPictures(const Video& video, std::int64_t origin, std::int64_t picture) {
    std::int64_t group = 0;  // when the picture numbered 0 of the group is due
    std::int64_t end = 0;
    std::int64_t highest = -1;
    bool known = false;
    std::size_t stamps = 0;
    std::size_t used = 0;
    const Bytes bytes = video.bytes;
    for (std::size_t at = 0; (at = findStartCode(bytes, at)) < bytes.size(); at += 4) {
        while (stamps < video.stamps.size() && video.stamps[stamps].at <= at) {
            ++stamps;
        }
        if (bytes[at + 3] == kGroup) {
            group += (highest + 1) * picture;
            highest = -1;
        } else if (bytes[at + 3] == kPicture && at + 6 <= bytes.size()) {
            const std::int64_t number = bytes[at + 4] << 2 | bytes[at + 5] >> 6;
            if (used < stamps) {
                group = since(video.stamps[stamps - 1].value, origin) - number * picture;
                used = stamps;
                end = known ? end : group;
                known = true;
            }
            highest = std::max(highest, number);
            end = std::max(end, group + (number + 1) * picture);
        }
    }
    return known ? std::optional(end) : std::nullopt;
}

void appendStamp(std::vector<std::uint8_t>& out, std::uint8_t mark, std::int64_t stamp) {
    out.push_back(static_cast<std::uint8_t>(mark << 4 | (stamp >> 30 & 7) << 1 | 1));
    out.push_back(static_cast<std::uint8_t>(stamp >> 22 & 0xFF));
    out.push_back(static_cast<std::uint8_t>((stamp >> 15 & 0x7F) << 1 | 1));
    out.push_back(static_cast<std::uint8_t>(stamp >> 7 & 0xFF));
    out.push_back(static_cast<std::uint8_t>((stamp & 0x7F) << 1 | 1));
}

void appendCode(std::vector<std::uint8_t>& out, std::uint8_t code) {
    for (const std::uint8_t byte : {std::uint8_t{0}, std::uint8_t{0}, std::uint8_t{1}, code}) {
        out.push_back(byte);
    }
}

void appendPack(std::vector<std::uint8_t>& out, bool mpeg2, std::int64_t clock) {
    appendCode(out, kPack);
    if (!mpeg2) {
        appendStamp(out, 2, clock);
        out.insert(out.end(), {0x80, 0x00, 0x03});
        return;
    }
    out.push_back(static_cast<std::uint8_t>(0x44 | (clock >> 30 & 7) << 3 | (clock >> 28 & 3)));
    out.push_back(static_cast<std::uint8_t>(clock >> 20 & 0xFF));
    out.push_back(static_cast<std::uint8_t>((clock >> 15 & 0x1F) << 3 | 4 | (clock >> 13 & 3)));
    out.push_back(static_cast<std::uint8_t>(clock >> 5 & 0xFF));
    out.push_back(static_cast<std::uint8_t>((clock & 0x1F) << 3 | 4));
    out.insert(out.end(), {0x01, 0x00, 0x00, 0x07, 0xF8});
}

void appendLength(std::vector<std::uint8_t>& out, std::size_t length) {
    out.push_back(static_cast<std::uint8_t>(length >> 8));
    out.push_back(static_cast<std::uint8_t>(length & 0xFF));
}

}  // namespace

std::optional<ProgramStream> readProgramStream(Bytes head, Bytes tail) {
    if (head.size() < 4 || findStartCode(head.first(4), 0) != 0 || head[3] != kPack) {
        return {};
    }
    const Video first = takeVideo(head);
    if (!first.firstClock || first.stamps.empty()) {
        return {};
    }
    const std::int64_t picture = pictureTime(first.bytes);
    const Video last = takeVideo(tail);
    const auto end = endOfPictures(last, *first.firstClock, picture);
    if (picture == 0 || !end) {
        return {};
    }
    ProgramStream stream{first.mpeg2, first.id, *first.firstClock, 0, 0, *end};
    stream.firstStamp = since(first.stamps.front().value, *first.firstClock);
    stream.lastClock = since(last.lastClock, *first.firstClock);
    // Stamps tell their order over half of their circle only; a longer film is a damaged one.
    const bool tellable = stream.end < kWrap / 2 && stream.end - stream.firstStamp < kWrap / 2;
    if (stream.end <= stream.firstStamp || !tellable) {
        return {};
    }
    return stream;
}

std::vector<std::uint8_t> closingPacks(const ProgramStream& stream) {
    constexpr std::size_t kPackSize = 2048;
    const std::int64_t clock = (stream.firstClock + stream.lastClock + kSecond / 100) % kWrap;
    const std::int64_t margin = std::max<std::int64_t>(stream.firstStamp, 0) + kSecond;
    const std::int64_t late = (stream.firstClock + stream.end + margin) % kWrap;
    std::vector<std::uint8_t> out;
    appendPack(out, stream.mpeg2, clock);
    appendCode(out, stream.videoId);
    if (stream.mpeg2) {
        appendLength(out, 3 + 5 + 4);
        out.insert(out.end(), {0x80, 0x80, 5});
    } else {
        appendLength(out, 5 + 4);
    }
    appendStamp(out, 2, late);
    appendCode(out, kSequenceEnd);
    appendCode(out, kPadding);
    appendLength(out, kPackSize - out.size() - 2);
    out.resize(kPackSize, 0xFF);
    appendCode(out, kEndCode);
    return out;
}

}  // namespace media
