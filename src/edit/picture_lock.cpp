#include "edit/picture_lock.h"

#include "edit/item_file.h"
#include "edit/menu_rule.h"
#include "platform/directory.h"

namespace edit {

// The mark follows the disk: it changes only where the attributes did.
bool PictureLock::setAttributes(int index, DWORD attributes, bool locked) {
    if (SetFileAttributesW(platform::unlimitedPath(pathOf(parts_.records, index)).c_str(), attributes) ==
        FALSE) {
        return false;
    }
    record(index).locked = locked;
    renewStamp(parts_.records, index);
    parts_.grid.lockChanged(index);
    return true;
}

std::wstring PictureLock::lock(int index) {
    if (record(index).locked || isLastShown(parts_.records, index)) {
        return {};
    }
    if (std::wstring fault = fileFault(parts_.records, index); !fault.empty()) {
        return fault;
    }
    const DWORD attributes =
        GetFileAttributesW(platform::unlimitedPath(pathOf(parts_.records, index)).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        setAttributes(index, attributes | FILE_ATTRIBUTE_HIDDEN, true);
    }
    return {};
}

std::wstring PictureLock::unlock(int index) {
    if (!record(index).locked) {
        return {};
    }
    if (std::wstring fault = fileFault(parts_.records, index); !fault.empty()) {
        return fault;
    }
    const auto thumbnail = parts_.grid.redraw(index);
    if (thumbnail && parts_.store.folderThere() && parts_.store.create() == 0) {
        parts_.store.save(record(index).fileName, *thumbnail);
    }
    setAttributes(index, FILE_ATTRIBUTE_NORMAL, false);
    return {};
}

}  // namespace edit
