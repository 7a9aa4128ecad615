#pragma once

#include <windows.h>

#include <icm.h>

namespace picture {

/// The calls of Windows' colour management that the program makes. Its library is loaded when it is first
/// needed: most pictures never need it.
struct ColourSystem {
    decltype(&OpenColorProfileW) openProfile = nullptr;
    decltype(&CloseColorProfile) closeProfile = nullptr;
    decltype(&CreateMultiProfileTransform) createTransform = nullptr;
    decltype(&DeleteColorTransform) deleteTransform = nullptr;
    decltype(&TranslateBitmapBits) translate = nullptr;

    /// The system's own; null where it has none. Safe to call from any thread.
    static const ColourSystem* load();
};

}  // namespace picture
