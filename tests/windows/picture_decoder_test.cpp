#include "picture/picture_decoder.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "picture/jpeg_header.h"
#include "platform/com.h"
#include "platform/error.h"
#include "support/picture_writer.h"

namespace picture {
namespace {

using support::PictureKind;

int channel(std::uint32_t pixel, int index) {
    return static_cast<int>(pixel >> (8 * index) & 0xFF);
}

int distance(std::uint32_t a, std::uint32_t b) {
    int most = 0;
    for (int i = 0; i < 3; ++i) {
        most = std::max(most, std::abs(channel(a, i) - channel(b, i)));
    }
    return most;
}

/// Four fields of different colour: red, green over blue, grey.
std::uint32_t fieldColour(bool right, bool lower) {
    return lower ? (right ? 0x909090U : 0x2030C0U) : (right ? 0x20A030U : 0xC02820U);
}

support::PictureRule fields(int width, int height) {
    return [=](int x, int y) { return fieldColour(2 * x >= width, 2 * y >= height); };
}

Placement filling(int width, int height) {
    return {0, 0, width, height};
}

class PictureDecoder : public testing::Test {
  protected:
    std::wstring makeFields(PictureKind kind, int width, int height, const wchar_t* name = L"a.jpg") const {
        const std::wstring path = folder_.file(name);
        support::writePicture(path, kind, width, height, fields(width, height));
        return path;
    }

