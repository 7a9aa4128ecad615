// The program itself, seen from outside: how soon it shows something and how much memory it takes.

#include <windows.h>

#include <algorithm>

#include "bench_main.h"
#include "photographs.h"
#include "run_program.h"

namespace bench {

namespace {

constexpr double kMegabyte = 1e6;

/// In the mark at the pictures' left edge, which the set-up window never reaches.
POINT markPlace() {
    return {GetSystemMetrics(SM_CXSCREEN) / 8, GetSystemMetrics(SM_CYSCREEN) / 2};
}

double emptyWindowShown() {
    return milliseconds([] {
        const support::ChildProcess program(emptyWindowExe(), L"");
        waitForColour(program, markPlace(), kMarks[0]);
    });
}

double firstPictureShown() {
    const std::wstring folder = markedFolder(kMarkCount);
    return milliseconds([&] {
        const support::ChildProcess program(panorellExe(), folder + L" P=60 M=0 R=1");
        waitForColour(program, markPlace(), kMarks[0]);
    });
}

struct ShowMemory {
    double peakShort = 0;
    double peakLong = 0;
    double growth = 0;
};

/// A show whose pictures follow each other as fast as they come.
ShowMemory measureShow() {
    constexpr int kShort = 100;
    constexpr int kLong = 500;
    const support::ChildProcess program(panorellExe(), markedFolder(kLong) + L" P=60 E=1 M=0 R=1");
    waitForColour(program, markPlace(), kMarks[0]);
    // Plain cuts: with the effects the pictures would take twenty minutes.
    PostMessageW(program.window(L"Form1"), WM_CHAR, L'a', 1);
    ShowMemory memory;
    double early = 0;
    for (int i = 1; i < kLong; ++i) {
        PostMessageW(program.window(L"Form1"), WM_KEYDOWN, VK_RIGHT, 1);
        waitForColour(program, markPlace(), kMarks[i % kMarkCount]);
        const auto now = static_cast<double>(program.memory().now);
        if (i == kShort - 1) {
            memory.peakShort = static_cast<double>(program.memory().peak) / kMegabyte;
        }
        // The highest of a dozen pictures, since a picture in the making counts or not by chance.
        if (i >= kShort - 12 && i < kShort) {
            early = std::max(early, now);
        } else if (i >= kLong - 12) {
            memory.growth = std::max(memory.growth, now);
        }
    }
    memory.growth = (memory.growth - early) / kMegabyte;
    memory.peakLong = static_cast<double>(program.memory().peak) / kMegabyte;
    return memory;
}

const ShowMemory& showMemory() {
    static const ShowMemory memory = measureShow();
    return memory;
}

const Figure kEmptyWindow("start_empty_window", "ms", 7, emptyWindowShown);
const Figure kFirstPicture("start_to_first_picture_24_megapixels", "ms", 7, firstPictureShown);
const Figure kPeakShort("memory_peak_100_pictures", "MB", 1, [] { return showMemory().peakShort; });
const Figure kPeakLong("memory_peak_500_pictures", "MB", 1, [] { return showMemory().peakLong; });
const Figure kGrowth("memory_growth_from_100_to_500_pictures", "MB", 1, [] { return showMemory().growth; });

}  // namespace

}  // namespace bench
