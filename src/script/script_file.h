#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace script {

/// The text of a folder's show script: in the system's code page, or UTF-8 where it begins with the
/// byte-order mark. None when there is no such file or it cannot be read; a file that another program
/// holds open for writing is read all the same.
std::optional<std::wstring> readScriptFile(const std::wstring& folder);

/// The bytes to write for a show script's text, so that reading gives it back: in the system's code page
/// where that holds the whole text, else UTF-8 with the byte-order mark.
std::string scriptFileBytes(std::wstring_view text);

}  // namespace script
