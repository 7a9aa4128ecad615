#include "edit/start_index_rule.h"

#include <algorithm>

namespace edit {

namespace {

constexpr int kLargestIndex = 9;

std::optional<int> indexIn(const std::vector<std::wstring>& listed, const std::wstring& name) {
    const auto found = std::find(listed.begin(), listed.end(), name);
    if (found == listed.end()) {
        return std::nullopt;
    }
    return std::min(static_cast<int>(found - listed.begin()), kLargestIndex);
}

}  // namespace

std::optional<int> startIndexOf(const std::vector<std::wstring>& items, int current,
                                const std::vector<std::wstring>& listed) {
    const int count = static_cast<int>(items.size());
    if (current < 0 || current >= count) {
        return std::nullopt;
    }
    for (int i = current; i < count; ++i) {
        if (const auto index = indexIn(listed, items[static_cast<std::size_t>(i)])) {
            return index;
        }
    }
    for (int i = current - 1; i >= 0; --i) {
        if (const auto index = indexIn(listed, items[static_cast<std::size_t>(i)])) {
            return index;
        }
    }
    return std::nullopt;
}

}  // namespace edit
