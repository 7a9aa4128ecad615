#pragma once

#include <array>
#include <string_view>

namespace files {

/// The patterns of `File1` by index of `Typ`: pictures and videos, pictures, videos.
inline constexpr std::array<const wchar_t*, 3> kTypPatterns{L"*.jpg;*.mpg", L"*.jpg", L"*.mpg"};

/// The pattern of `File2`.
inline constexpr const wchar_t* kMusicPattern = L"*.mp3";

/// Whether a file's name matches one of the patterns, which are separated by ";". "*" stands for any
/// characters, "?" for exactly one; the case of the ASCII letters does not count. The whole name has to
/// match, so "*.jpg" never takes "x.jpgx", and a short name beside the long one plays no part.
bool matchesPattern(std::wstring_view name, std::wstring_view patterns);

/// Whether a file list shows a file: its name matches, and it is not hidden unless hidden files are wanted.
bool isListed(std::wstring_view name, bool hidden, std::wstring_view patterns, bool includeHidden);

/// Whether a file is a video: its last three characters are "mpg" in any case. In the show everything
/// else is a picture.
bool isVideoName(std::wstring_view nameOrPath);

/// Whether a file is a picture: its last three characters are "jpg" in any case. In previews everything
/// else is a video.
bool isPictureName(std::wstring_view nameOrPath);

}  // namespace files
