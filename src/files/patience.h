#pragma once

#include <functional>

#include "files/file_system.h"

namespace files {

/// How time passes while files are changed: the caller lets its window paint meanwhile.
struct Waiting {
    std::function<double()> now;        ///< milliseconds of a steady clock
    std::function<void(int ms)> pause;  ///< lets about so many milliseconds pass, before another attempt
    std::function<void()> step{};       ///< called between one file and the next; may be empty
};

/// Tries operations again that another program is in the way of, for three seconds in all.
class Patience {
  public:
    explicit Patience(const Waiting& waiting) : waiting_(waiting) {}

    /// Calls `operation`, which returns a Failure, until it ends otherwise than by a failure that may pass or
    /// the time is over, and returns the last result.
    template <typename Operation>
    Failure until(const Operation& operation) {
        Failure result = operation();
        while (mayPass(result) && spent_ < kMost) {
            const double before = waiting_.now();
            waiting_.pause(kPause);
            // A clock that stands still must not keep the program waiting for ever.
            const double passed = waiting_.now() - before;
            spent_ += passed > 1 ? passed : kPause;
            result = operation();
        }
        return result;
    }

    /// Between two files.
    void step() const {
        if (waiting_.step) {
            waiting_.step();
        }
    }

    /// Gives the full time again: for the way back.
    void renew() { spent_ = 0; }

  private:
    static constexpr double kMost = 3000;
    static constexpr int kPause = 50;

    const Waiting& waiting_;
    double spent_ = 0;
};

}  // namespace files
