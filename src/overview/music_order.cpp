#include "overview/music_order.h"

#include <algorithm>

#include "media/music_list.h"

namespace overview {

namespace {

// The prefix as the names of locked titles are written; what only begins with "99" may be a title.
constexpr std::wstring_view kLockedPrefix = L"99 ";

}  // namespace

std::vector<MusicEntry> musicOrder(const std::vector<std::wstring>& fileNames) {
    std::vector<MusicEntry> order;
    order.reserve(fileNames.size());
    for (const std::wstring& name : fileNames) {
        order.push_back({name, media::musicTitle(name), !name.starts_with(kLockedPrefix)});
    }
    return order;
}

MusicRelease musicRelease(int pressed, int released, int count) {
    using Kind = MusicRelease::Kind;
    if (pressed < 0 || pressed >= count) {
        return {};
    }
    if (released == pressed) {
        return {Kind::FlipLock, 0};
    }
    const int to = released == kBelowRows ? count - 1 : std::min(released, count - 1);
    return to == pressed ? MusicRelease{} : MusicRelease{Kind::Move, to};
}

void moveEntry(std::vector<MusicEntry>& order, int from, int to) {
    const auto first = order.begin() + std::min(from, to);
    const auto last = order.begin() + std::max(from, to);
    if (from < to) {
        std::rotate(first, first + 1, last + 1);
    } else {
        std::rotate(first, last, last + 1);
    }
}

}  // namespace overview
