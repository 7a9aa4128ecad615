#include "media/music_renames.h"

namespace media {

namespace {

constexpr std::size_t kLockedPlace = 99;
constexpr std::size_t kPrefixLength = 3;

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

std::wstring prefixOf(std::size_t place) {
    return {static_cast<wchar_t>(L'0' + place / 10), static_cast<wchar_t>(L'0' + place % 10), L' '};
}

}  // namespace

std::wstring bareMusicName(std::wstring_view fileName) {
    const bool ordered = fileName.size() > kPrefixLength && isDigit(fileName[0]) && isDigit(fileName[1]) &&
                         fileName[2] == L' ';
    return std::wstring(ordered ? fileName.substr(kPrefixLength) : fileName);
}

std::optional<MusicRenames> musicRenames(const std::wstring& folder,
                                         const std::vector<OrderedTitle>& titles) {
    MusicRenames order;
    order.plan.folder = folder;
    for (std::size_t i = 0; i < titles.size(); ++i) {
        const OrderedTitle& title = titles[i];
        const std::size_t place = title.plays ? i + 1 : kLockedPlace;
        if (title.plays && place >= kLockedPlace) {
            return std::nullopt;
        }
        const std::wstring name = prefixOf(place) + bareMusicName(title.fileName);
        order.plan.moves.push_back({title.fileName, name, title.stamp, std::nullopt});
        order.musicList.push_back(name);
    }
    return order;
}

}  // namespace media
