#pragma once

#include <string>
#include <string_view>

namespace script {

/// The key of an item in the show script: the text between the last "\" of its path and the first "." of
/// the whole path (so "a.b.jpg" has the key "a"), or the end where there is no ".".
/// Where that "." belongs to a folder's name, the first one behind the last "\" ends the key: otherwise
/// nothing in a folder like "C:\Users\max.muster" would ever have a title.
std::wstring PictureKey(std::wstring_view path);

}  // namespace script
