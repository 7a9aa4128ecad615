#include "show/pause_time.h"

#include "text/text_number.h"

#include <algorithm>

namespace show {

namespace {

constexpr int kMirror = 61;
constexpr std::size_t kTooLong = 3;

std::optional<int> scrollOf(double seconds) {
    const int scroll = text::wholeNumber16(kMirror - seconds);
    if (scroll < kPauseScrollMin || scroll > kPauseScrollMax) {
        return std::nullopt;
    }
    return scroll;
}

}  // namespace

PauseTextChange pauseTextChanged(std::wstring_view text) {
    if (text.size() >= kTooLong) {
        return {true, std::nullopt};
    }
    const double seconds = text::numericValue(text);
    return {false, scrollOf(std::min(seconds, static_cast<double>(kPauseSecondsMax)))};
}

std::optional<int> pauseScrollOf(std::wstring_view text) {
    return scrollOf(text::numericValue(text));
}

std::optional<int> pauseScrollOfSeconds(int seconds) {
    return scrollOf(seconds);
}

int pauseSeconds(int scroll) {
    return kMirror - scroll;
}

int pauseMillisecondsOfScroll(int scroll) {
    return pauseSeconds(scroll) * 1000;
}

std::wstring pauseTextOf(int scroll) {
    return std::to_wstring(pauseSeconds(scroll));
}

}  // namespace show
