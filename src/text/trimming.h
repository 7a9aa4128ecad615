#pragma once

#include <string>
#include <string_view>

namespace text {

/// `text` without the blanks (U+0020 only) at both ends.
std::wstring_view trimmed(std::wstring_view text);

/// The last `count` characters of `text`, the whole of it when it is shorter.
std::wstring_view lastCharacters(std::wstring_view text, std::size_t count);

/// `text` up to its first NUL, or the whole of it.
std::wstring_view untilNul(std::wstring_view text);

/// 'A' ... 'Z' as 'a' ... 'z'; every other character as it is, whatever the locale.
constexpr wchar_t lowerAscii(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

/// Equality in which only the case of the ASCII letters does not count.
bool equalsIgnoringCase(std::wstring_view a, std::wstring_view b);

}  // namespace text
