#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace script {

/// The key of an item in the show script: the text between the last "\" of its path and the first "." of
/// the whole path (so "a.b.jpg" has the key "a"), or the end where there is no ".".
/// std::nullopt when that "." lies before the last "\", as with a dot in a folder's name: no key exists.
std::optional<std::wstring> PictureKey(std::wstring_view path);

}  // namespace script
