#pragma once

#include <string>

#include "files/file_system.h"

namespace edit {

/// Where deleted files go.
class Bin {
  public:
    virtual ~Bin() = default;
    /// Whether a file may be had back from it. False: it can only be destroyed.
    virtual bool takes(const std::wstring& path) = 0;
    /// Puts a file into it. A file that it does not take after all is destroyed only if the user agrees.
    virtual files::Failure put(const std::wstring& path) = 0;
};

}  // namespace edit
