#include "app/first_picture.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "files/file_filter.h"
#include "platform/directory.h"
#include "platform/error.h"
#include "platform/monitors.h"

namespace app {

namespace {

/// The file that the list of a folder will have at `index`.
std::optional<std::wstring> fileAt(const std::wstring& folder, int index) {
    std::vector<std::wstring> names;
    for (platform::DirectoryEntry& entry : platform::listDirectory(folder)) {
        if (!entry.folder && files::isListed(entry.name, entry.hidden, files::kTypPatterns[0], false)) {
            names.push_back(std::move(entry.name));
        }
    }
    platform::sortNames(names);
    if (index < 0 || static_cast<std::size_t>(index) >= names.size()) {
        return std::nullopt;
    }
    return platform::joinPath(folder, names[static_cast<std::size_t>(index)]);
}

}  // namespace

bool prepareFirstPicture(show::PictureSource& pictures, SurfaceSettings& surfaces,
                         const Parameters& parameters) {
    if (!parameters.runAtOnce || !parameters.drive || !parameters.folder) {
        return parameters.runAtOnce;
    }
    try {
        const std::wstring folder = platform::fullPath(*parameters.folder, *parameters.drive + L"\\");
        const auto first = fileAt(folder, parameters.startIndex.value_or(0));
        if (first && !files::isVideoName(*first)) {
            pictures.setSurface(surfaces.surfaceOn(platform::Monitors::current().areaAt({0, 0})));
            pictures.prepare({*first});
        }
    } catch (const platform::Error&) {
        // No such folder: the lists will find out.
    }
    return true;
}

}  // namespace app
