#pragma once

#include <string>

#include "files/file_system.h"

namespace edit {

/// Where deleted files go.
class Bin {
  public:
    virtual ~Bin() = default;
    /// Whether a file can be had back from it.
    virtual bool takes(const std::wstring& path) = 0;
    /// Puts a file into it.
    virtual files::Failure put(const std::wstring& path) = 0;
};

/// The system's recycle bin.
class RecycleBin : public Bin {
  public:
    bool takes(const std::wstring& path) override;
    files::Failure put(const std::wstring& path) override;
};

}  // namespace edit
