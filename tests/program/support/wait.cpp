#include "program/support/wait.h"

#include <windows.h>

namespace program {
namespace {

constexpr DWORD kPollInterval = 10;

}  // namespace

testing::AssertionResult waitFor(const std::function<bool()>& predicate, std::chrono::milliseconds timeout,
                                 const std::string& what) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!predicate()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return testing::AssertionFailure() << what << ": not within " << timeout.count() << " ms";
        }
        Sleep(kPollInterval);
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult stays(const std::function<bool()>& predicate, std::chrono::milliseconds duration,
                               const std::string& what) {
    const auto start = std::chrono::steady_clock::now();
    for (;;) {
        const auto passed = std::chrono::steady_clock::now() - start;
        if (!predicate()) {
            return testing::AssertionFailure()
                   << what << ": no longer so after "
                   << std::chrono::duration_cast<std::chrono::milliseconds>(passed).count() << " ms";
        }
        if (passed >= duration) {
            return testing::AssertionSuccess();
        }
        Sleep(kPollInterval);
    }
}

}  // namespace program
