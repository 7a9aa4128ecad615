#pragma once

#include <cstdlib>

namespace fuzz {

/// A finding, for libFuzzer: ends the process with the input that led here.
inline void check(bool condition) {
    if (!condition) {
        std::abort();
    }
}

}  // namespace fuzz
