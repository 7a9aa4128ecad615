#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>

namespace program {

/// How long a state may take to come before a test gives up. Generous: only a failing test ever waits it out.
inline constexpr std::chrono::milliseconds kPatience{20000};

/// Asks `predicate` every few milliseconds until it is true. Fails after `timeout`, naming `what` was
/// awaited.
testing::AssertionResult waitFor(const std::function<bool()>& predicate, std::chrono::milliseconds timeout,
                                 const std::string& what);

/// Fails as soon as `predicate` is false within `duration`: for a state that must last, such as a paused
/// show.
testing::AssertionResult stays(const std::function<bool()>& predicate, std::chrono::milliseconds duration,
                               const std::string& what);

}  // namespace program
