#pragma once

namespace platform {

/// While one lives, neither the display nor the computer falls asleep. On one thread at most one at a time.
class DisplayAwake {
  public:
    DisplayAwake();
    ~DisplayAwake();
    DisplayAwake(const DisplayAwake&) = delete;
    DisplayAwake& operator=(const DisplayAwake&) = delete;

    /// Whether the system took the wish.
    bool active() const { return active_; }

  private:
    bool active_;
};

}  // namespace platform
