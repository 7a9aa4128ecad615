#include "picture/colour_system.h"

#include <optional>

namespace picture {

namespace {

template <typename Function>
bool find(HMODULE library, const char* name, Function& function) {
    // By way of a pointer to nothing in particular: the type that GetProcAddress gives fits no function.
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    return function != nullptr;
}

std::optional<ColourSystem> loadLibrary() {
    const HMODULE library = LoadLibraryExW(L"mscms.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    ColourSystem system;
    if (library == nullptr || !find(library, "OpenColorProfileW", system.openProfile) ||
        !find(library, "CloseColorProfile", system.closeProfile) ||
        !find(library, "CreateMultiProfileTransform", system.createTransform) ||
        !find(library, "DeleteColorTransform", system.deleteTransform) ||
        !find(library, "TranslateBitmapBits", system.translate)) {
        return std::nullopt;
    }
    return system;
}

}  // namespace

const ColourSystem* ColourSystem::load() {
    static const std::optional<ColourSystem> system = loadLibrary();
    return system ? &*system : nullptr;
}

}  // namespace picture
