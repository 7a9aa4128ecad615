#pragma once

#include <optional>
#include <string>

namespace script {

/// The text of a folder's show script: in the system's code page, or UTF-8 where it begins with the
/// byte-order mark. None when there is no such file or it cannot be read; a file that another program
/// holds open for writing is read all the same.
std::optional<std::wstring> readScriptFile(const std::wstring& folder);

}  // namespace script
