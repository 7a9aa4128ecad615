// JPEG files that are truncated, damaged or made to wear the decoder out.
#include "picture/jpeg_picture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "support/jpeg_file.h"

namespace picture {
namespace {

using support::Bytes;
using support::JpegKind;
using support::motley;
using support::readRows;
using support::writeJpeg;

constexpr int kWidth = 120;
constexpr int kHeight = 160;
constexpr std::size_t kRowBytes = std::size_t{kWidth} * 3;

Bytes decoded(const Bytes& file) {
    JpegPicture picture(file);
    EXPECT_EQ(picture.width(), kWidth);
    EXPECT_EQ(picture.height(), kHeight);
    return readRows(picture, kWidth, kHeight);
}

Bytes cut(const Bytes& file, std::size_t length) {
    return {file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length)};
}

/// How many rows at the top equal those of `whole`.
int soundRows(const Bytes& rows, const Bytes& whole) {
    int y = 0;
    while (y < kHeight && std::equal(rows.begin() + y * std::ptrdiff_t{kRowBytes},
                                     rows.begin() + (y + 1) * std::ptrdiff_t{kRowBytes},
                                     whole.begin() + y * std::ptrdiff_t{kRowBytes})) {
        ++y;
    }
    return y;
}

/// How many rows there are above those at the bottom that are all black.
int rowsAboveBlack(const Bytes& rows) {
    std::size_t end = rows.size();
    while (end > 0 && rows[end - 1] == 0) {
        --end;
    }
    return static_cast<int>((end + kRowBytes - 1) / kRowBytes);
}

double psnr(const Bytes& a, const Bytes& b) {
    double squares = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        squares += (a[i] - b[i]) * (a[i] - b[i]);
    }
    return squares == 0 ? 99 : 10 * std::log10(255.0 * 255.0 * static_cast<double>(a.size()) / squares);
}

/// Light everywhere, so that black is what the decoder made so.
int light(int x, int y, int channel) {
    return 60 + motley(x, y, channel) * 3 / 4;
}

class TruncatedJpeg : public testing::TestWithParam<JpegKind> {};

TEST_P(TruncatedJpeg, ShowsWhatIsThereAndBlackBelow) {
    const Bytes file = writeJpeg(kWidth, kHeight, GetParam(), light);
    const Bytes whole = support::plainDecode(file);
    const std::size_t data = support::findMarker(file, 0xDA) + 14;
    const int blockRows = GetParam().down * 8;
    int soundBefore = 0;
    for (int part = 1; part < 60; ++part) {
        Bytes file2 = cut(file, data + (file.size() - 2 - data) * static_cast<std::size_t>(part) / 60);
        const Bytes rows = decoded(file2);
        const int sound = soundRows(rows, whole);
        const int shown = rowsAboveBlack(rows);
        EXPECT_GE(sound, soundBefore) << part;
        // Between what is sound and what is black lies the row of blocks in which the data end, and the line
        // above it where colours are interpolated from it.
        EXPECT_LE(shown - sound, blockRows + 1) << part;
        EXPECT_GE(shown, kHeight * part / 60 * 7 / 10 - blockRows) << part;
        soundBefore = sound;
        // A file that ends orderly too early is no other case.
        file2.insert(file2.end(), {0xFF, 0xD9});
        EXPECT_TRUE(decoded(file2) == rows || GetParam().arithmetic) << part;
    }
    EXPECT_GE(soundBefore, kHeight / 2);
}

INSTANTIATE_TEST_SUITE_P(Kinds, TruncatedJpeg,
                         testing::Values(JpegKind{}, JpegKind{.name = "every_pixel", .across = 1, .down = 1},
                                         JpegKind{
                                             .name = "grey", .stored = JCS_GRAYSCALE, .across = 1, .down = 1},
                                         JpegKind{.name = "restarts", .restarts = 1},
                                         JpegKind{.name = "arithmetic", .arithmetic = true}),
                         [](const auto& instance) { return std::string(instance.param.name); });

class TruncatedScans : public testing::TestWithParam<JpegKind> {};

/// The first scan tells which rows are there; what later ones lack makes the picture coarser, not smaller.
TEST_P(TruncatedScans, ShowEveryRowOnceTheFirstScanIsThere) {
    const Bytes file = writeJpeg(kWidth, kHeight, GetParam(), light);
    const Bytes whole = support::plainDecode(file);
    const std::size_t first = support::findMarker(file, 0xDA);
    std::size_t end = first + 2;
    while (file[end] != 0xFF || file[end + 1] == 0 || (file[end + 1] & 0xF8) == 0xD0) {
        ++end;
    }
    int shownBefore = 0;
    for (std::size_t length = first + 20; length < file.size(); length += file.size() / 97) {
        const Bytes rows = decoded(cut(file, length));
        const int shown = rowsAboveBlack(rows);
        EXPECT_GE(shown, shownBefore) << length;
        shownBefore = shown;
        if (length >= end) {
            EXPECT_EQ(shown, kHeight) << length;
        } else if (length < first + (end - first) / 2) {
            EXPECT_LE(shown, kHeight * 2 / 3) << length;
        }
    }
    EXPECT_GE(psnr(decoded(cut(file, file.size() - 40)), whole), 28);
}

