#pragma once

#include <string>

namespace app {

/// The title of the help box, with its leading blank.
inline constexpr const wchar_t* kHelpTitle = L" Panorell";

/// The text of the help box; CR ends its lines, tabs and blanks are mixed as they are meant to be.
std::wstring helpText();

/// The caption of `Label1` while the pointer is over `Pic3`: name and version on two lines (CR LF).
std::wstring titleAndVersion(int major, int minor);

}  // namespace app
