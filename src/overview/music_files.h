#pragma once

#include <map>
#include <string>
#include <vector>

#include "files/file_stamp.h"
#include "files/file_system.h"
#include "overview/music_order.h"
#include "ui/event_loop.h"

namespace overview {

/// The music files of a folder as they were when its overview was opened. Renames them so that their names
/// keep order and locks: all of them or none.
class MusicFiles {
  public:
    MusicFiles(ui::EventLoop& loop, files::FileSystem& fileSystem) : loop_(loop), fileSystem_(fileSystem) {}

    /// Remembers which files are there. The folder's path may end in "\\" or not.
    void load(const std::wstring& folder);
    /// Carries an order out; see RenameMusic. An order that all names have already touches nothing. Windows
    /// paint meanwhile and do nothing else.
    MusicRenamed rename(const std::wstring& musicFolder, const std::vector<MusicEntry>& order);

  private:
    ui::EventLoop& loop_;
    files::FileSystem& fileSystem_;
    std::map<std::wstring, files::FileStamp> stamps_;
};

}  // namespace overview
