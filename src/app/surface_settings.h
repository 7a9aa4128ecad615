#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "app/option_set.h"
#include "platform/profile_file.h"
#include "show/picture_source.h"

namespace app {

/// The surface of a show as monitors and settings want it. The profile of a monitor is read once, until
/// forget().
class SurfaceSettings {
  public:
    explicit SurfaceSettings(const platform::ProfileFile& settings) : settings_(settings) {}

    /// The surface of a show that covers a monitor.
    show::ShowSurface surfaceOn(const RECT& monitor);
    /// The colours of a monitor; null where the settings leave pictures as they are.
    picture::ColourTarget coloursOf(const RECT& monitor);
    /// The monitors have changed.
    void forget() { known_.reset(); }

  private:
    struct Known {
        RECT monitor;
        picture::ColourTarget colours;
    };

    std::wstring read(const OptionKey& key) const;

    const platform::ProfileFile& settings_;
    std::optional<Known> known_;
};

}  // namespace app