INSTANTIATE_TEST_SUITE_P(Kinds, TruncatedScans,
                         testing::Values(JpegKind{.name = "progressive", .progressive = true},
                                         JpegKind{
                                             .name = "arithmetic", .progressive = true, .arithmetic = true},
                                         JpegKind{.name = "components_apart", .apart = true},
                                         JpegKind{.name = "restarts", .progressive = true, .restarts = 1}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST(DamagedJpeg, DamageEndsWithItsRestartInterval) {
    const Bytes file = writeJpeg(kWidth, kHeight, {.across = 1, .down = 1, .restarts = 1}, light);
    const Bytes whole = support::plainDecode(file);
    // Markers of both kinds that do not belong there: one is passed over at the next restart.
    for (const std::uint8_t marker : {std::uint8_t{0x02}, std::uint8_t{0xD0}, std::uint8_t{0x55}}) {
        Bytes damaged = file;
        const std::size_t second = support::findMarker(damaged, 0xD2);
        damaged[second + 12] = 0xFF;
        damaged[second + 13] = marker;
        const Bytes rows = decoded(damaged);
        EXPECT_EQ(soundRows(rows, whole), 24) << int{marker};
        EXPECT_TRUE(std::equal(rows.begin() + 80 * kRowBytes, rows.end(), whole.begin() + 80 * kRowBytes));
    }
}

TEST(DamagedJpeg, AnotherMarkerInTheDataEndsThem) {
    Bytes file = writeJpeg(kWidth, kHeight, {.across = 1, .down = 1}, light);
    const std::size_t middle = file.size() / 2;
    file[middle] = 0xFF;
    file[middle + 1] = 0xC4;
    const int shown = rowsAboveBlack(decoded(file));
    EXPECT_GT(shown, kHeight / 4);
    EXPECT_LT(shown, kHeight * 3 / 4);
}

/// A later scan that the library refuses does not cost the picture that is there already.
TEST(DamagedJpeg, UnreadableScanLeavesThoseBeforeIt) {
    const Bytes file = writeJpeg(kWidth, kHeight, {.progressive = true}, light);
    const Bytes whole = support::plainDecode(file);
    std::vector<std::size_t> scans;
    for (std::size_t at = support::findMarker(file, 0xDA); at < file.size();
         at = support::findMarker(file, 0xDA, at + 2)) {
        scans.push_back(at);
    }
    ASSERT_GE(scans.size(), 8U);
    double before = 0;
    for (std::size_t scan = 1; scan < scans.size(); ++scan) {
        Bytes damaged = file;
        damaged[scans[scan] + 4] = 9;  // components in the scan
        const double now = psnr(decoded(damaged), whole);
        EXPECT_GE(now, std::max(15.0, before - 1)) << scan;
        before = now;
    }
    EXPECT_GE(before, 30);
}

/// A second frame between the scans, of another size and with more components.
TEST(DamagedJpeg, SecondFrameLeavesTheFirst) {
    const Bytes file = writeJpeg(kWidth, kHeight, {.progressive = true}, light);
    const std::size_t second = support::findMarker(file, 0xDA, support::findMarker(file, 0xDA) + 2);
    Bytes damaged = cut(file, second);
    const Bytes frame = support::jpegSegment(0xC1, {8, 0x40, 0, 0x50, 0, 200, 1, 0x11, 0});
    damaged.insert(damaged.end(), frame.begin(), frame.end());
    damaged.insert(damaged.end(), file.begin() + static_cast<std::ptrdiff_t>(second), file.end());
    EXPECT_TRUE(decoded(damaged) == decoded(cut(file, second)));
}

TEST(DamagedJpeg, FileWithoutAPictureIsAnError) {
    const Bytes file = writeJpeg(kWidth, kHeight, {}, light);
    const std::size_t data = support::findMarker(file, 0xDA) + 14;
    for (std::size_t length = 0; length <= data; ++length) {
        EXPECT_THROW(JpegPicture(cut(file, length)), JpegError) << length;
    }
    Bytes empty = cut(file, data);
    empty.insert(empty.end(), {0xFF, 0xD9});
    EXPECT_THROW(JpegPicture{empty}, JpegError);
    EXPECT_THROW(JpegPicture(Bytes(5000, 'x')), JpegError);
    EXPECT_THROW(JpegPicture(Bytes{0x89, 'P', 'N', 'G', 13, 10, 26, 10}), JpegError);
    EXPECT_NO_THROW(JpegPicture(cut(file, data + 1)));
}

TEST(DamagedJpeg, KindsThatAreNotDecodedAreErrors) {
    const Bytes file = writeJpeg(kWidth, kHeight, {.stored = JCS_YCCK}, light);
    const std::size_t frame = support::findMarker(file, 0xC0);
    Bytes twelveBits = file;
    twelveBits[frame + 4] = 12;
    EXPECT_THROW(JpegPicture{twelveBits}, JpegError);
    Bytes lossless = file;
    lossless[frame + 1] = 0xC3;
    EXPECT_THROW(JpegPicture{lossless}, JpegError);
    // A frame of two components, and the scan of both.
    Bytes two = support::jpegFile({support::jpegSegment(0xC0, {8, 0, 8, 0, 8, 2, 1, 0x11, 0, 2, 0x11, 0}),
                                   support::jpegSegment(0xDA, {2, 1, 0, 2, 0, 0, 63, 0}), Bytes(90, 7)});
    EXPECT_THROW(JpegPicture{two}, JpegError);
}

/// A file whose tables are missing has a sound header and no row.
TEST(DamagedJpeg, PictureWithoutARowIsAnError) {
    Bytes file = writeJpeg(kWidth, kHeight, {}, light);
    for (std::size_t at = support::findMarker(file, 0xDB); at < file.size();
         at = support::findMarker(file, 0xDB, at)) {
        file[at + 1] = 0xEC;
    }
    JpegPicture picture(file);
    EXPECT_THROW(readRows(picture, kWidth, kHeight), JpegError);
}

class RandomDamage : public testing::TestWithParam<JpegKind> {};

TEST_P(RandomDamage, GivesEveryRowOrAnError) {
    const Bytes file = writeJpeg(kWidth, kHeight, GetParam(), light);
    std::mt19937 random(9);
    int shown = 0;
    for (int i = 0; i < 150; ++i) {
        Bytes damaged = file;
        for (unsigned k = 0; k <= random() % 4; ++k) {
            // Half of the damage strikes the headers.
            const std::size_t most = k % 2 == 0 ? damaged.size() : support::findMarker(file, 0xDA) + 14;
            damaged[random() % most] = static_cast<std::uint8_t>(random());
        }
        try {
            JpegPicture picture(damaged);
            if (picture.width() == kWidth && picture.height() == kHeight) {
                readRows(picture, kWidth, kHeight);
                ++shown;
            }
        } catch (const JpegError&) {
        }
    }
    EXPECT_GE(shown, 75);
}

INSTANTIATE_TEST_SUITE_P(Kinds, RandomDamage,
                         testing::Values(JpegKind{}, JpegKind{.name = "progressive", .progressive = true},
                                         JpegKind{.name = "arithmetic", .arithmetic = true},
                                         JpegKind{.name = "restarts", .restarts = 1},
                                         JpegKind{.name = "inks", .stored = JCS_YCCK, .progressive = true}),
                         [](const auto& instance) { return std::string(instance.param.name); });

/// A progressive file whose first scan stands there `times` times: each sets the same values anew.
Bytes withFirstScan(int times) {
    const Bytes file = writeJpeg(kWidth, kHeight, {.progressive = true}, light);
    const std::size_t first = support::findMarker(file, 0xDA);
    const std::size_t tables = support::findMarker(file, 0xC4, first);
    const Bytes scan(file.begin() + static_cast<std::ptrdiff_t>(first),
                     file.begin() + static_cast<std::ptrdiff_t>(tables));
    Bytes result = cut(file, first);
    for (int i = 0; i < times; ++i) {
        result.insert(result.end(), scan.begin(), scan.end());
    }
    result.insert(result.end(), file.begin() + static_cast<std::ptrdiff_t>(tables), file.end());
    return result;
}

TEST(ScanBomb, IsReadUpToALimit) {
    const Bytes whole = decoded(withFirstScan(1));
    EXPECT_TRUE(decoded(withFirstScan(100)) == whole);
    const Bytes rows = decoded(withFirstScan(JpegLibrary::mostScans(kWidth * kHeight)));
    EXPECT_FALSE(rows == whole) << "the scans behind the limit were read";
    EXPECT_EQ(rowsAboveBlack(rows), kHeight) << "those before it were not";
    EXPECT_GE(psnr(rows, whole), 15);
}

TEST(ScanBomb, LargePictureMayHaveFewerScans) {
    EXPECT_EQ(JpegLibrary::mostScans(0), 500);
    EXPECT_EQ(JpegLibrary::mostScans(8'000'000), 500);
    EXPECT_EQ(JpegLibrary::mostScans(24'000'000), 166);
    EXPECT_EQ(JpegLibrary::mostScans(500'000'000), 32);
}

}  // namespace
}  // namespace picture
