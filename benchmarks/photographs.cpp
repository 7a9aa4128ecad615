#include "photographs.h"

#include <windows.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "bench_main.h"
#include "platform/error.h"
#include "support/picture_writer.h"

namespace bench {

namespace {

constexpr int kMarkedMegapixels = 24;
constexpr int kMarkWidth = 750;

struct Size {
    int width = 0;
    int height = 0;
};

Size sizeOf(int megapixels) {
    const int width = static_cast<int>(std::lround(std::sqrt(megapixels * 1.5e6) / 10)) * 10;
    return {width, static_cast<int>(std::lround(megapixels * 1e6 / width))};
}

/// What is on a photograph.
struct Content {
    /// A mark of a colour at the left edge, in pixels; 0 for none.
    int markWidth = 0;
    std::uint32_t mark = 0;
    /// How far the grain goes up and down, as a power of two.
    int grainBits = 3;
};

void writePhotograph(const std::wstring& path, Size size, const Content& content) {
    std::uint32_t seed = 1;
    support::writePicture(
        path, support::PictureKind::Jpeg, size.width, size.height,
        [&](int x, int y) {
            if (x < content.markWidth) {
                return content.mark;
            }
            // Soft slopes with the grain of a sensor over them.
            seed = seed * 1664525U + 1013904223U;
            const int grain = static_cast<int>(seed >> (31 - content.grainBits)) - (1 << content.grainBits);
            const int slope = (x * 160 / size.width + (y * 3 / 64 ^ x / 64) % 48);
            const auto level = static_cast<std::uint32_t>(std::clamp(slope + grain + 16, 0, 255));
            return level << 16 | (level * 7 / 8) << 8 | (255 - level);
        },
        0.9F);
}

/// The first of each colour is written, the others are links to them.
void writeMarkedFolder(const std::wstring& folder, int count, Size size, Content content) {
    std::filesystem::create_directories(folder);
    const auto path = [&folder](int i) { return folder + L"\\" + std::to_wstring(10'000 + i) + L".jpg"; };
    for (int i = 0; i < count; ++i) {
        if (i < kMarkCount) {
            content.mark = kMarks[i];
            writePhotograph(path(i), size, content);
        } else if (!CreateHardLinkW(path(i).c_str(), path(i % kMarkCount).c_str(), nullptr)) {
            throw platform::Error("CreateHardLinkW", GetLastError());
        }
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
        writeMarkedFolder(folder, count, sizeOf(kMarkedMegapixels), {.markWidth = kMarkWidth});
    }
    return folder;
}

void writePhotographsForPeers(const std::wstring& folder) {
    constexpr int kLarge = 100;
    constexpr Size kSmall = {800, 600};
    constexpr int kGrainBits = 6;
    writeMarkedFolder(folder + L"\\large", kLarge, sizeOf(kMarkedMegapixels),
                      {.markWidth = kMarkWidth, .grainBits = kGrainBits});
    writeMarkedFolder(folder + L"\\small", kMarkCount, kSmall,
                      {.markWidth = kSmall.width / 2, .grainBits = kGrainBits});
}

}  // namespace bench
