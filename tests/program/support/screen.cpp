#include "program/support/screen.h"

#include "platform/error.h"

namespace program {
namespace {

BITMAPINFO topDown(int width, int height) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

picture::Pixels captureArea(int left, int top, int width, int height) {
    const BITMAPINFO info = topDown(width, height);
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    const BOOL copied = BitBlt(memory, 0, 0, width, height, screen, left, top, SRCCOPY | CAPTUREBLT);
    const DWORD error = GetLastError();
    GdiFlush();
    picture::Pixels pixels(width, height);
    if (copied && bits) {
        const auto* source = static_cast<const std::uint32_t*>(bits);
        for (std::size_t i = 0; i < pixels.data.size(); ++i) {
            pixels.data[i] = source[i] & 0xFFFFFF;
        }
    }
    SelectObject(memory, previous);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    if (!copied || !bits) {
        throw platform::Error("BitBlt", error);
    }
    return pixels;
}

}  // namespace

SIZE screenSize() {
    return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

picture::Pixels captureScreen() {
    const SIZE size = screenSize();
    return captureArea(0, 0, size.cx, size.cy);
}

std::uint32_t colourAt(POINT place) {
    return captureArea(place.x, place.y, 1, 1).data.front();
}

}  // namespace program
