#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

#include "picture/pixels.h"
#include "platform/handles.h"

namespace picture {

/// A 32-bit top-down bitmap with a device context of its own: what a picture box keeps its image in.
/// A surface of width or height 0 holds nothing and paints nothing.
class Surface {
  public:
    Surface() = default;
    /// Black. Throws platform::Error when the system has no memory for it.
    Surface(int width, int height);
    Surface(Surface&& other) noexcept;
    Surface& operator=(Surface&& other) noexcept;
    ~Surface();

    int width() const { return width_; }
    int height() const { return height_; }
    bool empty() const { return bits_ == nullptr; }
    /// Null for an empty surface.
    HDC dc() const { return dc_.get(); }
    /// Rows from top to bottom, `width` values of 0x00RRGGBB each; finish GDI's own drawing first (GdiFlush).
    std::uint32_t* bits() const { return bits_; }

    /// The whole image to be written to, as bits() is.
    Canvas canvas() const { return {bits_, width_, height_}; }

    void fill(COLORREF colour);
    /// Copies pixels to (left, top); what lies outside the surface is dropped.
    void put(const Pixels& pixels, int left = 0, int top = 0);
    /// Paints the whole image into (0, 0) ... `size` of a device context, smoothly.
    void stretchTo(HDC dc, const SIZE& size) const;
    SIZE size() const { return {width_, height_}; }
    /// A copy of the whole image.
    Pixels pixels() const;
    /// Copies another surface's image of the same size; another size makes this one that size first.
    void copyFrom(const Surface& other);

  private:
    void release();

    int width_ = 0;
    int height_ = 0;
    platform::MemoryDc dc_;
    platform::Bitmap bitmap_;
    std::unique_ptr<platform::Selection> selection_;
    std::uint32_t* bits_ = nullptr;
};

}  // namespace picture
