#include "program/support/failure_listener.h"

#include <algorithm>
#include <cstdio>
#include <exception>

#include "program/support/environment.h"
#include "program/support/picture_file.h"
#include "program/support/screen.h"

namespace program {
namespace {

constexpr int kKeptPerTest = 3;

}  // namespace

std::wstring saveScreenshot(const std::string& name) {
    std::wstring file(name.begin(), name.end());
    std::replace_if(
        file.begin(), file.end(), [](wchar_t c) { return c == L'/' || c == L'\\' || c == L':'; }, L'_');
    std::wstring path = failureFolder() + L"\\" + file + L".png";
    try {
        writePng(path, captureScreen());
    } catch (const std::exception& error) {
        std::printf("no screenshot: %s\n", error.what());
        return {};
    }
    return path;
}

void FailureListener::OnTestStart(const testing::TestInfo& test) {
    testName_ = std::string(test.test_suite_name()) + "." + test.name();
    failures_ = 0;
}

void FailureListener::OnTestPartResult(const testing::TestPartResult& result) {
    if (!result.failed() || failures_ >= kKeptPerTest) {
        return;
    }
    ++failures_;
    const std::wstring path = saveScreenshot(testName_ + "-" + std::to_string(failures_));
    std::printf("screenshot: %ls\n", path.c_str());
}

}  // namespace program
