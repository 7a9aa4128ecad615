#include "picture/surface.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/error.h"

namespace picture {

Surface::Surface(int width, int height) {
    if (width <= 0 || height <= 0) {
        return;
    }
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    dc_ = platform::MemoryDc(CreateCompatibleDC(nullptr));
    if (!dc_) {
        throw platform::Error("CreateCompatibleDC", GetLastError());
    }
    bitmap_ = platform::Bitmap(CreateDIBSection(dc_.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap_) {
        throw platform::Error("CreateDIBSection", GetLastError());
    }
    selection_ = std::make_unique<platform::Selection>(dc_.get(), bitmap_.get());
    bits_ = static_cast<std::uint32_t*>(bits);
    width_ = width;
    height_ = height;
}

Surface::Surface(Surface&& other) noexcept {
    *this = std::move(other);
}

Surface& Surface::operator=(Surface&& other) noexcept {
    if (this != &other) {
        release();
        width_ = std::exchange(other.width_, 0);
        height_ = std::exchange(other.height_, 0);
        dc_ = std::move(other.dc_);
        bitmap_ = std::move(other.bitmap_);
        selection_ = std::move(other.selection_);
        bits_ = std::exchange(other.bits_, nullptr);
    }
    return *this;
}

Surface::~Surface() {
    release();
}

// The bitmap must be out of its device context before either can be deleted.
void Surface::release() {
    selection_.reset();
    bitmap_.reset();
    dc_.reset();
    bits_ = nullptr;
    width_ = 0;
    height_ = 0;
}

void Surface::fill(COLORREF colour) {
    if (empty()) {
        return;
    }
    GdiFlush();
    const std::uint32_t value = static_cast<std::uint32_t>(GetRValue(colour)) << 16 |
                                static_cast<std::uint32_t>(GetGValue(colour)) << 8 | GetBValue(colour);
    std::fill_n(bits_, static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), value);
}

void Surface::put(const Pixels& pixels, int left, int top) {
    if (empty() || pixels.empty()) {
        return;
    }
    GdiFlush();
    const int from = std::max(0, -left);
    const int until = std::min(pixels.width, width_ - left);
    if (until <= from) {
        return;
    }
    for (int y = std::max(0, -top); y < std::min(pixels.height, height_ - top); ++y) {
        std::uint32_t* target = bits_ + static_cast<std::ptrdiff_t>(y + top) * width_ + left + from;
        std::memcpy(target, pixels.row(y) + from, static_cast<std::size_t>(until - from) * sizeof(*target));
    }
}

void Surface::stretchTo(HDC dc, const SIZE& size) const {
    SetStretchBltMode(dc, HALFTONE);
    SetBrushOrgEx(dc, 0, 0, nullptr);
    StretchBlt(dc, 0, 0, size.cx, size.cy, dc_.get(), 0, 0, width_, height_, SRCCOPY);
}

Pixels Surface::pixels() const {
    Pixels copy(width_, height_);
    if (!empty()) {
        GdiFlush();
        std::copy_n(bits_, copy.data.size(), copy.data.begin());
    }
    return copy;
}

void Surface::copyFrom(const Surface& other) {
    if (width_ != other.width_ || height_ != other.height_) {
        *this = Surface(other.width_, other.height_);
    }
    if (!empty()) {
        GdiFlush();
        std::copy_n(other.bits_, static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), bits_);
    }
}

}  // namespace picture
