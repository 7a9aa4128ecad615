#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>

#include "edit/bin.h"

namespace edit {

/// The system's recycle bin.
class SystemBin : public Bin {
  public:
    /// `owner` tells the window that the system's questions lie above.
    explicit SystemBin(std::function<HWND()> owner) : owner_(std::move(owner)) {}

    bool takes(const std::wstring& path) override;
    files::Failure put(const std::wstring& path) override;

  private:
    std::function<HWND()> owner_;
};

}  // namespace edit
