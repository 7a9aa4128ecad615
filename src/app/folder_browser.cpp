#include "app/folder_browser.h"

#include <algorithm>

#include "app/file_count.h"
#include "files/file_filter.h"
#include "media/music_list.h"
#include "platform/error.h"
#include "platform/file_time.h"
#include "platform/system_message.h"
#include "show/step_rule.h"
#include "text/trimming.h"

namespace app {

namespace {

constexpr wchar_t kErrorTitle[] = L" Fehler";
constexpr std::size_t kDateCharacters = 10;

/// The part of a surface that its picture covers.
picture::Placement covered(const picture::DecodedPicture& picture) {
    const picture::Placement& place = picture.placement;
    const int left = std::max(0, place.left);
    const int top = std::max(0, place.top);
    return {left, top, std::min(picture.pixels.width, place.left + place.width) - left,
            std::min(picture.pixels.height, place.top + place.height) - top};
}

picture::Pixels cut(const picture::Pixels& surface, const picture::Placement& part) {
    picture::Pixels made(part.width, part.height);
    for (int y = 0; y < part.height; ++y) {
        std::copy_n(surface.row(part.top + y) + part.left, part.width, made.row(y));
    }
    return made;
}

}  // namespace

FolderBrowser::FolderBrowser(const Parts& parts)
    : parts_(parts), preview_(parts_.loop), previewPlace_(parts_.Pic2.place()) {
    preview_.onLoaded = [this](const std::optional<picture::DecodedPicture>& picture) { loaded(picture); };
}

std::wstring FolderBrowser::pathOf(int index) const {
    std::wstring path = parts_.lists.Dir1.path();
    if (path.empty() || path.back() != L'\\') {
        path += L'\\';
    }
    return path + parts_.lists.File1.entries()[static_cast<std::size_t>(index)];
}

void FolderBrowser::driveChanged() {
    try {
        const std::wstring drive = parts_.lists.Drive1.drive().substr(0, 2);
        if (!text::equalsIgnoringCase(parts_.lists.Dir1.path().substr(0, 2), drive)) {
            openFolder(drive + L"\\");
        }
        parts_.lists.Dir1.setFocus();
    } catch (const platform::Error& error) {
        onError(platform::systemMessage(error.code()), kErrorTitle);
    }
}

void FolderBrowser::folderClicked() {
    try {
        openFolder(parts_.lists.Dir1.selectedPath());
    } catch (const platform::Error&) {
        // A folder that cannot be opened: the list stays where it is.
    }
}

// Another folder has another first file; the one that is open already keeps the file chosen in it.
void FolderBrowser::openFolder(const std::wstring& folder) {
    const std::wstring before = parts_.lists.Dir1.path();
    parts_.lists.Dir1.setPath(folder);
    if (parts_.lists.Dir1.path() != before) {
        parts_.state.StartIndex = 0;
    }
}

void FolderBrowser::fillLists() {
    if (parts_.lists.File1.path().empty()) {
        folderChanged();
    }
}

void FolderBrowser::folderChanged() {
    if (onFolder) {
        onFolder(parts_.lists.Dir1.path());
    }
    ui::FileList::setPath(parts_.lists.Dir1.path(), {&parts_.lists.File1, &parts_.lists.File2});
    parts_.music.musicIndex = 0;
    parts_.music.musicList = media::musicEntries(parts_.lists.File2.entries());
    parts_.Pic2.move(previewPlace_);
    parts_.Pic2.show();
    parts_.video.close();
    tellCount();
    preview_.cancel();
    if (parts_.lists.File1.count() > 0) {
        previewFile(0, false);
    } else {
        previewed_.clear();
        enableStart(false);
        parts_.Pic2.drop();
        parts_.Pic2.setToolTip(L"");
    }
}

void FolderBrowser::refreshCount() {
    const bool followsSelection = parts_.lists.File1.selectedIndex() == parts_.state.StartIndex;
    parts_.lists.File1.refresh();
    if (followsSelection && parts_.lists.File1.selectedIndex() >= 0) {
        parts_.state.StartIndex = parts_.lists.File1.selectedIndex();
    }
    tellCount();
    if (!preview_.loading()) {
        enableStart(parts_.lists.File1.count() > 0);
    }
}

void FolderBrowser::tellCount() {
    parts_.lists.File1.setToolTip(fileCountText(parts_.lists.File1.count()));
}

void FolderBrowser::setPreviewing(bool on) {
    previewing_ = on;
    if (!on) {
        preview_.cancel();
    }
}

void FolderBrowser::fileClicked() {
    const int index = parts_.lists.File1.selectedIndex();
    if (index >= 0) {
        previewFile(index, true);
    }
}

// The first file of a folder is previewed without being chosen: StartIndex stays for what follows.
void FolderBrowser::previewFile(int index, bool byUser) {
    if (!previewing_) {
        return;
    }
    enableStart(false);
    previewed_ = pathOf(index);
    parts_.Pic2.hide();
    parts_.video.close();
    preview_.cancel();
    if (byUser) {
        parts_.state.StartIndex = index;
    }
    const auto time = platform::fileWriteTime(previewed_);
    parts_.Pic2.setToolTip(time ? platform::dateAndTime(*time).substr(0, kDateCharacters) : L"");
    parts_.Pic2.move(previewPlace_);
    if (!files::isPictureName(previewed_)) {
        parts_.Pic2.clear();
        parts_.Pic2.show();
        parts_.video.OpenAndPlayVideo(previewed_);
        enableStart(true);
        return;
    }
    // Whoever shows the box before the picture is there shows no other one in it.
    parts_.Pic2.drop();
    const SIZE size = parts_.Pic2.clientSize();
    preview_.load(previewed_, size.cx, size.cy, colours());
    onAboutToShow(previewed_);
    // Last, since another folder may be opened meanwhile.
    parts_.loop.doEvents();
}

void FolderBrowser::loaded(const std::optional<picture::DecodedPicture>& picture) {
    if (picture) {
        showPicture(*picture);
    } else {
        parts_.Pic2.clear();
    }
    parts_.Pic2.show();
    enableStart(parts_.lists.File1.count() > 0);
}

// A wide or tall picture makes the box smaller, so that none of its surface is left beside the picture.
void FolderBrowser::showPicture(const picture::DecodedPicture& picture) {
    const int dpi = parts_.Pic2.dpi();
    const picture::Placement part = covered(picture);
    parts_.Pic2.movePixels(ui::toPixels(previewPlace_.left, dpi) + part.left,
                           ui::toPixels(previewPlace_.top, dpi) + part.top, part.width, part.height);
    parts_.Pic2.setImage(cut(picture.pixels, part));
}

void FolderBrowser::previewAgain() {
    const int index = parts_.lists.File1.indexOf(previewed_.substr(previewed_.rfind(L'\\') + 1));
    if (index >= 0) {
        previewFile(index, false);
    }
}

void FolderBrowser::enableStart(bool enabled) {
    parts_.Start.setEnabled(enabled);
    parts_.Run.setEnabled(enabled);
}

void FolderBrowser::filterClicked(int index) {
    parts_.lists.File1.setPattern(files::kTypPatterns[static_cast<std::size_t>(index)]);
    refreshCount();
}

void FolderBrowser::musicClicked() {
    parts_.music.musicIndex = 0;
}

bool FolderBrowser::selectFolder(wchar_t letter) {
    std::vector<std::wstring> names;
    const int first = parts_.lists.Dir1.firstSubFolder();
    for (int i = first; i < parts_.lists.Dir1.count(); ++i) {
        names.push_back(parts_.lists.Dir1.item(i));
    }
    const auto index = show::folderOfLetter(names, letter);
    if (index) {
        parts_.lists.Dir1.setTopIndex(first + *index);
    }
    return index.has_value();
}

}  // namespace app
