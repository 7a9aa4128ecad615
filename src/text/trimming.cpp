#include "text/trimming.h"

#include <algorithm>

namespace text {

std::wstring_view trimmed(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

std::wstring_view lastCharacters(std::wstring_view text, std::size_t count) {
    return text.substr(text.size() - std::min(count, text.size()));
}

std::wstring_view untilNul(std::wstring_view text) {
    return text.substr(0, text.find(L'\0'));
}

bool equalsIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return lowerAscii(x) == lowerAscii(y); });
}

}  // namespace text
