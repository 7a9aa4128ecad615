#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "picture/colour_profile.h"
#include "picture/orientation.h"
#include "picture/pixels.h"

namespace picture {

/// Changes the numbers of pixels so that they mean on one device what they meant on another: relative
/// colorimetric, which shows white as the device's white, and colours that the device does not have as the
/// nearest numbers, channel by channel. Light below the darkest of a curve does not count, on either side, so
/// black (0) stays black. Where the sums of both profiles' primaries agree within half a percent white stays
/// white.
///
/// It works in whole numbers with tables made in advance, in about a microsecond per 300 pixels.
class ColourConversion {
  public:
    /// None where the device's colours lie so close together that the result would mean nothing.
    static std::optional<ColourConversion> between(const ColourProfile& picture, const ColourProfile& device);

    /// Converts `count` pixels 0x00RRGGBB in place.
    void convert(std::uint32_t* pixels, std::size_t count) const;
    /// The same without vector instructions, and the same result.
    void convertPlainly(std::uint32_t* pixels, std::size_t count) const;

  private:
    /// What one level of one of the picture's channels adds to the device's red, green and blue.
    struct alignas(16) Addend {
        std::array<std::int32_t, 4> light{};
    };
    using Addends = std::array<Addend, 256>;

    ColourConversion() = default;
    void setAddends(const ColourProfile& picture, const Matrix3& toDevice);
    void setLevels(const ColourProfile& device);
    std::uint32_t convertPixel(std::uint32_t pixel) const;

    std::array<Addends, 3> addends_{};
    /// The device's level for every index of light; channels with the same curve share one table.
    std::vector<std::uint8_t> levels_;
    /// Where the tables of red, green and blue begin.
    std::array<std::size_t, 3> tables_{};
};

/// Converts the part `place` of a picture, as far as it lies inside.
void convertColours(const ColourConversion& conversion, const Canvas& pixels, const Placement& place);

}  // namespace picture
