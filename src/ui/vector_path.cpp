#include "ui/vector_path.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

namespace ui {

namespace {

constexpr int kSubLines = 8;
constexpr Rgb kColourBits = 0xFFFFFF;
constexpr float kPi = std::numbers::pi_v<float>;

using Outline = std::vector<PathPoint>;

// Enough corners that the polygon stays within a twentieth of a pixel of the circle.
int cornersFor(float radius) {
    return std::clamp(static_cast<int>(std::ceil(kPi / std::acos(1 - 0.05F / std::max(radius, 0.5F)))), 8,
                      256);
}

void addArc(Outline& outline, PathPoint centre, PathPoint radius, float from, float to) {
    const float share = std::abs(to - from) / (2 * kPi);
    const int corners =
        std::max(2, static_cast<int>(static_cast<float>(cornersFor(std::max(radius.x, radius.y))) * share));
    for (int i = 0; i <= corners; ++i) {
        const float angle = from + (to - from) * static_cast<float>(i) / static_cast<float>(corners);
        outline.push_back({centre.x + radius.x * std::cos(angle), centre.y + radius.y * std::sin(angle)});
    }
}

Outline roundOutline(float left, float top, float width, float height, float radius) {
    const float r = std::max(0.0F, std::min({radius, width / 2, height / 2}));
    Outline outline;
    if (r == 0) {
        return {{left, top}, {left + width, top}, {left + width, top + height}, {left, top + height}};
    }
    addArc(outline, {left + r, top + r}, {r, r}, kPi, 1.5F * kPi);
    addArc(outline, {left + width - r, top + r}, {r, r}, 1.5F * kPi, 2 * kPi);
    addArc(outline, {left + width - r, top + height - r}, {r, r}, 0, 0.5F * kPi);
    addArc(outline, {left + r, top + height - r}, {r, r}, 0.5F * kPi, kPi);
    return outline;
}

struct Crossing {
    float x;
    int direction;
};

void findCrossings(const Path& path, float y, std::vector<Crossing>& found) {
    found.clear();
    for (const Outline& outline : path.outlines()) {
        for (std::size_t i = 0; i < outline.size(); ++i) {
            const PathPoint a = outline[i];
            const PathPoint b = outline[i + 1 < outline.size() ? i + 1 : 0];
            if ((a.y <= y) != (b.y <= y)) {
                found.push_back({a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y), a.y < b.y ? 1 : -1});
            }
        }
    }
    std::sort(found.begin(), found.end(), [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
}

// Adds a span of one sub-line to the row's coverage; its ends cover their pixels in part.
void addSpan(std::vector<float>& coverage, float from, float to) {
    const float width = static_cast<float>(coverage.size());
    from = std::clamp(from, 0.0F, width);
    to = std::clamp(to, 0.0F, width);
    if (to <= from) {
        return;
    }
    constexpr float kShare = 1.0F / kSubLines;
    const auto first = static_cast<std::size_t>(from);
    const auto last = std::min(static_cast<std::size_t>(to), coverage.size() - 1);
    if (first == last) {
        coverage[first] += (to - from) * kShare;
        return;
    }
    coverage[first] += (static_cast<float>(first + 1) - from) * kShare;
    for (std::size_t x = first + 1; x < last; ++x) {
        coverage[x] += kShare;
    }
    coverage[last] += (to - static_cast<float>(last)) * kShare;
}

void paintRow(std::uint32_t* pixels, const std::vector<float>& coverage, Rgb colour, float opacity) {
    const Rgb pure = colour & kColourBits;
    for (std::size_t x = 0; x < coverage.size(); ++x) {
        const float share = std::min(coverage[x], 1.0F) * opacity;
        // Most pixels of a shape are covered whole; mixing them would give the same.
        if (share == 1.0F) {
            pixels[x] = pure;
        } else if (coverage[x] > 0) {
            pixels[x] = blend(pixels[x] & kColourBits, colour, share);
        }
    }
}

struct Extent {
    float top = 0;
    float bottom = 0;
};

Extent verticalExtent(const Path& path) {
    Extent extent;
    bool first = true;
    for (const Outline& outline : path.outlines()) {
        for (const PathPoint& point : outline) {
            extent.top = first ? point.y : std::min(extent.top, point.y);
            extent.bottom = first ? point.y : std::max(extent.bottom, point.y);
            first = false;
        }
    }
    return extent;
}

}  // namespace

Path& Path::polygon(std::initializer_list<PathPoint> points) {
    outlines_.emplace_back(points);
    float area = 0;
    Outline& outline = outlines_.back();
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const PathPoint a = outline[i];
        const PathPoint b = outline[i + 1 < outline.size() ? i + 1 : 0];
        area += a.x * b.y - b.x * a.y;
    }
    if (area < 0) {
        std::reverse(outline.begin(), outline.end());
    }
    return *this;
}

Path& Path::rect(float left, float top, float width, float height) {
    return roundRect(left, top, width, height, 0);
}

Path& Path::roundRect(float left, float top, float width, float height, float radius) {
    outlines_.push_back(roundOutline(left, top, width, height, radius));
    return *this;
}

Path& Path::roundRectOutline(float left, float top, float width, float height, float radius,
                             float lineWidth) {
    roundRect(left, top, width, height, radius);
    if (width > 2 * lineWidth && height > 2 * lineWidth) {
        roundRect(left + lineWidth, top + lineWidth, width - 2 * lineWidth, height - 2 * lineWidth,
                  std::max(0.0F, radius - lineWidth));
        std::reverse(outlines_.back().begin(), outlines_.back().end());
    }
    return *this;
}

Path& Path::line(PathPoint from, PathPoint to, float width) {
    const float angle = std::atan2(to.y - from.y, to.x - from.x);
    const float r = width / 2;
    Outline outline;
    addArc(outline, to, {r, r}, angle - kPi / 2, angle + kPi / 2);
    addArc(outline, from, {r, r}, angle + kPi / 2, angle + 1.5F * kPi);
    outlines_.push_back(std::move(outline));
    return *this;
}

Path& Path::lines(std::initializer_list<PathPoint> points, float width) {
    const std::span corners(points);
    for (std::size_t i = 1; i < corners.size(); ++i) {
        line(corners[i - 1], corners[i], width);
    }
    return *this;
}

Path& Path::arc(float centreX, float centreY, float radius, float from, float to, float width) {
    Outline way;
    addArc(way, {centreX, centreY}, {radius, radius}, from * kPi / 180, to * kPi / 180);
    for (std::size_t i = 1; i < way.size(); ++i) {
        line(way[i - 1], way[i], width);
    }
    return *this;
}

Path& Path::add(const Path& other, float scale, float left, float top) {
    for (const Outline& outline : other.outlines_) {
        Outline& placed = outlines_.emplace_back();
        for (const PathPoint& point : outline) {
            placed.push_back({left + point.x * scale, top + point.y * scale});
        }
    }
    return *this;
}

Rgb blend(Rgb from, Rgb to, float share) {
    Rgb result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const auto a = static_cast<float>((from >> shift) & 0xFF);
        const auto b = static_cast<float>((to >> shift) & 0xFF);
        const float mixed = std::clamp(a + (b - a) * share, 0.0F, 255.0F);
        result |= static_cast<Rgb>(std::lround(mixed)) << shift;
    }
    return result;
}

