#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace show {

/// The pause time has two views: `IntT` holds the seconds as text, `IntS` is a bar whose value runs
/// against them, value = 61 - seconds.
inline constexpr int kPauseScrollMin = 1;
inline constexpr int kPauseScrollMax = 60;
inline constexpr int kPauseScrollInitial = 56;
inline constexpr int kPauseSecondsMax = 60;

/// What a change of the text in `IntT` leads to.
struct PauseTextChange {
    bool emptiesText = false;   ///< the text is to be replaced by the empty one
    std::optional<int> scroll;  ///< the new value of `IntS`, 1 ... 60; none: the bar stays where it is
    friend bool operator==(const PauseTextChange&, const PauseTextChange&) = default;
};

/// The rule for a change of `IntT`: three and more characters empty it; the number it begins with counts
/// up to 60 seconds; a number that gives no value of the bar (0, negative, no number) is ignored.
PauseTextChange pauseTextChanged(std::wstring_view text);

/// The value of `IntS` for a pause given as text where nothing caps it (an option set, a parameter);
/// std::nullopt when 61 minus the number lies outside the bar.
std::optional<int> pauseScrollOf(std::wstring_view text);

/// The value of `IntS` for a pause in seconds; std::nullopt outside 1 ... 60.
std::optional<int> pauseScrollOfSeconds(int seconds);

int pauseSeconds(int scroll);
int pauseMillisecondsOfScroll(int scroll);

/// The text of `IntT` after a change of `IntS`.
std::wstring pauseTextOf(int scroll);

}  // namespace show
