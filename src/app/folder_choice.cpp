#include "app/folder_choice.h"

#include "platform/directory.h"
#include "platform/error.h"
#include "platform/short_path.h"

namespace app {

void chooseFolder(ui::DriveList& drives, ui::FolderList& folders, const std::wstring& drive,
                  const std::optional<std::wstring>& folder) {
    const std::wstring root = drive + L"\\";
    // Looked for before the drive is set: a folder that is gone would leave the drive's root behind.
    if (!platform::folderExists(folder ? platform::fullPath(*folder, root) : root)) {
        return;
    }
    try {
        drives.setDrive(drive);
        if (folder) {
            folders.setPath(platform::longPath(platform::fullPath(*folder, root)));
        }
    } catch (const platform::Error&) {
    }
}

}  // namespace app
