#include "media/program_stream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <vector>

namespace media {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::int64_t kFrame = 3600;  // a 25th of a second
constexpr std::int64_t kSecond = 90'000;
constexpr std::int64_t kWrap = std::int64_t{1} << 33;

/// Writes a program stream, packet by packet.
class Writer {
  public:
    explicit Writer(bool mpeg2) : mpeg2_(mpeg2) {}

    Writer& pack(std::int64_t clock) {
        code(0xBA);
        clock = (clock % kWrap + kWrap) % kWrap;
        if (mpeg2_) {
            add({static_cast<int>(0x44 | (clock >> 30 & 7) << 3 | (clock >> 28 & 3)),
                 static_cast<int>(clock >> 20 & 255),
                 static_cast<int>((clock >> 15 & 31) << 3 | 4 | (clock >> 13 & 3)),
                 static_cast<int>(clock >> 5 & 255), static_cast<int>((clock & 31) << 3 | 4), 1, 1, 0x89,
                 0xC3, 0xF8});
        } else {
            stamp(clock);
            add({0x80, 0x1B, 0x91});
        }
        return *this;
    }

    /// A packet of stream `id` with a time stamp, or without where it is negative.
    Writer& packet(int id, std::int64_t time, const Bytes& payload) {
        code(id);
        const bool timed = time >= 0;
        const std::size_t header = mpeg2_ ? (timed ? 8 : 3) : (timed ? 7 : 3);
        const std::size_t length = header + payload.size();
        add({static_cast<int>(length >> 8), static_cast<int>(length & 255)});
        if (mpeg2_) {
            add({0x81, timed ? 0x80 : 0, timed ? 5 : 0});
        } else {
            add({0x60, 0x2E});  // the size of the decoder's buffer
        }
        if (timed) {
            stamp(time % kWrap);
        } else if (!mpeg2_) {
            add({0x0F});
        }
        bytes_.insert(bytes_.end(), payload.begin(), payload.end());
        return *this;
    }

    const Bytes& bytes() const { return bytes_; }

  private:
    void add(std::initializer_list<int> values) {
        for (const int value : values) {
            bytes_.push_back(static_cast<std::uint8_t>(value));
        }
    }
    void code(int id) { add({0, 0, 1, id}); }
    void stamp(std::int64_t value) {
        add({static_cast<int>(0x21 | (value >> 30 & 7) << 1), static_cast<int>(value >> 22 & 255),
             static_cast<int>((value >> 15 & 127) << 1 | 1), static_cast<int>(value >> 7 & 255),
             static_cast<int>((value & 127) << 1 | 1)});
    }

