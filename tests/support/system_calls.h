#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/import_hook.h"

namespace support {

/// Watches what the program asks of the system and leaves no other trace: tray icon, pointer, beeps, started
/// processes, window regions, reads of settings. One lives at a time.
class SystemCalls {
  public:
    SystemCalls();
    ~SystemCalls();
    SystemCalls(const SystemCalls&) = delete;
    SystemCalls& operator=(const SystemCalls&) = delete;

    /// In order: "region", "show", "read SECTION/KEY", "tray add", "tray delete", "beep", "start".
    std::vector<std::string> log;
    /// How often an entry of the log occurred.
    int count(const std::string& call) const;
    /// Called before a call is carried out, with its entry of the log.
    std::function<void(const std::string& call)> onCall;

    /// Pointer shown minus pointer hidden.
    int pointer = 0;
    /// Calls of the function that shows and hides the pointer.
    int pointerCalls = 0;
    /// Command lines of the processes that would have been started.
    std::vector<std::wstring> started;
    /// No process can be started.
    bool startFails = false;
    /// The last record of the tray icon, as bytes.
    std::string trayRecord;

    void note(const std::string& call);
    const ImportHook& showWindow() const { return showWindow_; }
    const ImportHook& setWindowRgn() const { return setWindowRgn_; }
    const ImportHook& readProfile() const { return readProfile_; }

  private:
    ImportHook tray_;
    ImportHook showCursor_;
    ImportHook beep_;
    ImportHook createProcess_;
    ImportHook setWindowRgn_;
    ImportHook showWindow_;
    ImportHook readProfile_;
};

}  // namespace support
