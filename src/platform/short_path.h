#pragma once

#include <string>

namespace platform {

/// The short (8.3) form of a file's path, in the system's code page, for command strings that are split on
/// blanks. Empty where there is none: no such file, a path of more than 254 characters, or a name without
/// a short form that the code page cannot hold.
///
/// Where a drive has no short names the long one may come back; with blanks in it, it stands in double
/// quotes.
std::string shortPath(const std::wstring& path);

/// The same in its own characters, whatever the code page, for a command line; never in quotes.
std::wstring wideShortPath(const std::wstring& path);

/// The long form of a path that may be a short one; the path itself when there is no such file or folder.
std::wstring longPath(const std::wstring& path);

/// A path as it can be kept in a file of the system's code page, in so many characters: itself, or its short
/// form where that cannot hold it and there is one that it holds.
std::wstring storablePath(const std::wstring& path, std::size_t longest = std::wstring::npos);

}  // namespace platform
