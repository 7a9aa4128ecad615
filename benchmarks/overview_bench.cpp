// The overview of the program itself, seen from outside: pictures of 12 megapixels from a camera.

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "bench_main.h"
#include "overview_run.h"
#include "photographs.h"
#include "picture/picture_decoder.h"
#include "show/fit_rule.h"

namespace bench {

namespace {

constexpr int kMany = 1000;
constexpr int kMost = 5000;
constexpr int kDecoded = 300;
constexpr int kRuns = 3;

double fromStore() {
    return openOverview(cameraFolder({.count = kMany, .store = true})).filledMs;
}

double fromCamera() {
    return openOverview(cameraFolder({.count = kMany, .thumbnails = true})).filledMs;
}

/// The decoder alone, over all files of a folder on all cores; ms.
double decodeAll(const std::wstring& folder, int width, int height) {
    std::vector<std::wstring> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        paths.push_back(entry.path().wstring());
    }
    const auto fit = [&](int pictureWidth, int pictureHeight) {
        const show::PixelRect place = show::fitPicture(pictureWidth, pictureHeight, width, height);
        return picture::Placement{place.left, place.top, place.width, place.height};
    };
    return milliseconds([&] {
        std::atomic<std::size_t> next{0};
        std::vector<std::jthread> threads;
        for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i) {
            threads.emplace_back([&] {
                for (std::size_t at = next++; at < paths.size(); at = next++) {
                    picture::decodeOntoSurface(paths[at], width, height, fit);
                }
            });
        }
    });
}

struct Decoded {
    OverviewRun overview;
    double bareMs = 0;
    double times = 0;
};

/// The round of a few, each with both in turns, whose relation is the middle one.
Decoded measureDecoded() {
    const std::wstring folder = cameraFolder({.count = kDecoded});
    std::vector<Decoded> rounds;
    for (int i = 0; i < kRuns; ++i) {
        Decoded round;
        round.overview = openOverview(folder);
        round.bareMs = decodeAll(folder, round.overview.boxWidth, round.overview.boxHeight);
        round.times = round.overview.filledMs / round.bareMs;
        rounds.push_back(round);
    }
    std::sort(rounds.begin(), rounds.end(),
              [](const Decoded& one, const Decoded& other) { return one.times < other.times; });
    return rounds[kRuns / 2];
}

const Decoded& decoded() {
    static const Decoded measured = measureDecoded();
    return measured;
}

const OverviewRun& most() {
    static const OverviewRun measured = openOverview(cameraFolder({.count = kMost, .store = true}));
    return measured;
}

const Figure kStore("overview_1000_from_store", "ms", kRuns, fromStore);
const Figure kCamera("overview_1000_from_camera_thumbnails", "ms", kRuns, fromCamera);
const Figure kDecodedTime("overview_300_decoded", "ms", 1, [] { return decoded().overview.filledMs; });
const Figure kBare("overview_300_decoded_by_decoder_alone", "ms", 1, [] { return decoded().bareMs; });
const Figure kTimes("overview_300_decoded_in_times_of_decoder", "x", 1, [] { return decoded().times; });
const Figure kMemory("overview_300_decoded_memory_peak", "MB", 1,
                     [] { return decoded().overview.peakMegabytes; });
const Figure kPainted("overview_5000_painted", "ms", 1, [] { return most().paintedMs; });
const Figure kFilled("overview_5000_filled", "ms", 1, [] { return most().filledMs; });
const Figure kWindows("overview_5000_windows", "windows", 1,
                      [] { return static_cast<double>(most().windows); });
const Figure kObjects("overview_5000_gdi_objects", "objects", 1,
                      [] { return static_cast<double>(most().gdiObjects); });
const Figure kMostMemory("overview_5000_memory_peak", "MB", 1, [] { return most().peakMegabytes; });

}  // namespace

}  // namespace bench
