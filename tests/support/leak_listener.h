#pragma once

#include <gtest/gtest.h>

#include <array>

#include "platform/handles.h"

namespace support {

inline constexpr std::size_t kHandleKinds = static_cast<std::size_t>(platform::HandleKind::Count);

/// The live count of every kind of handle.
inline std::array<int, kHandleKinds> liveHandles() {
    std::array<int, kHandleKinds> counts{};
    for (std::size_t i = 0; i < kHandleKinds; ++i) {
        counts[i] = platform::HandleCounts::live(static_cast<platform::HandleKind>(i));
    }
    return counts;
}

/// Fails every test that ends with more (or fewer) handles than it began with.
class LeakListener : public testing::EmptyTestEventListener {
  public:
    void OnTestStart(const testing::TestInfo&) override { before_ = liveHandles(); }
    void OnTestEnd(const testing::TestInfo& test) override {
        const auto after = liveHandles();
        for (std::size_t i = 0; i < kHandleKinds; ++i) {
            if (after[i] != before_[i]) {
                ADD_FAILURE() << test.test_suite_name() << '.' << test.name()
                              << " changed the live handles of kind " << i << " from " << before_[i] << " to "
                              << after[i];
            }
        }
    }

  private:
    std::array<int, kHandleKinds> before_{};
};

}  // namespace support
