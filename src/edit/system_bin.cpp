#include "edit/system_bin.h"

#include "platform/recycle_bin.h"

namespace edit {

bool SystemBin::takes(const std::wstring& path) {
    return platform::recycleBinTakes(path);
}

files::Failure SystemBin::put(const std::wstring& path) {
    switch (platform::recycle(path, owner_())) {
        case 0:
            return files::Failure::None;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return files::Failure::InUse;
        case ERROR_ACCESS_DENIED:
            return files::Failure::Denied;
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return files::Failure::Missing;
        default:
            return files::Failure::Other;
    }
}

}  // namespace edit
