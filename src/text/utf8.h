#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace text {

/// The byte-order mark that a UTF-8 text file begins with.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// Whether the bytes of a file begin with the mark.
bool hasUtf8Mark(std::string_view bytes);

/// The text of UTF-8 bytes (without a mark), characters beyond U+FFFF as the platform's wchar_t holds them.
/// std::nullopt for anything that is not UTF-8: stray or missing continuation bytes, overlong forms, values
/// above U+10FFFF, surrogate pairs written as two characters. A lone surrogate is taken, since a file name
/// of Windows may hold one.
std::optional<std::wstring> decodeUtf8(std::string_view bytes);

/// The UTF-8 bytes of a text, without a mark; every text reads back as it was.
std::string encodeUtf8(std::wstring_view text);

/// The same with the mark in front: the content of a text file.
std::string encodeUtf8File(std::wstring_view text);

}  // namespace text
