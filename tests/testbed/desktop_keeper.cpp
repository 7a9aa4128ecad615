// A hidden window that keeps Wine's desktop up until the process is ended. Wine takes its desktop down a
// second after the last program with a window has gone; one that starts just then would have to bring it up
// again and meets another ground than the one before it.
#include <windows.h>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    if (CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, instance, nullptr) ==
        nullptr) {
        return 1;
    }
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    return 0;
}
