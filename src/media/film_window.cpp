#include "media/film_window.h"

#include <dwmapi.h>

#include "media/media_text.h"
#include "platform/handles.h"
#include "platform/short_path.h"

namespace media {

namespace {

BOOL CALLBACK disable(HWND child, LPARAM) {
    EnableWindow(child, FALSE);
    return TRUE;
}

RECT clientOnScreen(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

/// Windows of the store apps that wait in the background count as visible but are not shown.
bool isCloaked(HWND window) {
    // Asked for once in a long while: the library is not worth being loaded at every start.
    using Ask = HRESULT(WINAPI*)(HWND, DWORD, PVOID, DWORD);
    const HMODULE library = LoadLibraryW(L"dwmapi.dll");
    const auto ask =
        library != nullptr
            ? reinterpret_cast<Ask>(reinterpret_cast<void*>(GetProcAddress(library, "DwmGetWindowAttribute")))
            : nullptr;
    DWORD cloaked = 0;
    return ask != nullptr && SUCCEEDED(ask(window, DWMWA_CLOAKED, &cloaked, sizeof cloaked)) && cloaked != 0;
}

bool covers(HWND window, const RECT& area) {
    RECT place{};
    RECT common{};
    return IsWindowVisible(window) != FALSE && IsIconic(window) == FALSE &&
           GetWindowRect(window, &place) != FALSE && IntersectRect(&common, &place, &area) != FALSE &&
           !isCloaked(window);
}

}  // namespace

MediaReply openFilm(MediaControl& control, const std::wstring& path, const ui::PictureBox& box) {
    MediaReply reply = control.send("open " + platform::shortPath(path) + " alias VIDEO parent " +
                                    handleText(box.hwnd()) + " style child");
    disableChildren(box.hwnd());
    return reply;
}

void fitFilm(MediaControl& control, const ui::PictureBox& box) {
    const float twips = ui::twipsPerPixel(box.dpi());
    const std::string command =
        "put VIDEO window at 0 0 " + pixelText(box.width() / twips) + " " + pixelText(box.height() / twips);
    // The blank in front is the command's own form; a device that does not know it gets it without.
    if (control.send(" " + command).error != 0) {
        control.send(command);
    }
}

void disableChildren(HWND parent) {
    EnumChildWindows(parent, disable, 0);
}

bool isUncovered(HWND window) {
    if (IsWindowVisible(window) == FALSE || IsIconic(GetAncestor(window, GA_ROOT)) != FALSE) {
        return false;
    }
    const RECT area = clientOnScreen(window);
    // What lies over a window: its siblings above it, and those of every window around it.
    for (HWND level = window; level != nullptr; level = GetAncestor(level, GA_PARENT)) {
        for (HWND above = GetWindow(level, GW_HWNDPREV); above != nullptr;
             above = GetWindow(above, GW_HWNDPREV)) {
            if (covers(above, area)) {
                return false;
            }
        }
    }
    return true;
}

bool copyFromScreen(HWND window, const picture::Surface& frame) {
    const RECT area = clientOnScreen(window);
    const platform::WindowDc screen(nullptr);
    SetStretchBltMode(frame.dc(), HALFTONE);
    SetBrushOrgEx(frame.dc(), 0, 0, nullptr);
    return StretchBlt(frame.dc(), 0, 0, frame.width(), frame.height(), screen.get(), area.left, area.top,
                      area.right - area.left, area.bottom - area.top, SRCCOPY | CAPTUREBLT) != FALSE;
}

}  // namespace media
