#include "app/folder_choice.h"

#include "platform/directory.h"
#include "platform/error.h"
#include "platform/short_path.h"
#include "text/trimming.h"

namespace app {

void chooseFolder(ui::DriveList& drives, ui::FolderList& folders, const std::wstring& drive,
                  const std::optional<std::wstring>& folder) {
    const std::wstring root = drive + L"\\";
    const std::wstring full = folder ? platform::fullPath(*folder, root) : root;
    // Looked for before the drive is set: a folder that is gone would leave the drive's root behind.
    if (!platform::folderExists(root) || !platform::folderExists(full)) {
        return;
    }
    try {
        // The folder first, where it lies on the drive: the drive's own change then finds it open, and the
        // lists are filled once.
        const std::wstring wanted = platform::longPath(full);
        if (folder && text::equalsIgnoringCase(wanted.substr(0, drive.size()), drive)) {
            folders.setPath(wanted);
        }
        drives.setDrive(drive);
        if (folder && folders.path() != wanted) {
            folders.setPath(wanted);
        }
    } catch (const platform::Error&) {
    }
}

}  // namespace app