void fill(const Canvas& canvas, const Path& path, Rgb colour, float opacity) {
    if (canvas.width <= 0 || canvas.height <= 0) {
        return;
    }
    const auto [top, bottom] = verticalExtent(path);
    const auto originY = static_cast<float>(canvas.originY);
    const auto height = static_cast<float>(canvas.height);
    const int firstRow = static_cast<int>(std::floor(std::clamp(top - originY, 0.0F, height)));
    const int endRow = static_cast<int>(std::ceil(std::clamp(bottom - originY, 0.0F, height)));
    const auto originX = static_cast<float>(canvas.originX);
    std::vector<float> coverage(static_cast<std::size_t>(canvas.width));
    std::vector<Crossing> crossings;
    for (int row = firstRow; row < endRow; ++row) {
        std::fill(coverage.begin(), coverage.end(), 0.0F);
        for (int sub = 0; sub < kSubLines; ++sub) {
            const float offset = (static_cast<float>(sub) + 0.5F) / kSubLines;
            findCrossings(path, originY + static_cast<float>(row) + offset, crossings);
            int winding = 0;
            for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
                winding += crossings[i].direction;
                if (winding != 0) {
                    addSpan(coverage, crossings[i].x - originX, crossings[i + 1].x - originX);
                }
            }
        }
        std::uint32_t* pixels =
            canvas.bits + static_cast<std::size_t>(row) * static_cast<std::size_t>(canvas.width);
        paintRow(pixels, coverage, colour, opacity);
    }
}

}  // namespace ui
