#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "script/show_script.h"

namespace overview {

/// What a show script says of each key, without the key and the blank behind it.
using Entries = std::unordered_map<std::wstring, std::wstring>;

/// Gives each line of a script to the key that it belongs to: the longest one of `keys` that it begins with,
/// followed by a blank or by the line's end. The show takes every line that begins with a key, and would give
/// "Bild1" the title of "Bild10"; what is going to be saved must not be read so.
///
/// A key's only line stays as it is, to the letter; several become what the show makes of them together:
/// the last title, and the last value of each marker. A key without a line is not in the answer.
Entries entriesOf(std::wstring_view scriptText, const std::vector<std::wstring>& keys);

/// Finds the key that a line belongs to in that sense.
class LineOwners {
  public:
    explicit LineOwners(const std::vector<std::wstring>& keys) : keys_(keys.begin(), keys.end()) {}
    /// Empty for a line of no key.
    std::wstring ownerOf(std::wstring_view line) const;

  private:
    std::unordered_set<std::wstring> keys_;
};

/// What an entry means.
script::Entry entryMeaning(std::wstring_view entry);

/// The entry that means this, its markers in the order P, E, D, M.
std::wstring entryText(const script::Entry& meaning);

}  // namespace overview
