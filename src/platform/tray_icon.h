#pragma once

#include <windows.h>

#include <string>

namespace platform {

/// The icon in the notification area that tells that the program runs. Nothing reacts to it.
class TrayIcon {
  public:
    /// `owner`: the window that the shell would send the icon's messages to.
    TrayIcon(HWND owner, HICON icon, std::string tip);
    ~TrayIcon() { remove(); }
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;

    void add();
    /// Does nothing when the icon is not there.
    void remove();
    /// Whether it was added; where there is no notification area it waits for one.
    bool wanted() const { return wanted_; }

    /// To be called for each message of the owner: when the task bar was started anew the icon comes back.
    void onOwnerMessage(UINT message);
    /// The message that the task bar sends to all top-level windows when it starts.
    static UINT taskBarCreated();

  private:
    bool send(DWORD operation, UINT flags) const;

    HWND owner_;
    HICON icon_;
    std::string tip_;
    bool wanted_ = false;
};

}  // namespace platform
