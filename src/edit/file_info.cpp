#include "edit/file_info.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "edit/file_details.h"
#include "edit/file_moment.h"
#include "edit/item_file.h"
#include "picture/jpeg_header.h"
#include "platform/error.h"
#include "platform/file_bytes.h"

namespace edit {

namespace {

constexpr wchar_t kTitle[] = L" Datei-Info";
constexpr int kAppearingMs = 4000;
// What a camera writes before the picture data, previews for other programs included.
constexpr std::size_t kHeadBytes = std::size_t{4} << 20;

// From the first control of the dialog over the tab of the details to the picture's own among them.
const std::vector<WORD> kToDetails = {VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_RIGHT, VK_RIGHT, VK_RIGHT,
                                      VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB,   'R'};

void addPicture(FileDetails& details, const std::wstring& path) {
    try {
        const auto head = platform::readFileBytes(path, kHeadBytes);
        details.pixels = picture::readPictureSize(head);
        details.taken = picture::readExif(head).date;
        details.camera = picture::readCameraNotes(head);
    } catch (const platform::Error&) {
        // Another program holds the file: what is known of it is told all the same.
    }
}

}  // namespace

FileInfo::FileInfo(Parts parts) : parts_(std::move(parts)), appearing_(parts_.loop, kAppearingMs) {
    appearing_.onTimer = [this] { leadToDetails(); };
}

void FileInfo::show(int index) {
    const std::wstring path = pathOf(parts_.records, index);
    appearing_.setEnabled(false);
    if (!parts_.dialog.open(parts_.owner(), path)) {
        tellDetails(path);
        return;
    }
    path_ = path;
    appearing_.setEnabled(true);
}

// Keys that another window gets might do anything there.
void FileInfo::leadToDetails() {
    appearing_.setEnabled(false);
    if (parts_.dialog.isInFront(path_)) {
        parts_.dialog.type(kToDetails);
    }
}

void FileInfo::tellDetails(const std::wstring& path) {
    const std::wstring name = path.substr(path.rfind(L'\\') + 1);
    const auto facts = platform::readFileFacts(path);
    if (!facts) {
        parts_.dialogue.tell(missingText(name), kTitle);
        return;
    }
    FileDetails details;
    details.name = name;
    details.folder = parts_.records.folder;
    details.size = facts->size;
    details.created = momentOf(facts->times.created);
    details.written = momentOf(facts->times.written);
    details.accessed = momentOf(facts->times.accessed);
    addPicture(details, path);
    parts_.dialogue.tell(fileDetailsText(details), kTitle);
}

}  // namespace edit
