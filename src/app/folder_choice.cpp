#include "app/folder_choice.h"

#include "platform/directory.h"
#include "platform/error.h"

namespace app {

void chooseFolder(ui::DriveList& drives, ui::FolderList& folders, const std::wstring& drive,
                  const std::optional<std::wstring>& folder) {
    if (!platform::folderExists(drive + L"\\")) {
        return;
    }
    try {
        drives.setDrive(drive);
        if (folder) {
            folders.setPath(*folder);
        }
    } catch (const platform::Error&) {
    }
}

}  // namespace app
