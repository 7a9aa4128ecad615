#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_system.h"

namespace files {

/// What a folder and its cache held when they were read, found by name as the file system finds it.
class FolderView {
  public:
    /// Reads both; a cache that is not there holds nothing. The view keeps asking `fileSystem` which names
    /// are the same.
    static Answer<FolderView> read(const FileSystem& fileSystem, const std::wstring& folder);

    /// The entry of a name, "Mini\\a.bmp" for one of the cache; null when there is none.
    const FolderEntry* find(std::wstring_view name) const;

    /// The entry of a name when it can be the file of that stamp, else null.
    const FolderEntry* findFile(std::wstring_view name, const FileStamp& stamp) const;

    /// Whether a name of the folder or of the cache begins so.
    bool anyBeginsWith(std::wstring_view stem) const;

  private:
    void add(const std::wstring& before, const std::vector<FolderEntry>& entries);

    const FileSystem* fileSystem_ = nullptr;
    std::map<std::wstring, FolderEntry> entries_;
};

}  // namespace files
