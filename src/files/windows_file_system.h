#pragma once

#include "files/file_system.h"

namespace files {

/// The real files. Paths may be longer than 260 characters.
class WindowsFileSystem : public FileSystem {
  public:
    Answer<std::vector<FolderEntry>> list(const std::wstring& folder) const override;
    Answer<FolderEntry> stat(const std::wstring& path) const override;
    Failure rename(const std::wstring& from, const std::wstring& to) override;
    Failure remove(const std::wstring& path) override;
    Failure writeNew(const std::wstring& path, std::string_view bytes) override;
    Answer<std::string> read(const std::wstring& path) const override;
    Failure replace(const std::wstring& from, const std::wstring& to) override;
    Failure setAttributes(const std::wstring& path, std::uint32_t attributes) override;
    Failure flushFolder(const std::wstring& folder) override;
    Held createHeld(const std::wstring& path, std::string_view bytes) override;
    Held openHeld(const std::wstring& path) override;
    std::wstring folded(std::wstring_view name) const override;
};

}  // namespace files
