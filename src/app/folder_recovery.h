#pragma once

#include <string>

#include "files/file_system.h"
#include "files/recovery.h"
#include "ui/event_loop.h"
#include "ui/window.h"

namespace app {

/// Finishes or undoes a change of a folder's names that was interrupted, before anything is read there, and
/// tells the user of what could not be put right. Windows paint meanwhile, and a small one comes up when it
/// takes long. Costs one look at the folder where there was none. `owner` of the message may be null. Throws
/// Leaving.
void recoverFolder(ui::EventLoop& loop, files::FileSystem& fileSystem, const std::wstring& folder,
                   const ui::Window* owner);

/// What is told of a recovery; empty where all is well, or where nothing can be written to the folder and so
/// nothing can be done about it.
std::wstring recoveryText(const files::Recovery& recovery);

}  // namespace app
