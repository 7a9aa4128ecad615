#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "ui/event_loop.h"

namespace ui {

/// While one lives the program is not left, because files are on their way from one name to another. Who asks
/// for it meanwhile gets it when the last one ends; the end of the session is refused, and the system shows
/// its user why.
class LeavingHold {
  public:
    /// `reason`: one sentence. The windows that are shown now answer for the program.
    LeavingHold(EventLoop& loop, const std::wstring& reason);
    ~LeavingHold();
    LeavingHold(const LeavingHold&) = delete;
    LeavingHold& operator=(const LeavingHold&) = delete;

  private:
    EventLoop& loop_;
    std::vector<HWND> windows_;
};

}  // namespace ui