    support::TemporaryFolder folder_;
    platform::ComApartment apartment_;
};

/// The colours in the middle of the four fields: above left, above right, below left, below right.
std::vector<std::uint32_t> fieldsOf(const Pixels& pixels, const Placement& place) {
    std::vector<std::uint32_t> colours;
    for (const int y : {1, 3}) {
        for (const int x : {1, 3}) {
            colours.push_back(pixels.row(place.top + place.height * y / 4)[place.left + place.width * x / 4]);
        }
    }
    return colours;
}

void expectFields(const std::vector<std::uint32_t>& found, const std::vector<std::uint32_t>& expected,
                  int tolerance = 8) {
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_LE(distance(found[i], expected[i]), tolerance)
            << "field " << i << std::hex << ": " << found[i] << " instead of " << expected[i];
    }
}

const std::vector<std::uint32_t> kUprightFields = {fieldColour(false, false), fieldColour(true, false),
                                                   fieldColour(false, true), fieldColour(true, true)};

TEST_F(PictureDecoder, LaysPictureOnABlackSurface) {
    const std::wstring path = makeFields(PictureKind::Jpeg, 320, 200);
    int askedWidth = 0;
    int askedHeight = 0;
    const DecodedPicture decoded = decodeOntoSurface(path, 200, 150, [&](int width, int height) {
        askedWidth = width;
        askedHeight = height;
        return Placement{20, 25, 160, 100};
    });
    EXPECT_EQ(askedWidth, 320);
    EXPECT_EQ(askedHeight, 200);
    EXPECT_EQ(decoded.nativeWidth, 320);
    EXPECT_EQ(decoded.nativeHeight, 200);
    EXPECT_EQ(decoded.placement, (Placement{20, 25, 160, 100}));
    ASSERT_EQ(decoded.pixels.width, 200);
    ASSERT_EQ(decoded.pixels.height, 150);
    expectFields(fieldsOf(decoded.pixels, decoded.placement), kUprightFields);
    for (int y = 0; y < 150; ++y) {
        for (int x = 0; x < 200; ++x) {
            const bool inside = x >= 20 && x < 180 && y >= 25 && y < 125;
            ASSERT_EQ(decoded.pixels.row(y)[x] != 0, inside) << x << "," << y;
        }
    }
}

TEST_F(PictureDecoder, OverhangingPictureIsCutOff) {
    const std::wstring path = makeFields(PictureKind::Png, 300, 200, L"a.png");
    const Placement place{0, -20, 120, 80};
    const DecodedPicture decoded = decodeOntoSurface(path, 120, 40, [&](int, int) { return place; });
    ASSERT_EQ(decoded.pixels.height, 40);
    EXPECT_EQ(decoded.pixels.row(0)[10], fieldColour(false, false));
    EXPECT_EQ(decoded.pixels.row(19)[110], fieldColour(true, false));
    EXPECT_EQ(decoded.pixels.row(20)[10], fieldColour(false, true));
    EXPECT_EQ(decoded.pixels.row(39)[110], fieldColour(true, true));
}

struct Kind {
    const char* name;
    PictureKind kind;
    const wchar_t* file;
};

class EveryKind : public PictureDecoder, public testing::WithParamInterface<Kind> {};

TEST_P(EveryKind, KeepsItsColours) {
    const std::wstring path = makeFields(GetParam().kind, 160, 120, GetParam().file);
    const DecodedPicture decoded = decodeOntoSurface(path, 80, 60, [](int, int) { return filling(80, 60); });
    std::vector<std::uint32_t> expected = kUprightFields;
    if (GetParam().kind == PictureKind::GreyJpeg) {
        std::transform(expected.begin(), expected.end(), expected.begin(), [](std::uint32_t colour) {
            return static_cast<std::uint32_t>(channel(colour, 1)) * 0x010101;
        });
    }
    expectFields(fieldsOf(decoded.pixels, decoded.placement), expected);
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryKind,
                         testing::Values(Kind{"jpeg", PictureKind::Jpeg, L"a.jpg"},
                                         Kind{"grey_jpeg", PictureKind::GreyJpeg, L"a.jpg"},
                                         Kind{"png_named_jpg", PictureKind::Png, L"a.jpg"},
                                         Kind{"bmp", PictureKind::Bmp, L"a.bmp"}),
                         [](const auto& instance) { return std::string(instance.param.name); });

struct Fixture {
    const char* name;
    const wchar_t* file;
    std::uint32_t left, right;
};

class CommittedFile : public testing::TestWithParam<Fixture> {};

TEST_P(CommittedFile, KeepsItsColours) {
    const std::wstring path = (std::filesystem::path(PANORELL_TEST_DATA) / GetParam().file).wstring();
    const DecodedPicture decoded = decodeScaledToFit(path, 1000, 1000);
    ASSERT_EQ(decoded.pixels.width, 64);
    ASSERT_EQ(decoded.pixels.height, 48);
    EXPECT_LE(distance(decoded.pixels.row(24)[16], GetParam().left), 8)
        << std::hex << decoded.pixels.row(24)[16];
    EXPECT_LE(distance(decoded.pixels.row(24)[48], GetParam().right), 8)
        << std::hex << decoded.pixels.row(24)[48];
}

INSTANTIATE_TEST_SUITE_P(Files, CommittedFile,
                         testing::Values(Fixture{"progressive", L"progressive.jpg", 0xC82828, 0x1E3CB4},
                                         Fixture{"cmyk", L"cmyk.jpg", 0xC82828, 0x1E3CB4},
                                         Fixture{"grey", L"grey.jpg", 0x4A4A4A, 0x3E3E3E}),
                         [](const auto& instance) { return std::string(instance.param.name); });

struct Turned {
    unsigned value;
    std::vector<int> fields;  ///< which stored field is seen above left, above right, below left, below right
};

class EveryOrientationValue : public PictureDecoder, public testing::WithParamInterface<Turned> {};

TEST_P(EveryOrientationValue, ShowsThePictureUpright) {
    const std::wstring path = makeFields(PictureKind::Jpeg, 240, 160);
    support::insertSegment(path, support::cameraSegment(GetParam().value));
    const bool turned = GetParam().value >= 5 && GetParam().value <= 8;
    const int width = turned ? 40 : 60;
    const int height = turned ? 60 : 40;
    // Half of the picture overhangs, so that the turned cut is seen as well.
    const Placement place{10, -height / 2, width, height};
    const DecodedPicture cut = decodeOntoSurface(path, 80, 50, [&](int pictureWidth, int pictureHeight) {
        EXPECT_EQ(pictureWidth, turned ? 160 : 240);
        EXPECT_EQ(pictureHeight, turned ? 240 : 160);
        return place;
    });
    const DecodedPicture whole = decodeScaledToFit(path, width, height);
    EXPECT_EQ(whole.nativeWidth, turned ? 160 : 240);
    ASSERT_EQ(whole.pixels.width, width);
    ASSERT_EQ(whole.pixels.height, height);
    std::vector<std::uint32_t> expected;
    for (const int field : GetParam().fields) {
        expected.push_back(kUprightFields[static_cast<std::size_t>(field)]);
    }
    expectFields(fieldsOf(whole.pixels, whole.placement), expected);
    for (int y = 0; y < height / 2; ++y) {
        for (int x = 0; x < width; ++x) {
            ASSERT_EQ(cut.pixels.row(y)[10 + x], whole.pixels.row(y + height / 2)[x]) << x << "," << y;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Values, EveryOrientationValue,
                         testing::Values(Turned{1, {0, 1, 2, 3}}, Turned{2, {1, 0, 3, 2}},
                                         Turned{3, {3, 2, 1, 0}}, Turned{4, {2, 3, 0, 1}},
                                         Turned{5, {0, 2, 1, 3}}, Turned{6, {2, 0, 3, 1}},
                                         Turned{7, {3, 1, 2, 0}}, Turned{8, {1, 3, 0, 2}},
                                         Turned{0, {0, 1, 2, 3}}, Turned{9, {0, 1, 2, 3}}),
                         [](const auto& instance) {
                             return "value_" + std::to_string(instance.param.value);
                         });

TEST_F(PictureDecoder, WidePictureIsDecodedWhole) {
    const std::wstring path = makeFields(PictureKind::Jpeg, 16000, 400);
    const DecodedPicture decoded = decodeScaledToFit(path, 1600, 1000);
    EXPECT_EQ(decoded.nativeWidth, 16000);
    ASSERT_EQ(decoded.pixels.width, 1600);
    ASSERT_EQ(decoded.pixels.height, 40);
    expectFields(fieldsOf(decoded.pixels, decoded.placement), kUprightFields);
}

TEST_F(PictureDecoder, NeverEnlargesToFit) {
    const std::wstring path = makeFields(PictureKind::Png, 30, 20);
    const DecodedPicture decoded = decodeScaledToFit(path, 500, 500);
    EXPECT_EQ(decoded.pixels.width, 30);
    EXPECT_EQ(decoded.pixels.height, 20);
    EXPECT_EQ(decoded.pixels.row(0)[0], fieldColour(false, false));
}

TEST_F(PictureDecoder, VeryNarrowPictureKeepsOnePixel) {
    const std::wstring path = makeFields(PictureKind::Png, 4000, 2);
    const DecodedPicture decoded = decodeScaledToFit(path, 100, 100);
    EXPECT_EQ(decoded.pixels.width, 100);
    EXPECT_EQ(decoded.pixels.height, 1);
}

TEST_F(PictureDecoder, TruncatedPictureShowsWhatIsThere) {
    const std::wstring path = folder_.file(L"a.jpg");
    support::writePicture(path, PictureKind::Jpeg, 400, 400, [](int x, int y) {
        return static_cast<std::uint32_t>((x * 7 + y * 13) % 256 / 2 + 100) * 0x010001;
    });
    const DecodedPicture whole = decodeScaledToFit(path, 400, 400);
    auto bytes = support::readBytes(path);
    bytes.resize(bytes.size() / 2);
    support::writeBytes(path, bytes);
    const DecodedPicture half = decodeScaledToFit(path, 400, 400);
    EXPECT_EQ(half.nativeHeight, 400);
    for (int y = 0; y < 150; ++y) {
        for (int x = 0; x < 400; ++x) {
            ASSERT_EQ(half.pixels.row(y)[x], whole.pixels.row(y)[x]) << x << "," << y;
        }
    }
    for (int x = 0; x < 400; ++x) {
        ASSERT_EQ(half.pixels.row(390)[x], 0U) << "what is not there is black";
    }
}

TEST_F(PictureDecoder, FileWithoutPictureDataIsAnError) {
    const std::wstring path = makeFields(PictureKind::Jpeg, 64, 64);
    const auto bytes = support::readBytes(path);
    const auto header = readJpegHeader(bytes);
    ASSERT_TRUE(header);
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{1}, std::size_t{2}, std::size_t{20}, std::size_t{100},
          bytes.size() - header->dataLength - 1, bytes.size() - header->dataLength}) {
        support::writeBytes(path, {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)});
        EXPECT_THROW(decodeScaledToFit(path, 100, 100), platform::Error) << length << " bytes";
    }
}

