#pragma once

#include <string>

namespace program {

/// A new empty folder that is removed with all it holds when this object dies. Its path holds no blank, since
/// the program starts itself anew by a command line without quotes.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The full path, without a backslash at its end.
    const std::wstring& path() const { return path_; }

    /// The full path of an entry of this folder.
    std::wstring file(const std::wstring& name) const { return path_ + L"\\" + name; }

    /// Makes a sub-folder and returns its full path.
    std::wstring addFolder(const std::wstring& name) const;

  private:
    std::wstring path_;
};

}  // namespace program
