#pragma once

#include <windows.h>

#include <functional>

namespace bench {

/// An event loop (`Base`) that tells when it has nothing left to do: what was drawn is on its way to the
/// screen then.
template <typename Base>
class IdleLoop : public Base {
  public:
    std::function<void()> onIdle;

  protected:
    void block(double due) override {
        GdiFlush();
        if (onIdle) {
            onIdle();
        }
        Base::block(due);
    }
};

}  // namespace bench
