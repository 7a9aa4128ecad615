#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace ui {

/// A colour as 0x00RRGGBB, the layout of a pixel.
using Rgb = std::uint32_t;

struct PathPoint {
    float x = 0;
    float y = 0;
    friend bool operator==(const PathPoint&, const PathPoint&) = default;
};

/// A shape of closed outlines, y growing downwards. Where outlines of the same direction overlap the shape
/// is filled; all shapes here run clockwise, so they add up; roundRectOutline() alone leaves a hole.
class Path {
  public:
    Path& polygon(std::initializer_list<PathPoint> points);
    Path& rect(float left, float top, float width, float height);
    Path& roundRect(float left, float top, float width, float height, float radius);
    /// A rounded rectangle's outline, `width` wide, inside the given edges.
    Path& roundRectOutline(float left, float top, float width, float height, float radius, float lineWidth);
    /// A line with round ends.
    Path& line(PathPoint from, PathPoint to, float width);
    /// Joined lines with round ends and corners.
    Path& lines(std::initializer_list<PathPoint> points, float width);
    /// Part of a circle's outline; angles in degrees, clockwise from the right, `to` beyond `from`.
    Path& arc(float centreX, float centreY, float radius, float from, float to, float width);
    /// Adds another shape, scaled and then moved.
    Path& add(const Path& other, float scale, float left, float top);

    const std::vector<std::vector<PathPoint>>& outlines() const { return outlines_; }

  private:
    std::vector<std::vector<PathPoint>> outlines_;
};

/// Pixels to paint on: rows from top to bottom without padding. The top left pixel is (originX, originY) in
/// the coordinates of the shapes, so that a part of a window can be painted alone.
struct Canvas {
    std::uint32_t* bits = nullptr;
    int width = 0;
    int height = 0;
    int originX = 0;
    int originY = 0;
};

/// Fills a shape with smooth edges; `opacity` is 0 to 1. What lies outside the canvas is dropped.
void fill(const Canvas& canvas, const Path& path, Rgb colour, float opacity = 1.0F);

/// The colour between two: 0 gives `from`, 1 gives `to`.
Rgb blend(Rgb from, Rgb to, float share);

}  // namespace ui