/// What the program's own decoder does not know is left to Windows, whose failure is an error like any other.
TEST_F(PictureDecoder, JpegOfAKindThatNobodyDecodesIsAnError) {
    const std::wstring path = makeFields(PictureKind::Jpeg, 64, 64);
    auto bytes = support::readBytes(path);
    for (std::size_t i = 2; i + 4 < bytes.size(); ++i) {
        if (bytes[i] == 0xFF && bytes[i + 1] == 0xC0) {
            bytes[i + 4] = 12;  // bits of a sample
        }
    }
    support::writeBytes(path, bytes);
    EXPECT_THROW(decodeScaledToFit(path, 100, 100), platform::Error);
    EXPECT_EQ(decodeBudget().decodesRunning(), 0);
}

TEST_F(PictureDecoder, LargePictureKeepsItsFieldsWhenReduced) {
    const std::wstring path = makeFields(PictureKind::Jpeg, 4000, 2400);
    support::insertSegment(path, support::cameraSegment(6));
    const DecodedPicture decoded = decodeScaledToFit(path, 240, 400);
    EXPECT_EQ(decoded.nativeWidth, 2400);
    EXPECT_EQ(decoded.nativeHeight, 4000);
    ASSERT_EQ(decoded.pixels.width, 240);
    ASSERT_EQ(decoded.pixels.height, 400);
    expectFields(fieldsOf(decoded.pixels, decoded.placement),
                 {kUprightFields[2], kUprightFields[0], kUprightFields[3], kUprightFields[1]});
    // The borders between the fields have not moved.
    EXPECT_LE(distance(decoded.pixels.row(198)[60], kUprightFields[2]), 8);
    EXPECT_LE(distance(decoded.pixels.row(201)[60], kUprightFields[3]), 8);
    EXPECT_LE(distance(decoded.pixels.row(100)[118], kUprightFields[2]), 8);
    EXPECT_LE(distance(decoded.pixels.row(100)[121], kUprightFields[0]), 8);
}

