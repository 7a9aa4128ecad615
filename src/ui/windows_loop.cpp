#include "ui/windows_loop.h"

#include <algorithm>
#include <cmath>

#include "platform/error.h"
#include "platform/wine.h"

#ifndef CREATE_WAITABLE_TIMER_HIGH_RESOLUTION
#define CREATE_WAITABLE_TIMER_HIGH_RESOLUTION 0x00000002
#endif

namespace ui {

namespace {

constexpr wchar_t kWakeUpClass[] = L"PanorellWakeUp";
constexpr UINT_PTR kWakeUpTimer = 1;
constexpr double kHundredNanosecondsPerMs = 10'000;

double counterFrequency() {
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(frequency.QuadPart) / 1000.0;
}

platform::Object createWaitable() {
    HANDLE timer =
        CreateWaitableTimerExW(nullptr, nullptr, CREATE_WAITABLE_TIMER_HIGH_RESOLUTION, TIMER_ALL_ACCESS);
    if (timer == nullptr) {
        timer = CreateWaitableTimerExW(nullptr, nullptr, 0, TIMER_ALL_ACCESS);
    }
    return platform::Object(timer);
}

}  // namespace

WindowsLoop::WindowsLoop() : ticksPerMs_(counterFrequency()), waitable_(createWaitable()) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = wakeUpProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kWakeUpClass;
    RegisterClassW(&windowClass);
    wakeUp_ = CreateWindowExW(0, kWakeUpClass, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    if (wakeUp_ == nullptr) {
        throw platform::Error("CreateWindowExW", GetLastError());
    }
    SetWindowLongPtrW(wakeUp_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

WindowsLoop::~WindowsLoop() {
    DestroyWindow(wakeUp_);
    UnregisterClassW(kWakeUpClass, GetModuleHandleW(nullptr));
}

double WindowsLoop::now() const {
    LARGE_INTEGER counter{};
    QueryPerformanceCounter(&counter);
    return static_cast<double>(counter.QuadPart) / ticksPerMs_;
}

double WindowsLoop::timeOfDay() const {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return time.wHour * 3600.0 + time.wMinute * 60.0 + time.wSecond + time.wMilliseconds / 1000.0;
}

void WindowsLoop::block(double due) {
    DWORD objects = 0;
    DWORD timeout = INFINITE;
    const HANDLE waitable = waitable_.get();
    if (due >= 0) {
        const double remaining = due - now();
        if (remaining <= 0) {
            return;
        }
        timeout = static_cast<DWORD>(std::ceil(remaining));
        LARGE_INTEGER relative{};
        relative.QuadPart = -static_cast<LONGLONG>(remaining * kHundredNanosecondsPerMs);
        if (waitable != nullptr && relative.QuadPart < 0 &&
            SetWaitableTimer(waitable, &relative, 0, nullptr, nullptr, FALSE) != FALSE) {
            objects = 1;
        }
    }
    MsgWaitForMultipleObjectsEx(objects, &waitable, timeout, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

void WindowsLoop::blockFor(double ms) {
    platform::showPainted();
    const HANDLE waitable = waitable_.get();
    LARGE_INTEGER relative{};
    relative.QuadPart = -static_cast<LONGLONG>(ms * kHundredNanosecondsPerMs);
    if (waitable != nullptr && SetWaitableTimer(waitable, &relative, 0, nullptr, nullptr, FALSE) != FALSE) {
        WaitForSingleObject(waitable, static_cast<DWORD>(ms) + 1000);
    } else {
        Sleep(static_cast<DWORD>(std::ceil(ms)));
    }
}

// The window timer serves modal loops only, where the system's coarser resolution does; it is moved only when
// it would wake too late, since effects restart their timer a hundred times a second.
void WindowsLoop::timersChanged() {
    const double due = nextDue();
    if (wakeUp_ == nullptr || due < 0 || (armedFor_ >= now() && armedFor_ <= due)) {
        return;
    }
    armedFor_ = due;
    SetTimer(wakeUp_, kWakeUpTimer, static_cast<UINT>(std::max(0.0, std::ceil(due - now()))), nullptr);
}

LRESULT CALLBACK WindowsLoop::wakeUpProc(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_TIMER) {
        auto* loop = reinterpret_cast<WindowsLoop*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        KillTimer(window, kWakeUpTimer);
        loop->armedFor_ = -1;
        loop->fireTimers();
        loop->timersChanged();
        return 0;
    }
    return DefWindowProcW(window, message, w, l);
}

}  // namespace ui
