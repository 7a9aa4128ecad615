#pragma once

#include "app/parameter_text.h"
#include "app/surface_settings.h"
#include "show/picture_source.h"

namespace app {

/// Where the parameters start a show at once, its first picture is begun before there is a window: it is then
/// decoded while the window and its controls are made. A guess that proves wrong (another monitor, other
/// files meanwhile) costs nothing but the decode. Returns whether the parameters start a show at once.
bool prepareFirstPicture(show::PictureSource& pictures, SurfaceSettings& surfaces,
                         const Parameters& parameters);

}  // namespace app
