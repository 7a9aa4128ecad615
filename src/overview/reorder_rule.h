#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace overview {

/// Where the item at `index` lies after the one at `source` was dropped on the one at `target`.
constexpr int movedIndex(int index, int source, int target) {
    if (index == source) {
        return target;
    }
    if (target <= source && index >= target && index < source) {
        return index + 1;
    }
    if (target > source && index > source && index <= target) {
        return index - 1;
    }
    return index;
}

/// Takes the item at `source` out and puts it in at `target`'s place; the others close up. Both are valid
/// indices.
template <typename Item>
void moveItem(std::vector<Item>& items, int source, int target) {
    const auto at = [&](int index) { return items.begin() + static_cast<std::ptrdiff_t>(index); };
    if (target <= source) {
        std::rotate(at(target), at(source), at(source + 1));
    } else {
        std::rotate(at(source), at(source + 1), at(target + 1));
    }
}

}  // namespace overview
