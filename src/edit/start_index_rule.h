#pragma once

#include <optional>
#include <string>
#include <vector>

namespace edit {

/// Where a restarted program begins: the index of an item among the files that a show lists. `items`: the
/// files of the overview in its order; `current`: index of the item; `listed`: what the show lists, in its
/// order. An item that the show leaves out gives way to the next one of the overview, and to the one before
/// where none follows. At most 9, since the parameter has one digit; none where nothing is to be begun with.
std::optional<int> startIndexOf(const std::vector<std::wstring>& items, int current,
                                const std::vector<std::wstring>& listed);

}  // namespace edit
