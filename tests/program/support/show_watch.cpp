#include "program/support/show_watch.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "program/support/compare.h"
#include "program/support/screen.h"

namespace program {
namespace {

using std::chrono::duration_cast;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr DWORD kRecordInterval = 15;
constexpr int kSamplesAcross = 48;
constexpr int kSamplesDown = 24;
constexpr double kRecognised = 6.0;  // mean difference of a channel
constexpr double kSameInDb = 27.0;   // hard edges between two pixels cost some; a wrong place costs far more

int usedHeight(int height) {
    return height * 4 / 5;
}

/// Mean difference of the channels at a grid of places.
double sampledDifference(const picture::Pixels& a, const picture::Pixels& b) {
    int sum = 0;
    for (int j = 0; j < kSamplesDown; ++j) {
        const int y = (2 * j + 1) * usedHeight(a.height) / (2 * kSamplesDown);
        for (int i = 0; i < kSamplesAcross; ++i) {
            const int x = (2 * i + 1) * a.width / (2 * kSamplesAcross);
            for (int shift = 0; shift < 24; shift += 8) {
                sum += std::abs(static_cast<int>((a.row(y)[x] >> shift) & 0xFF) -
                                static_cast<int>((b.row(y)[x] >> shift) & 0xFF));
            }
        }
    }
    return sum / (3.0 * kSamplesAcross * kSamplesDown);
}

picture::Pixels upperPart(const picture::Pixels& screen) {
    return cut(screen, {0, 0, screen.width, usedHeight(screen.height)});
}

}  // namespace

ShowWatch::ShowWatch(const std::vector<TestPicture>& pictures) {
    const SIZE size = screenSize();
    for (const TestPicture& picture : pictures) {
        known_.push_back({picture, drawFitted(picture, size.cx, size.cy)});
    }
}

int ShowWatch::now() const {
    return recognise(captureScreen());
}

int ShowWatch::recognise(const picture::Pixels& screen) const {
    for (const Known& known : known_) {
        if (sampledDifference(screen, known.expected) < kRecognised) {
            return known.picture.number;
        }
    }
    return isBlack(upperPart(screen)) ? kBlack : kOther;
}

testing::AssertionResult ShowWatch::comes(int number, milliseconds timeout) const {
    int last = kOther;
    auto result = waitFor([&] { return (last = now()) == number; }, timeout,
                          "picture " + std::to_string(number) + " comes");
    return result ? result : result << ", the screen shows " << last;
}

testing::AssertionResult ShowWatch::goes(int number, milliseconds timeout) const {
    return waitFor([&] { return now() != number; }, timeout, "picture " + std::to_string(number) + " goes");
}

std::vector<ShowWatch::Shown> ShowWatch::record(const std::function<bool(int number)>& done,
                                                milliseconds timeout) const {
    std::vector<Shown> record;
    const auto start = steady_clock::now();
    while (steady_clock::now() - start < timeout) {
        const int number = now();
        const auto time = steady_clock::now();
        if (record.empty() || record.back().number != number) {
            record.push_back({number, time, milliseconds(0)});
        }
        record.back().seen = duration_cast<milliseconds>(time - record.back().since);
        if (done(number)) {
            break;
        }
        Sleep(kRecordInterval);
    }
    return record;
}

testing::AssertionResult ShowWatch::showsExactly(int number) const {
    const auto known = std::find_if(known_.begin(), known_.end(),
                                    [=](const Known& k) { return k.picture.number == number; });
    if (known == known_.end()) {
        return testing::AssertionFailure() << "picture " << number << " is not watched";
    }
    const double ratio = psnr(upperPart(captureScreen()), upperPart(known->expected));
    return ratio >= kSameInDb
               ? testing::AssertionSuccess()
               : testing::AssertionFailure() << "picture " << number << ": only " << ratio << " dB";
}

std::vector<int> numbers(const std::vector<ShowWatch::Shown>& record) {
    std::vector<int> result;
    result.reserve(record.size());
    for (const auto& shown : record) {
        result.push_back(shown.number);
    }
    return result;
}

}  // namespace program
