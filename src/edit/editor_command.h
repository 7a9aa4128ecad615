#pragma once

#include <string>
#include <string_view>

namespace edit {

/// The name of a program for its user: what stands behind the last "\" of its path, up to the next ".".
std::wstring programName(std::wstring_view path);

/// What an answer of the user's means as the path of a program: without blanks at its ends, and without its
/// first and last character where it begins with a double quote, as a path does that was copied from the
/// properties of a shortcut.
std::wstring chosenProgram(std::wstring_view answer);

/// Whether a path begins at a drive or a server, so that it means the same wherever it is used.
bool isWholePath(std::wstring_view path);

/// The command line that opens a picture: both paths, each in double quotes where it holds a blank.
std::wstring editorCommandLine(std::wstring_view program, std::wstring_view picture);

}  // namespace edit
