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

void writePhotograph(const std::wstring& path, int megapixels, int markWidth, std::uint32_t mark) {
    const int width = static_cast<int>(std::lround(std::sqrt(megapixels * 1.5e6) / 10)) * 10;
    const int height = static_cast<int>(std::lround(megapixels * 1e6 / width));
    std::uint32_t seed = 1;
    support::writePicture(
        path, support::PictureKind::Jpeg, width, height,
        [&](int x, int y) {
            if (x < markWidth) {
                return mark;
            }
            // Soft slopes with the grain of a sensor over them.
            seed = seed * 1664525U + 1013904223U;
            const int grain = static_cast<int>(seed >> 28) - 8;
            const int slope = (x * 160 / width + (y * 3 / 64 ^ x / 64) % 48);
            const auto level = static_cast<std::uint32_t>(std::clamp(slope + grain + 16, 0, 255));
            return level << 16 | (level * 7 / 8) << 8 | (255 - level);
        },
        0.9F);
}

}  // namespace

std::wstring photograph(int megapixels) {
    const std::wstring path = temporaryFolder() + L"\\" + std::to_wstring(megapixels) + L".jpg";
    if (!std::filesystem::exists(path)) {
        writePhotograph(path, megapixels, 0, 0);
    }
    return path;
}

std::wstring markedFolder(int count) {
    constexpr int kMegapixels = 24;
    constexpr int kMarkWidth = 750;
    const std::wstring folder = temporaryFolder() + L"\\marked" + std::to_wstring(count);
    if (std::filesystem::exists(folder)) {
        return folder;
    }
    std::filesystem::create_directory(folder);
    for (int i = 0; i < count; ++i) {
        const int mark = i % kMarkCount;
        const std::wstring original = temporaryFolder() + L"\\mark" + std::to_wstring(mark) + L".jpg";
        if (!std::filesystem::exists(original)) {
            writePhotograph(original, kMegapixels, kMarkWidth, kMarks[mark]);
        }
        const std::wstring link = folder + L"\\" + std::to_wstring(10'000 + i) + L".jpg";
        if (!CreateHardLinkW(link.c_str(), original.c_str(), nullptr)) {
            throw platform::Error("CreateHardLinkW", GetLastError());
        }
    }
    return folder;
}

}  // namespace bench