    bool mpeg2_;
    Bytes bytes_;
};

/// A sequence header with a rate code; 3 is 25 pictures a second.
Bytes sequence(int rate = 3) {
    return {0, 0, 1, 0xB3, 0x16, 0x01, 0x20, static_cast<std::uint8_t>(0x10 | rate), 0xFF, 0xFF, 0xE0, 0x18};
}

Bytes group() {
    return {0, 0, 1, 0xB8, 0, 8, 0, 0};
}

Bytes picture(int number) {
    return {0,
            0,
            1,
            0,
            static_cast<std::uint8_t>(number >> 2),
            static_cast<std::uint8_t>((number << 6 & 0xC0) | 8),
            7,
            7};
}

Bytes operator+(Bytes a, const Bytes& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

std::optional<ProgramStream> read(const Bytes& bytes) {
    return readProgramStream(bytes, bytes);
}

/// The time stamp whose five bytes begin at `at`.
std::int64_t stampIn(const Bytes& bytes, std::size_t at) {
    return std::int64_t{bytes[at] >> 1 & 7} << 30 | std::int64_t{bytes[at + 1]} << 22 |
           std::int64_t{bytes[at + 2] >> 1} << 15 | std::int64_t{bytes[at + 3]} << 7 | bytes[at + 4] >> 1;
}

class BothKinds : public testing::TestWithParam<bool> {};

TEST_P(BothKinds, TellBeginningAndEnd) {
    Writer writer(GetParam());
    writer.pack(0)
        .packet(0xE0, 48600, sequence() + group() + picture(0))
        .packet(0xE0, 48600 + kFrame, picture(1));
    EXPECT_EQ(read(writer.bytes()), (ProgramStream{GetParam(), 0xE0, 0, 48600, 0, 48600 + 2 * kFrame}));
}

TEST_P(BothKinds, PicturesWithoutAStampFollowFromTheirNumber) {
    Writer writer(GetParam());
    writer.pack(1000)
        .packet(0xC0, 40000, {1, 2, 3})
        .packet(0xE1, 1000 + 48600, sequence() + group() + picture(0) + picture(3) + picture(1) + picture(2))
        .packet(0xE1, -1, picture(4) + group() + picture(0) + picture(1));
    EXPECT_EQ(read(writer.bytes()), (ProgramStream{GetParam(), 0xE1, 1000, 48600, 0, 48600 + 7 * kFrame}));
}

TEST_P(BothKinds, AStampBelongsToTheFirstPictureThatBeginsInItsPacket) {
    Writer writer(GetParam());
    writer.pack(0)
        .packet(0xE0, 9000, sequence() + group() + picture(2))  // shown after the two that follow
        .packet(0xE0, 9000 - 2 * kFrame, picture(0) + picture(1));
    EXPECT_EQ(read(writer.bytes())->end, 9000 + kFrame);
}

TEST_P(BothKinds, AStartCodeMayLieAcrossTwoPackets) {
    Bytes first = sequence() + group() + picture(0);
    const Bytes second = picture(1);
    first.insert(first.end(), second.begin(), second.begin() + 2);
    Writer writer(GetParam());
    writer.pack(0).packet(0xE0, 9000, first).packet(0xE0, -1, Bytes(second.begin() + 2, second.end()));
    EXPECT_EQ(read(writer.bytes())->end, 9000 + 2 * kFrame);
}

TEST_P(BothKinds, StampsMayPassTheirHighestValue) {
    const std::int64_t clock = kWrap - 2 * kFrame;
    Writer writer(GetParam());
    writer.pack(clock).packet(0xE0, clock + kFrame, sequence() + group() + picture(0));
    writer.pack(0).packet(0xE0, clock + 4 * kFrame, picture(3));
    EXPECT_EQ(read(writer.bytes()), (ProgramStream{GetParam(), 0xE0, clock, kFrame, 2 * kFrame, 5 * kFrame}));
}

TEST_P(BothKinds, HeadAndTailOfALongFilm) {
    Writer head(GetParam());
    head.pack(500).packet(0xE0, 500 + kFrame, sequence() + group() + picture(0));
    Writer tail(GetParam());
    tail.packet(0xE0, 7, picture(9));  // the rest of a pack that began before
    tail.pack(600 * kSecond).packet(0xE0, 500 + 600 * kSecond, group() + picture(0));
    EXPECT_EQ(readProgramStream(head.bytes(), tail.bytes()),
              (ProgramStream{GetParam(), 0xE0, 500, kFrame, 600 * kSecond - 500, 600 * kSecond + kFrame}));
}

TEST_P(BothKinds, ClosingPacksAreAProgramStreamThemselves) {
    Writer film(GetParam());
    film.pack(700).packet(0xE2, 700 + 48600, sequence() + group() + picture(0));
    const ProgramStream stream = *read(film.bytes());
    const Bytes closing = closingPacks(stream);
    // A film of the closing packs behind a picture: they tell no picture, so the end stays where it was.
    ProgramStream whole = *read(film.bytes() + closing);
    EXPECT_GT(whole.lastClock, stream.lastClock);
    EXPECT_LT(whole.lastClock, stream.lastClock + kSecond / 2) << "a leap of the clock sets all stamps anew";
    whole.lastClock = stream.lastClock;
    EXPECT_EQ(whole, stream);
    const std::size_t packet = GetParam() ? 14 : 12;
    EXPECT_EQ(closing[packet + 3], 0xE2) << "the film's own video stream";
    const std::int64_t late = stampIn(closing, packet + (GetParam() ? 9 : 6));
    EXPECT_GE(late - (700 + stream.firstStamp), stream.end)
        << "a length taken from first and last time stamp reaches to the end, counted from the first clock";
    EXPECT_GE(closing.size(), 2048u) << "a reader looks for whole packs";
    EXPECT_EQ(Bytes(closing.end() - 4, closing.end()), (Bytes{0, 0, 1, 0xB9}));
}

INSTANTIATE_TEST_SUITE_P(ProgramStream, BothKinds, testing::Bool(),
                         [](const auto& kind) { return kind.param ? "Mpeg2" : "Mpeg1"; });

TEST(ProgramStream, RatesGiveThePicturesTime) {
    const std::int64_t expected[] = {0, 3753, 3750, 3600, 3003, 3000, 1800, 1501, 1500};
    for (int rate = 1; rate <= 8; ++rate) {
        Writer writer(false);
        writer.pack(0).packet(0xE0, 0, sequence(rate) + group() + picture(0));
        EXPECT_EQ(read(writer.bytes())->end, expected[rate]) << rate;
    }
    for (const int rate : {0, 9, 15}) {
        Writer writer(false);
        writer.pack(0).packet(0xE0, 0, sequence(rate) + group() + picture(0));
        EXPECT_EQ(read(writer.bytes()), std::nullopt) << rate;
    }
}

TEST(ProgramStream, OtherFilesAreNone) {
    EXPECT_EQ(read({}), std::nullopt);
    EXPECT_EQ(read({0, 0, 1}), std::nullopt);
    EXPECT_EQ(read({0, 0, 1, 0xBA}), std::nullopt);
    EXPECT_EQ(read(sequence() + group() + picture(0)), std::nullopt) << "an elementary stream";
    Writer audio(false);
    audio.pack(0).packet(0xC0, 5, {1, 2, 3});
    EXPECT_EQ(read(audio.bytes()), std::nullopt) << "no video";
    Writer bare(false);
    bare.pack(0).packet(0xE0, -1, sequence() + group() + picture(0));
    EXPECT_EQ(read(bare.bytes()), std::nullopt) << "no time stamp";
    Writer behind(false);
    behind.packet(0xE0, 5, sequence() + picture(0)).pack(0);
    EXPECT_EQ(read(behind.bytes()), std::nullopt) << "does not begin with a pack";
}

// Each group stands for a thousand pictures that are missing; a packet holds many groups.
TEST(ProgramStream, AFilmOfDaysIsDamaged) {
    struct Case {
        int groups;
        bool whole;
    };
    for (const Case& one : {Case{1160, true}, Case{1180, false}, Case{2500, false}, Case{4000, false}}) {
        Bytes pictures = sequence();
        for (int i = 0; i < one.groups; ++i) {
            const Bytes next = picture(1023) + group();
            pictures.insert(pictures.end(), next.begin(), next.end());
        }
        Writer writer(false);
        writer.pack(0).packet(0xE0, 1023 * kFrame, pictures);
        EXPECT_EQ(read(writer.bytes()).has_value(), one.whole) << one.groups;
    }
    for (const std::int64_t clock : {std::int64_t{0}, kWrap / 2 + 10 * kFrame}) {
        Writer writer(false);
        writer.pack(clock).packet(0xE0, clock + kWrap / 2 - 2 * kFrame, sequence() + group() + picture(0));
        EXPECT_TRUE(read(writer.bytes()).has_value()) << clock;
        writer.packet(0xE0, -1, picture(1));
        EXPECT_EQ(read(writer.bytes()), std::nullopt) << "past half of the circle from " << clock;
    }
}

// Whatever is cut off or overwritten, reading stays inside the bytes (the sanitizers watch) and ends.
TEST(ProgramStream, DamageIsNoDanger) {
    for (const bool mpeg2 : {false, true}) {
        Writer writer(mpeg2);
        writer.pack(0)
            .packet(0xE0, 48600, sequence() + group() + picture(0) + picture(1))
            .packet(0xE0, -1, picture(2));
        const Bytes whole = writer.bytes();
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            if (const auto stream = read(cut)) {
                EXPECT_LE(stream->end, 48600 + 3 * kFrame) << length;
            }
        }
        for (std::size_t at = 0; at < whole.size(); ++at) {
            for (const int value : {0x00, 0x01, 0x7F, 0xBA, 0xE0, 0xFF}) {
                Bytes spoilt = whole;
                spoilt[at] = static_cast<std::uint8_t>(value);
                if (const auto stream = read(spoilt)) {
                    EXPECT_GT(stream->end, stream->firstStamp);
                    EXPECT_FALSE(closingPacks(*stream).empty());
                }
            }
        }
    }
}

}  // namespace
}  // namespace media
