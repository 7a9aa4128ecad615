#include "app/first_picture.h"

#include <algorithm>
#include <utility>

#include "files/file_filter.h"
#include "files/journal.h"
#include "platform/directory.h"
#include "platform/error.h"
#include "platform/file_bytes.h"
#include "platform/monitors.h"

namespace app {

namespace {

/// Whether opening the folder leaves its files the names that they have: no change of it was interrupted.
bool isSettled(const std::wstring& folder) {
    constexpr std::size_t kMostBytes = std::size_t{16} << 20;
    const std::wstring path = platform::joinPath(folder, files::kJournalFile);
    if (!platform::fileExists(path)) {
        return true;
    }
    const std::vector<std::uint8_t> bytes = platform::readFileBytes(path, kMostBytes);
    return files::readJournal(std::string(bytes.begin(), bytes.end())).phase == files::Phase::Done;
}

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

FirstPicture::FirstPicture(show::PictureSource& pictures, SurfaceSettings& surfaces,
                           const Parameters& parameters)
    : pictures_(pictures), surfaces_(surfaces) {
    if (!parameters.runAtOnce || !parameters.drive || !parameters.folder) {
        return;
    }
    try {
        begin(platform::fullPath(*parameters.folder, *parameters.drive + L"\\"),
              parameters.startIndex.value_or(0));
    } catch (const platform::Error&) {
        // No such folder: the lists will find out.
    }
}

void FirstPicture::begin(const std::wstring& folder, int index) {
    const auto first = fileAt(folder, index);
    if (!first || files::isVideoName(*first) || !isSettled(folder)) {
        return;
    }
    curtain_.place = platform::Monitors::current().areaAt({0, 0});
    curtain_.picture = [this] { return picture(); };
    surface_ = surfaces_.surfaceOn(curtain_.place);
    pictures_.setSurface(surface_);
    pictures_.prepare({*first});
    path_ = *first;
}

const picture::Surface* FirstPicture::picture() {
    if (!std::exchange(awaited_, true)) {
        held_ = pictures_.take(path_);
    }
    return held_ ? &held_->surface : nullptr;
}

void FirstPicture::setSurface(const show::ShowSurface& surface) {
    if (!show::sameSurface(surface, surface_)) {
        held_.reset();
    }
    pictures_.setSurface(surface);
}

std::optional<show::ShowPicture> FirstPicture::take(const std::wstring& path) {
    std::optional<show::ShowPicture> held = std::exchange(held_, std::nullopt);
    return held && path == path_ ? std::move(held) : pictures_.take(path);
}

bool FirstPicture::ready(const std::wstring& path) {
    return (held_ && path == path_) || pictures_.ready(path);
}

void FirstPicture::prepare(const std::vector<std::wstring>& paths) {
    std::vector<std::wstring> wanted = paths;
    if (held_) {
        std::erase(wanted, path_);
    }
    pictures_.prepare(wanted);
}

}  // namespace app
