#include "picture/system_colour_transform.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/handles.h"

namespace picture {

namespace {

using platform::HandleCounts;
using platform::HandleKind;

/// A profile opened from memory, closed at the end of the scope.
class OpenProfile {
  public:
    OpenProfile(const ColourSystem& system, std::span<const std::uint8_t> bytes)
        : system_(system), bytes_(bytes.begin(), bytes.end()) {
        PROFILE profile{};
        profile.dwType = PROFILE_MEMBUFFER;
        profile.pProfileData = bytes_.data();
        profile.cbDataSize = static_cast<DWORD>(bytes_.size());
        handle_ = system.openProfile(&profile, PROFILE_READ, FILE_SHARE_READ, OPEN_EXISTING);
        if (handle_ != nullptr) {
            HandleCounts::add(HandleKind::ColourProfile, +1);
        }
    }
    ~OpenProfile() {
        if (handle_ != nullptr) {
            HandleCounts::add(HandleKind::ColourProfile, -1);
            system_.closeProfile(handle_);
        }
    }
    OpenProfile(const OpenProfile&) = delete;
    OpenProfile& operator=(const OpenProfile&) = delete;
    HPROFILE get() const { return handle_; }

  private:
    const ColourSystem& system_;
    std::vector<std::uint8_t> bytes_;
    HPROFILE handle_ = nullptr;
};

}  // namespace

std::unique_ptr<SystemColourTransform> SystemColourTransform::create(std::span<const std::uint8_t> picture,
                                                                     std::span<const std::uint8_t> device,
                                                                     const ColourSystem* system) {
    if (system == nullptr) {
        return nullptr;
    }
    const OpenProfile from(*system, picture);
    const OpenProfile to(*system, device);
    if (from.get() == nullptr || to.get() == nullptr) {
        return nullptr;
    }
    std::array<HPROFILE, 2> profiles = {from.get(), to.get()};
    std::array<DWORD, 2> intents = {INTENT_RELATIVE_COLORIMETRIC, INTENT_RELATIVE_COLORIMETRIC};
    const HTRANSFORM transform =
        system->createTransform(profiles.data(), static_cast<DWORD>(profiles.size()), intents.data(),
                                static_cast<DWORD>(intents.size()), BEST_MODE, INDEX_DONT_CARE);
    if (transform == nullptr) {
        return nullptr;
    }
    return std::unique_ptr<SystemColourTransform>(new SystemColourTransform(*system, transform));
}

SystemColourTransform::SystemColourTransform(const ColourSystem& system, HTRANSFORM transform)
    : system_(system), transform_(transform) {
    HandleCounts::add(HandleKind::ColourTransform, +1);
}

SystemColourTransform::~SystemColourTransform() {
    HandleCounts::add(HandleKind::ColourTransform, -1);
    system_.deleteTransform(transform_);
}

bool SystemColourTransform::translate(std::uint32_t* from, std::uint32_t* to, int width, int rows) {
    const auto stride = static_cast<DWORD>(width) * static_cast<DWORD>(sizeof(std::uint32_t));
    return system_.translate(transform_, from, BM_xRGBQUADS, static_cast<DWORD>(width),
                             static_cast<DWORD>(rows), stride, to, BM_xRGBQUADS, stride, nullptr, 0) != FALSE;
}

bool SystemColourTransform::convert(const Canvas& pixels, const Placement& place) {
    // Rows are handed over without gaps, since Wine takes no notice of the stride, and in bands that stay in
    // the processor's cache. The picture is written to only when all of it is converted.
    constexpr int kBand = 32;
    const Placement part = visiblePart(place, pixels);
    const auto width = static_cast<std::size_t>(part.width);
    std::vector<std::uint32_t> band(width * kBand);
    std::vector<std::uint32_t> converted(width * static_cast<std::size_t>(part.height));
    {
        const std::lock_guard lock(mutex_);
        for (int top = 0; top < part.height; top += kBand) {
            const int rows = std::min(kBand, part.height - top);
            for (int row = 0; row < rows; ++row) {
                std::copy_n(pixels.row(part.top + top + row) + part.left, width,
                            band.data() + static_cast<std::size_t>(row) * width);
            }
            if (!translate(band.data(), converted.data() + static_cast<std::size_t>(top) * width, part.width,
                           rows)) {
                return false;
            }
        }
    }
    for (int row = 0; row < part.height; ++row) {
        const std::uint32_t* from = converted.data() + static_cast<std::size_t>(row) * width;
        // What the system leaves in the unused byte is its own affair.
        std::transform(from, from + width, pixels.row(part.top + row) + part.left,
                       [](std::uint32_t pixel) { return pixel & 0x00FFFFFFU; });
    }
    return true;
}

}  // namespace picture
