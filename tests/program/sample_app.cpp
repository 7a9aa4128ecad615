// A program with one window that the harness of the program tests is proved on. Its command line says how it
// behaves: "exit=N" ends at once with that code, "crash" reads from nowhere, "hang" stops answering once its
// window is shown, "full" covers the screen with a black window, "restart" starts a second copy and ends.
#include <windows.h>

#include <cstdlib>
#include <string>

#include "program/sample_ids.h"

namespace {

HBRUSH ground = nullptr;

void setGround(HWND window, unsigned rgb) {
    DeleteObject(ground);
    ground = CreateSolidBrush(RGB((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF));
    if (window) {
        InvalidateRect(window, nullptr, TRUE);
    }
}

HWND add(HWND form, const wchar_t* kind, const wchar_t* text, DWORD style, int id, RECT place) {
    return CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top, place.right,
                           place.bottom, form, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr,
                           nullptr);
}

void addControls(HWND form) {
    add(form, L"EDIT", L"", WS_BORDER | ES_READONLY, sample::kTyped, {20, 20, 200, 24});
    add(form, L"BUTTON", L"Häkchen", BS_AUTOCHECKBOX, sample::kTick, {20, 60, 200, 24});
    const HWND list = add(form, L"LISTBOX", L"", WS_BORDER | LBS_NOTIFY, sample::kList, {20, 100, 200, 80});
    for (const wchar_t* entry : {L"eins", L"zwei", L"Übung drei"}) {
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry));
    }
    // A control inside a control: the ids must be found at any depth.
    const HWND pane = add(form, L"SamplePane", L"", 0, sample::kPane, {20, 200, 200, 60});
    add(pane, L"BUTTON", L"Ende", 0, sample::kQuit, {10, 10, 100, 30});
}

LRESULT CALLBACK paneProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_COMMAND && LOWORD(w) == sample::kQuit) {
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(window, message, w, l);
}

void typed(HWND form, wchar_t character) {
    if (character == VK_ESCAPE) {
        PostQuitMessage(0);
        return;
    }
    const HWND box = GetDlgItem(form, sample::kTyped);
    wchar_t text[256] = {};
    GetWindowTextW(box, text, 255);
    SetWindowTextW(box, (std::wstring(text) + character).c_str());
}

LRESULT CALLBACK formProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_ERASEBKGND: {
            RECT area = {};
            GetClientRect(window, &area);
            FillRect(reinterpret_cast<HDC>(w), &area, ground);
            return 1;
        }
        case WM_CHAR:
            typed(window, static_cast<wchar_t>(w));
            return 0;
        case WM_LBUTTONDOWN:
            setGround(window, sample::kLeftClicked);
            return 0;
        case WM_RBUTTONDOWN:
            setGround(window, sample::kRightClicked);
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(window, message, w, l);
    }
}

bool says(const std::wstring& arguments, const wchar_t* word) {
    return arguments.find(word) != std::wstring::npos;
}

void restart() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started = {};
    if (CreateProcessW(path, nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started)) {
        CloseHandle(started.hProcess);
        CloseHandle(started.hThread);
    }
}

void registerClass(const wchar_t* name, WNDPROC procedure) {
    WNDCLASSEXW description = {};
    description.cbSize = sizeof(description);
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = name;
    RegisterClassExW(&description);
}

void openWindow(bool full) {
    registerClass(L"Form1", formProcedure);
    registerClass(L"SamplePane", paneProcedure);
    const int width = full ? GetSystemMetrics(SM_CXSCREEN) : 400;
    const int height = full ? GetSystemMetrics(SM_CYSCREEN) : 300;
    const int left = full ? 0 : 150;
    const int top = full ? 0 : 120;
    const HWND form = CreateWindowExW(0, L"Form1", L"Sample", WS_POPUP, left, top, width, height, nullptr,
                                      nullptr, nullptr, nullptr);
    if (!full) {
        addControls(form);
    }
    ShowWindow(form, SW_SHOW);
    UpdateWindow(form);
    SetFocus(form);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR commandLine, int) {
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    const std::wstring arguments = commandLine;
    if (says(arguments, L"exit=")) {
        return std::stoi(arguments.substr(arguments.find(L'=') + 1));
    }
    if (says(arguments, L"crash")) {
        // An address so low that nothing lies there, which the compiler cannot foresee.
        return *reinterpret_cast<volatile int*>(arguments.size());
    }
    if (says(arguments, L"restart")) {
        restart();
        return 0;
    }
    const bool full = says(arguments, L"full");
    setGround(nullptr, full ? 0 : sample::kFresh);
    openWindow(full);
    if (says(arguments, L"hang")) {
        Sleep(INFINITE);
    }
    MSG message = {};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