TEST_F(PictureDecoder, OtherContentIsAnError) {
    const std::wstring path = folder_.file(L"a.jpg");
    support::writeBytes(path, std::vector<std::uint8_t>(5000, 'x'));
    EXPECT_THROW(decodeScaledToFit(path, 100, 100), platform::Error);
    EXPECT_THROW(decodeScaledToFit(folder_.file(L"missing.jpg"), 100, 100), platform::Error);
    EXPECT_EQ(decodeBudget().decodesRunning(), 0);
    EXPECT_EQ(decodeBudget().bytesInUse(), 0U);
}

TEST_F(PictureDecoder, FileIsClosedAfterwards) {
    const std::wstring path = makeFields(PictureKind::Jpeg, 64, 64);
    const DecodedPicture decoded = decodeScaledToFit(path, 10, 10);
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    EXPECT_FALSE(decoded.pixels.empty());
}

/// A picture in one colour with a thumbnail of fields, so that it is seen which of them was decoded.
class EmbeddedThumbnail : public PictureDecoder {
  protected:
    std::wstring makePicture(unsigned orientation, int thumbnailWidth, int thumbnailHeight) const {
        const std::wstring small =
            makeFields(PictureKind::Jpeg, thumbnailWidth, thumbnailHeight, L"small.jpg");
        const std::wstring path = folder_.file(L"large.jpg");
        support::writePicture(path, PictureKind::Jpeg, 800, 600, [](int, int) { return 0x777777U; });
        support::insertSegment(path, support::cameraSegment(orientation, support::readBytes(small)));
        return path;
    }

    static std::optional<DecodedPicture> decode(const std::wstring& path, int width, int height) {
        return decodeEmbeddedThumbnail(path, 100, 100, [=](int, int) {
            return Placement{5, 10, width, height};
        });
    }
};

TEST_F(EmbeddedThumbnail, StandsForThePicture) {
    const auto decoded = decode(makePicture(1, 160, 120), 80, 60);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->nativeWidth, 800);
    EXPECT_EQ(decoded->nativeHeight, 600);
    EXPECT_EQ(decoded->placement, (Placement{5, 10, 80, 60}));
    EXPECT_EQ(decoded->pixels.width, 100);
    expectFields(fieldsOf(decoded->pixels, decoded->placement), kUprightFields, 12);
}

