#include "picture/colour_match.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "picture/colour_conversion.h"
#include "picture/colour_profile.h"
#include "picture/standard_profile.h"
#include "picture/system_colour_transform.h"

namespace picture {

namespace {

using Bytes = std::span<const std::uint8_t>;

Bytes usable(Bytes profile) {
    return describesRgb(profile) ? profile : Bytes();
}

bool same(Bytes a, Bytes b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

std::vector<std::uint8_t> bytesOf(Bytes profile) {
    return profile.empty() ? standardProfileBytes()
                           : std::vector<std::uint8_t>(profile.begin(), profile.end());
}

}  // namespace

/// Two profiles, an empty one standing for sRGB, and the way from one to the other.
struct ColourMatch::Pair {
    Pair(Bytes pictureProfile, Bytes monitorProfile)
        : picture(pictureProfile.begin(), pictureProfile.end()),
          monitor(monitorProfile.begin(), monitorProfile.end()) {
        if (same(picture, monitor)) {
            return;
        }
        const auto from = picture.empty() ? standardProfile() : readColourProfile(picture);
        const auto to = monitor.empty() ? standardProfile() : readColourProfile(monitor);
        if (from && to) {
            if (sameEffect(*from, *to)) {
                return;
            }
            conversion = ColourConversion::between(*from, *to);
        }
        if (!conversion) {
            transform = SystemColourTransform::create(bytesOf(picture), bytesOf(monitor));
        }
    }

    Road convert(const Canvas& pixels, const Placement& place) const {
        if (conversion) {
            convertColours(*conversion, pixels, place);
            return Road::Rule;
        }
        return transform && transform->convert(pixels, place) ? Road::System : Road::None;
    }

    std::vector<std::uint8_t> picture;
    std::vector<std::uint8_t> monitor;
    std::optional<ColourConversion> conversion;
    std::unique_ptr<SystemColourTransform> transform;
};

ColourMatch::ColourMatch() = default;
ColourMatch::~ColourMatch() = default;

ColourMatch::Road ColourMatch::convert(const Canvas& pixels, const Placement& place, Bytes pictureProfile,
                                       Bytes monitorProfile) {
    return find(usable(pictureProfile), usable(monitorProfile))->convert(pixels, place);
}

std::shared_ptr<const ColourMatch::Pair> ColourMatch::find(Bytes picture, Bytes monitor) {
    const std::lock_guard lock(mutex_);
    const auto known = std::find_if(pairs_.begin(), pairs_.end(), [&](const auto& pair) {
        return same(pair->picture, picture) && same(pair->monitor, monitor);
    });
    if (known != pairs_.end()) {
        pairs_.splice(pairs_.begin(), pairs_, known);
        return pairs_.front();
    }
    pairs_.push_front(std::make_shared<const Pair>(picture, monitor));
    ++workedOut_;
    if (pairs_.size() > kKept) {
        pairs_.pop_back();
    }
    return pairs_.front();
}

int ColourMatch::workedOut() const {
    const std::lock_guard lock(mutex_);
    return workedOut_;
}

ColourMatch& colourMatch() {
    static ColourMatch match;
    return match;
}

}  // namespace picture
