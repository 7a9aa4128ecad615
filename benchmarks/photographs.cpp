#include "photographs.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <vector>

#include "bench_main.h"
#include "overview/bitmap_file.h"
#include "overview/store_rule.h"
#include "support/jpeg_file.h"
#include "support/picture_writer.h"

namespace bench {

namespace {

constexpr int kMarkedMegapixels = 24;
constexpr int kMarkWidth = 750;

struct Size {
    int width = 0;
    int height = 0;
};

constexpr Size kSmall = {800, 600};

Size sizeOf(int megapixels) {
    const int width = static_cast<int>(std::lround(std::sqrt(megapixels * 1.5e6) / 10)) * 10;
    return {width, static_cast<int>(std::lround(megapixels * 1e6 / width))};
}

/// A mark of a colour at the left edge of a photograph, in pixels; 0 for none.
struct Mark {
    int width = 0;
    std::uint32_t colour = 0;
};

/// The grain of a sensor: the same number for the same pixel, -2^kGrainBits to 2^kGrainBits - 1.
int grain(int x, int y) {
    constexpr int kGrainBits = 4;
    std::uint32_t bits =
        static_cast<std::uint32_t>(x) * 2654435761U ^ static_cast<std::uint32_t>(y) * 2315413587U;
    for (const std::uint32_t factor : {2246822519U, 3266489917U}) {
        bits = (bits ^ bits >> 15) * factor;
    }
    return static_cast<int>((bits ^ bits >> 16) >> (31 - kGrainBits)) - (1 << kGrainBits);
}

void writePhotograph(const std::wstring& path, Size size, const Mark& mark) {
    const auto sample = [&](int x, int y, int channel) {
        if (x < mark.width) {
            return static_cast<int>(mark.colour >> (16 - 8 * channel) & 0xFF);
        }
        // Soft slopes with the grain over them.
        const int slope = x * 160 / size.width + (y * 3 / 64 ^ x / 64) % 48;
        const int level = std::clamp(slope + grain(x, y) + 16, 0, 255);
        return channel == 0 ? level : channel == 1 ? level * 7 / 8 : 255 - level;
    };
    support::writeBytes(path, support::writeJpeg(size.width, size.height, {.quality = 92}, sample));
}

/// Fills a folder with files 10000, 10001 ...: `write` makes the first kMarkCount ones, the others are links
/// to them.
void writeLinked(const std::wstring& folder, int count, const wchar_t* extension,
                 const std::function<void(const std::wstring& path, int number)>& write) {
    std::filesystem::create_directories(folder);
    const auto path = [&](int i) { return folder + L"\\" + std::to_wstring(10'000 + i) + extension; };
    for (int i = 0; i < count; ++i) {
        if (i < kMarkCount) {
            write(path(i), i);
        } else {
            std::filesystem::create_hard_link(path(i % kMarkCount), path(i));
        }
    }
}

void writeMarkedFolder(const std::wstring& folder, int count, Size size, int markWidth) {
    writeLinked(folder, count, L".jpg", [&](const std::wstring& path, int number) {
        writePhotograph(path, size, {markWidth, kMarks[number]});
    });
}

void writeCameraFolder(const std::wstring& folder, const CameraFolder& kind) {
    constexpr Size kPicture = {4000, 3000};
    constexpr Size kThumbnail = {160, 120};
    writeLinked(folder, kind.count, L".jpg", [&](const std::wstring& path, int number) {
        std::vector<std::uint8_t> thumbnail;
        if (kind.thumbnails) {
            writePhotograph(path, kThumbnail, {kThumbnail.width / 8, kMarks[number]});
            thumbnail = support::readBytes(path);
        }
        writePhotograph(path, kPicture, {kPicture.width / 8, kMarks[number]});
        support::insertSegment(path, support::cameraSegment(1, thumbnail));
    });
    if (kind.store) {
        const std::wstring store = folder + L"\\" + overview::kStoreFolder;
        writeLinked(store, kind.count, L".bmp", [&](const std::wstring& path, int number) {
            picture::Pixels pixels(kThumbnail.width, kThumbnail.height);
            std::fill(pixels.data.begin(), pixels.data.end(), kMarks[number]);
            support::writeBytes(path, overview::encodeBitmap(pixels));
        });
    }
}

}  // namespace

std::wstring photograph(int megapixels) {
    const std::wstring path = temporaryFolder() + L"\\" + std::to_wstring(megapixels) + L".jpg";
    if (!std::filesystem::exists(path)) {
        writePhotograph(path, sizeOf(megapixels), {});
    }
    return path;
}

std::wstring markedFolder(int count) {
    const std::wstring folder = temporaryFolder() + L"\\marked" + std::to_wstring(count);
    if (!std::filesystem::exists(folder)) {
        writeMarkedFolder(folder, count, sizeOf(kMarkedMegapixels), kMarkWidth);
    }
    return folder;
}

std::wstring smallFolder() {
    const std::wstring folder = temporaryFolder() + L"\\small";
    if (!std::filesystem::exists(folder)) {
        writeMarkedFolder(folder, kMarkCount, kSmall, kSmall.width / 2);
    }
    return folder;
}

std::wstring cameraFolder(const CameraFolder& kind) {
    const std::wstring folder = temporaryFolder() + L"\\camera" + std::to_wstring(kind.count) +
                                (kind.thumbnails ? L"t" : L"") + (kind.store ? L"s" : L"");
    if (!std::filesystem::exists(folder)) {
        writeCameraFolder(folder, kind);
    }
    return folder;
}

void writePhotographsForPeers(const std::wstring& folder) {
    constexpr int kLarge = 200;
    writeMarkedFolder(folder + L"\\large", kLarge, sizeOf(kMarkedMegapixels), kMarkWidth);
    writeMarkedFolder(folder + L"\\small", kMarkCount, kSmall, kSmall.width / 2);
}

}  // namespace bench
