#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace picture {

/// A picture in memory that somebody else owns: rows from top to bottom without padding, one 0x00RRGGBB value
/// a pixel.
struct Canvas {
    std::uint32_t* data = nullptr;
    int width = 0;
    int height = 0;

    std::uint32_t* row(int y) const {
        return data + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    }
};

/// A picture in memory: rows from top to bottom without padding, one 0x00RRGGBB value a pixel, which is
/// the layout of a 32-bit top-down device-independent bitmap.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> data;

    Pixels() = default;
    Pixels(int w, int h)
        : width(w), height(h), data(static_cast<std::size_t>(w) * static_cast<std::size_t>(h)) {}

    bool empty() const { return data.empty(); }
    std::uint32_t* row(int y) { return data.data() + offset(y); }
    const std::uint32_t* row(int y) const { return data.data() + offset(y); }
    /// The pixels to be written to, as long as the object keeps its size.
    operator Canvas() { return {data.data(), width, height}; }

  private:
    std::size_t offset(int y) const { return static_cast<std::size_t>(y) * static_cast<std::size_t>(width); }
};

}  // namespace picture
