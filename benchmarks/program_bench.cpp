// The program itself, seen from outside: how soon it shows something and how much memory it takes.

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <thread>

#include "bench_main.h"
#include "photographs.h"
#include "run_program.h"
#include "ui/control_ids.h"

namespace bench {

namespace {

constexpr double kMegabyte = 1e6;

/// In the mark at the pictures' left edge, which the set-up window never reaches.
POINT markPlace() {
    return {GetSystemMetrics(SM_CXSCREEN) / 8, GetSystemMetrics(SM_CYSCREEN) / 2};
}

/// In the mark of a small picture that fills the screen.
POINT smallMarkPlace() {
    return {GetSystemMetrics(SM_CXSCREEN) * 3 / 8, GetSystemMetrics(SM_CYSCREEN) / 2};
}

/// The set-up window, as soon as it is seen.
HWND waitForSetUp(const support::ChildProcess& program) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    for (;;) {
        if (const HWND form = program.window(L"Form1")) {
            return form;
        }
        if (std::chrono::steady_clock::now() > deadline) {
            throw std::runtime_error("the set-up window does not come");
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

/// Waits until the preview in the set-up has the mark of the first picture at its left edge.
void waitForPreview(const support::ChildProcess& program, HWND form) {
    RECT box{};
    GetWindowRect(GetDlgItem(form, ui::id::kPic2), &box);
    const POINT mark{box.left + (box.right - box.left) / 16, (box.top + box.bottom) / 2};
    waitForColour(program, mark, kMarks[0]);
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

double smallPictureShown() {
    const std::wstring folder = smallFolder();
    return milliseconds([&] {
        const support::ChildProcess program(panorellExe(), folder + L" P=60 M=0 R=1");
        waitForColour(program, smallMarkPlace(), kMarks[0]);
    });
}

double setUpShown() {
    const std::wstring folder = smallFolder();
    return milliseconds([&] {
        const support::ChildProcess program(panorellExe(), folder + L" P=60 M=0");
        waitForPreview(program, waitForSetUp(program));
    });
}

/// From the press of `Run` in a set-up that has been looked at for a while.
double runToPicture() {
    const support::ChildProcess program(panorellExe(), markedFolder(kMarkCount) + L" P=60 M=0");
    const HWND form = waitForSetUp(program);
    waitForPreview(program, form);
    std::this_thread::sleep_for(std::chrono::seconds(1));
    return milliseconds([&] {
        PostMessageW(GetDlgItem(form, ui::id::kRun), BM_CLICK, 0, 0);
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
const Figure kSmallPicture("start_to_first_picture_800x600", "ms", 9, smallPictureShown);
const Figure kSetUp("start_to_setup_with_preview_800x600", "ms", 9, setUpShown);
const Figure kRunToPicture("run_to_picture_24_megapixels", "ms", 5, runToPicture);
const Figure kPeakShort("memory_peak_100_pictures", "MB", 1, [] { return showMemory().peakShort; });
const Figure kPeakLong("memory_peak_500_pictures", "MB", 1, [] { return showMemory().peakLong; });
const Figure kGrowth("memory_growth_from_100_to_500_pictures", "MB", 1, [] { return showMemory().growth; });

}  // namespace

}  // namespace bench
