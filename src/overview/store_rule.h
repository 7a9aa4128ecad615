#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace overview {

/// The folder in a picture folder that thumbnails are kept in.
inline constexpr const wchar_t* kStoreFolder = L"Mini";
/// The store is there when this finds a file in it.
inline constexpr const wchar_t* kStorePattern = L"*.bmp";

/// The name of an item's thumbnail in the store: the item's file name up to its first ".", and "bmp".
std::wstring thumbnailName(std::wstring_view fileName);

/// A file's name as names are compared on a disk: capital and small letters of the western European
/// alphabets are the same.
std::wstring foldedName(std::wstring_view name);

/// The thumbnails, by folded name, that several of these files would share: "a.jpg" and "A.mpg", "a.b.jpg"
/// and "a.c.jpg". Nobody can tell whose picture such a one shows.
std::unordered_set<std::wstring> sharedThumbnails(const std::vector<std::wstring>& fileNames);

}  // namespace overview
