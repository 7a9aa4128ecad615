#pragma once

#include <cstddef>
#include <string_view>

namespace files {

enum class NameFault { None, Empty, Character, Reserved, TrailingBlankOrDot, TooLong };

/// Whether a file may be given this name, decided without asking the system: what it takes depends on the
/// system, and "a:b.jpg" may vanish into a stream. Faults: none of the characters \ / : * ? " < > | and no
/// control character; no device such as CON, NUL or COM1 before the first dot; no blank or dot at the end;
/// at most 255 characters.
NameFault nameFault(std::wstring_view name);

/// Whether a text can stand for one file of a folder: it leads nowhere else. Weaker than nameFault: files
/// that exist may have names which this program would not give.
bool isPlainName(std::wstring_view name);

/// The longest path that every program can open, in characters.
inline constexpr std::size_t kLongestPath = 259;

}  // namespace files
