#pragma once

#include <optional>
#include <string>

#include "ui/drive_list.h"
#include "ui/folder_list.h"

namespace app {

/// Sets the drive and then, where one is given, the folder of the two lists; a short path gives its long one.
/// A drive that is not there or holds no medium, or a folder that is gone, leaves the lists as they are,
/// without a message.
void chooseFolder(ui::DriveList& drives, ui::FolderList& folders, const std::wstring& drive,
                  const std::optional<std::wstring>& folder);

}  // namespace app
