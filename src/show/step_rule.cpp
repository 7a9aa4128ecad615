#include "show/step_rule.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace show {

namespace {

/// Lower case of the letters that a German keyboard and the western code page have.
wchar_t lowerLatin(wchar_t c) {
    const bool ascii = c >= L'A' && c <= L'Z';
    const bool accented = c >= L'\u00C0' && c <= L'\u00DE' && c != L'\u00D7';
    return ascii || accented ? static_cast<wchar_t>(c + 0x20) : c;
}

}  // namespace

Step nextStep(int pictureIndex, int count, bool loop) {
    const int next = std::max(pictureIndex + 1, 0);
    if (next < count) {
        return {next, false};
    }
    return loop && count > 0 ? Step{0, false} : Step{std::max(count, 0), true};
}

std::optional<int> backIndex(int pictureIndex) {
    return pictureIndex >= 1 ? std::optional(pictureIndex - 2) : std::nullopt;
}

std::optional<int> furtherBackIndex(int pictureIndex) {
    return pictureIndex >= 0 ? std::optional(pictureIndex - 1) : std::nullopt;
}

bool isPastEnd(int pictureIndex, int count) {
    return pictureIndex >= count;
}

int startIndex(int selected) {
    return std::max(selected, 0);
}

std::optional<int> effectOfKey(wchar_t character) {
    if (character == L'#') {
        return 0;
    }
    return character >= L'a' && character <= L'z' ? std::optional(character - L'a' + 1) : std::nullopt;
}

bool isBystanderKey(int virtualKey) {
    struct Range {
        int first;
        int last;
    };
    // Codes of the Windows keyboard.
    constexpr Range kRanges[] = {
        {0x10, 0x12},  // Shift, Ctrl, Alt
        {0x14, 0x14},  // caps lock
        {0x5B, 0x5C},  // Windows, left and right
        {0x5F, 0x5F},  // sleep
        {0x90, 0x91},  // num lock, scroll lock
        {0xA0, 0xA5},  // Shift, Ctrl, Alt, left and right
        {0xA6, 0xB7},  // browser, volume, media, mail, programs
        {0xFF, 0xFF},  // what only a notebook has, as for its brightness
    };
    return std::any_of(std::begin(kRanges), std::end(kRanges), [&](const Range& range) {
        return virtualKey >= range.first && virtualKey <= range.last;
    });
}

std::optional<int> secondsOfKey(wchar_t character) {
    return character >= L'1' && character <= L'9' ? std::optional(character - L'0') : std::nullopt;
}

std::optional<int> folderOfLetter(const std::vector<std::wstring>& names, wchar_t letter) {
    const auto found = std::find_if(names.begin(), names.end(), [&](const std::wstring& name) {
        return !name.empty() && lowerLatin(name.front()) == lowerLatin(letter);
    });
    return found == names.end() ? std::nullopt : std::optional(static_cast<int>(found - names.begin()));
}

int secondScreenLeft(int primaryWidth) {
    return static_cast<int>(std::lround(primaryWidth * 1.2));
}

ScreenPoint secondScreenPointer(int windowLeft, int windowHeight) {
    return {static_cast<int>(std::lround(windowLeft * 1.5)), windowHeight / 2};
}

}  // namespace show
