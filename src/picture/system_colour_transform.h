#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <span>

#include "picture/colour_system.h"
#include "picture/orientation.h"
#include "picture/pixels.h"

namespace picture {

/// Windows' own conversion of colours, relative colorimetric, for profiles of any making. It is several times
/// slower than ColourConversion. Safe to use from any thread; one call at a time is carried out.
class SystemColourTransform {
  public:
    /// From the colours of the ICC profile `picture` to those of `device`. Null where the system has no
    /// colour management or refuses a profile. `system` must outlive the object.
    static std::unique_ptr<SystemColourTransform> create(std::span<const std::uint8_t> picture,
                                                         std::span<const std::uint8_t> device,
                                                         const ColourSystem* system = ColourSystem::load());
    ~SystemColourTransform();
    SystemColourTransform(const SystemColourTransform&) = delete;
    SystemColourTransform& operator=(const SystemColourTransform&) = delete;

    /// Converts the part `place` of a picture, as far as it lies inside. False where the system fails; the
    /// picture is as it was then.
    bool convert(const Canvas& pixels, const Placement& place);

  private:
    SystemColourTransform(const ColourSystem& system, HTRANSFORM transform);
    bool translate(std::uint32_t* from, std::uint32_t* to, int width, int rows);

    const ColourSystem& system_;
    HTRANSFORM transform_;
    std::mutex mutex_;
};

}  // namespace picture
