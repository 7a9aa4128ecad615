#include <gmock/gmock.h>
#include <windows.h>

#include <objbase.h>

#include "program/support/failure_listener.h"

int main(int count, char** arguments) {
    // Screen coordinates and captures must be real pixels, whatever scaling the desktop has.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    testing::InitGoogleMock(&count, arguments);
    testing::UnitTest::GetInstance()->listeners().Append(new program::FailureListener);
    const int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}