TEST_F(EmbeddedThumbnail, IsTurnedWithThePicture) {
    const auto decoded = decode(makePicture(6, 160, 120), 60, 80);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->nativeWidth, 600);
    EXPECT_EQ(decoded->nativeHeight, 800);
    expectFields(fieldsOf(decoded->pixels, decoded->placement),
                 {kUprightFields[2], kUprightFields[0], kUprightFields[3], kUprightFields[1]}, 12);
}

TEST_F(EmbeddedThumbnail, IsNotTakenWhereItWouldShow) {
    EXPECT_TRUE(decode(makePicture(1, 80, 60), 80, 60));
    EXPECT_FALSE(decode(makePicture(1, 80, 60), 81, 60)) << "smaller than its place";
    EXPECT_FALSE(decode(makePicture(1, 160, 100), 80, 60)) << "another shape";
    EXPECT_FALSE(decode(makePicture(6, 80, 60), 80, 60)) << "smaller than its place once turned";
    EXPECT_FALSE(decode(makeFields(PictureKind::Jpeg, 160, 120), 80, 60)) << "none";
}

TEST_F(EmbeddedThumbnail, DamagedOneIsNotTaken) {
    const std::wstring path = folder_.file(L"large.jpg");
    support::writePicture(path, PictureKind::Jpeg, 800, 600, [](int, int) { return 0x777777U; });
    std::vector<std::uint8_t> thumbnail = support::readBytes(makeFields(PictureKind::Jpeg, 160, 120));
    const auto header = readJpegHeader(thumbnail);
    ASSERT_TRUE(header);
    thumbnail.resize(thumbnail.size() - header->dataLength);
    support::insertSegment(path, support::cameraSegment(1, thumbnail));
    EXPECT_FALSE(decode(path, 80, 60));
    EXPECT_THROW(decode(folder_.file(L"missing.jpg"), 80, 60), platform::Error);
}

class FineLines : public PictureDecoder, public testing::WithParamInterface<Kind> {};

TEST_P(FineLines, MatchTheExactMean) {
    constexpr int kSide = 584;
    const auto lines = [](int x, int) { return x % 5 < 2 ? 0xFFFFFFU : 0U; };
    const std::wstring path = folder_.file(GetParam().file);
    support::writePicture(path, GetParam().kind, kSide, kSide, lines);
    for (const int side : {146, 80}) {
        const DecodedPicture decoded = decodeScaledToFit(path, side, side);
        ASSERT_EQ(decoded.pixels.width, side);
        const double ratio = static_cast<double>(kSide) / side;
        double squares = 0;
        for (int x = 0; x < side; ++x) {
            double mean = 0;
            for (int i = 0; i < kSide; ++i) {
                const double overlap =
                    std::min<double>(i + 1, (x + 1) * ratio) - std::max<double>(i, x * ratio);
                mean += std::max(0.0, overlap) / ratio * channel(lines(i, 0), 0);
            }
            squares += std::pow(channel(decoded.pixels.row(side / 2)[x], 1) - mean, 2);
        }
        EXPECT_GE(10 * std::log10(255.0 * 255.0 * side / std::max(squares, 1e-9)), 35.0) << side;
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, FineLines,
                         testing::Values(Kind{"png", PictureKind::Png, L"lines.png"},
                                         Kind{"jpeg", PictureKind::Jpeg, L"lines.jpg"}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(PictureDecoder, DecodesOnSeveralThreads) {
    const std::wstring path = makeFields(PictureKind::Jpeg, 800, 600);
    std::vector<DecodedPicture> decoded(4);
    std::vector<std::thread> threads;
    for (DecodedPicture& result : decoded) {
        threads.emplace_back([&result, &path] { result = decodeScaledToFit(path, 80, 60); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const DecodedPicture& result : decoded) {
        expectFields(fieldsOf(result.pixels, result.placement), kUprightFields);
        EXPECT_EQ(result.pixels.data, decoded[0].pixels.data);
    }
}

}  // namespace
}  // namespace picture
