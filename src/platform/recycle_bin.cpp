#include "platform/recycle_bin.h"

#include <windows.h>

#include <shellapi.h>

#include "platform/directory.h"

namespace platform {

namespace {

// Numbers of the shell's own, from before those of the system.
constexpr int kAccessDeniedSource = 0x78;

}  // namespace

bool recycleBinTakes(const std::wstring& path) {
    constexpr std::size_t kRoot = 3;
    const std::wstring root = path.substr(0, kRoot);
    return root.size() == kRoot && root[1] == L':' && GetDriveTypeW(root.c_str()) == DRIVE_FIXED &&
           path.size() < MAX_PATH;
}

unsigned recycle(const std::wstring& path) {
    // The shell takes a list of paths, each ended by a NUL, and one more at the end.
    const std::wstring list = path + L'\0' + L'\0';
    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = list.c_str();
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_SILENT;
    const int result = SHFileOperationW(&operation);
    if (result == 0) {
        // It may have been called off without an error.
        return fileExists(path) ? ERROR_CANCELLED : 0;
    }
    return result == kAccessDeniedSource ? ERROR_ACCESS_DENIED : static_cast<unsigned>(result);
}

}  // namespace platform
