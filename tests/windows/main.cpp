// The in-process tests: real controls, real files, one window thread. Each test must give back every handle
// that it took.
#include <gmock/gmock.h>
#include <objbase.h>

#include "support/leak_listener.h"

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
        return 1;
    }
    testing::UnitTest::GetInstance()->listeners().Append(new support::LeakListener);
    const int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}
