#include "app/surface_settings.h"

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/monitor_profile.h"

namespace app {

std::wstring SurfaceSettings::read(const OptionKey& key) const {
    return settings_.read(kProgramSection, key.name, key.fallback, key.longest);
}

show::ShowSurface SurfaceSettings::surfaceOn(const RECT& monitor) {
    show::ShowSurface surface;
    surface.width = monitor.right - monitor.left;
    surface.height = monitor.bottom - monitor.top;
    surface.shape = usesScreenShape(read(kShapeKey)) ? static_cast<double>(surface.width) / surface.height
                                                     : show::kDesignShape;
    surface.colours = coloursOf(monitor);
    return surface;
}

picture::ColourTarget SurfaceSettings::coloursOf(const RECT& monitor) {
    if (!matchesColours(read(kColourKey))) {
        return nullptr;
    }
    if (!known_ || EqualRect(&known_->monitor, &monitor) == FALSE) {
        known_ = {monitor, std::make_shared<const std::vector<std::uint8_t>>(
                               platform::MonitorProfiles::current().profileAt(monitor))};
    }
    return known_->colours;
}

}  // namespace app
