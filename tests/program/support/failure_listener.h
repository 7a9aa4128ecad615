#pragma once

#include <gtest/gtest.h>

#include <string>

namespace program {

/// Saves what the screen shows as a PNG file named after `name` and returns its path; empty when it cannot.
std::wstring saveScreenshot(const std::string& name);

/// Keeps a screenshot of the first failures of every test, named after the test, taken the moment they are
/// noticed.
class FailureListener : public testing::EmptyTestEventListener {
  public:
    void OnTestStart(const testing::TestInfo& test) override;
    void OnTestPartResult(const testing::TestPartResult& result) override;

  private:
    std::string testName_;
    int failures_ = 0;
};

}  // namespace program
