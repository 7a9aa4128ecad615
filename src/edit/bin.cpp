#include "edit/bin.h"

#include <windows.h>

#include "platform/recycle_bin.h"

namespace edit {

bool RecycleBin::takes(const std::wstring& path) {
    return platform::recycleBinTakes(path);
}

files::Failure RecycleBin::put(const std::wstring& path) {
    switch (platform::recycle(path)) {
        case 0:
            return files::Failure::None;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return files::Failure::InUse;
        case ERROR_ACCESS_DENIED:
            return files::Failure::Denied;
        case ERROR_FILE_NOT_FOUND:
            return files::Failure::Missing;
        default:
            return files::Failure::Other;
    }
}

}  // namespace edit
