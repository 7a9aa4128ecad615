#include "picture/area_average.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "picture/scale_kernels.h"

namespace picture {

namespace {

/// What one target row or column is made of: `pairs` pairs of neighbouring source rows or columns, the
/// first of them `first`, and their weights from index `weights` on.
struct Window {
    int first = 0;
    int count = 0;
    std::size_t weights = 0;
};

struct Axis {
    std::vector<Window> windows;
    std::vector<WeightPair> weights;
    int first = 0;  ///< the first source row or column that is needed
    int end = 0;    ///< the one after the last

    void add(int firstSource, const std::vector<int>& values) {
        windows.push_back({firstSource, static_cast<int>(values.size()), weights.size()});
        for (std::size_t i = 0; i < values.size(); i += 2) {
            weights.push_back(weightPair(values[i], i + 1 < values.size() ? values[i + 1] : 0));
        }
    }
};

/// Area under target pixel `t` when `source` pixels become `target` of them, in units of 1/target source
/// pixels. Weights come from rounded running sums, so they add up to kWeightOne whatever the ratio.
void addMean(Axis& axis, std::int64_t source, std::int64_t target, std::int64_t t, int origin) {
    const std::int64_t from = t * source;
    const std::int64_t to = from + source;
    const std::int64_t first = from / target;
    const std::int64_t end = (to + target - 1) / target;
    std::vector<int> values;
    std::int64_t sumBefore = 0;
    for (std::int64_t i = first; i < end; ++i) {
        const std::int64_t reached = std::min((i + 1) * target, to) - from;
        const std::int64_t sum = (reached * kWeightOne + source / 2) / source;
        values.push_back(static_cast<int>(sum - sumBefore));
        sumBefore = sum;
    }
    axis.add(origin + static_cast<int>(first), values);
}

void addInterpolation(Axis& axis, std::int64_t source, std::int64_t target, std::int64_t t, int origin) {
    // Twice the centre's distance from the first source pixel's centre, in units of 1/target source pixels.
    const std::int64_t centre = (2 * t + 1) * source - target;
    const std::int64_t clamped = std::clamp<std::int64_t>(centre, 0, 2 * target * (source - 1));
    const std::int64_t first = clamped / (2 * target);
    const std::int64_t rest = clamped - first * 2 * target;
    const int second = static_cast<int>((rest * kWeightOne + target) / (2 * target));
    if (second == 0) {
        axis.add(origin + static_cast<int>(first), {kWeightOne});
    } else {
        axis.add(origin + static_cast<int>(first), {kWeightOne - second, second});
    }
}

Axis planAxis(int origin, int source, int target, int visibleFrom, int visibleCount) {
    Axis axis;
    axis.windows.reserve(static_cast<std::size_t>(visibleCount));
    for (int t = visibleFrom; t < visibleFrom + visibleCount; ++t) {
        if (source >= target) {
            addMean(axis, source, target, t, origin);
        } else {
            addInterpolation(axis, source, target, t, origin);
        }
    }
    axis.first = axis.windows.front().first;
    axis.end = axis.windows.back().first + axis.windows.back().count;
    return axis;
}

/// A few source rows at a time, each read once. Rows still needed move to the front when new ones come.
class RowBuffer {
  public:
    RowBuffer(RowSource& source, int x, int width, int endRow)
        : source_(source), x_(x), width_(width), endRow_(endRow) {
        constexpr std::size_t kAlignment = 32;
        constexpr std::size_t kCacheBytes = std::size_t{256} * 1024;
        const std::size_t rowBytes = static_cast<std::size_t>(width) * kBytesPerPixel;
        stride_ = (rowBytes + kAlignment - 1) / kAlignment * kAlignment;
        capacity_ = static_cast<int>(std::max<std::size_t>(8, kCacheBytes / stride_));
        bytes_.resize(stride_ * static_cast<std::size_t>(capacity_));
    }

    std::size_t stride() const { return stride_; }
    /// As many rows as can be held at once.
    int capacity() const { return capacity_; }

    /// The rows from `first` on, at least `count` of them (at most capacity()). Rows before `first` are gone.
    const std::uint8_t* rows(int first, int count) {
        if (first + count > nextRow_) {
            fill(first);
        }
        return bytes_.data() + static_cast<std::size_t>(first - firstRow_) * stride_;
    }

  private:
    void fill(int first) {
        const int kept = std::max(0, nextRow_ - first);
        if (kept > 0) {
            std::memmove(bytes_.data(), bytes_.data() + static_cast<std::size_t>(first - firstRow_) * stride_,
                         static_cast<std::size_t>(kept) * stride_);
        }
        firstRow_ = first;
        const int from = first + kept;
        const int count = std::min(capacity_ - kept, endRow_ - from);
        source_.read(x_, from, width_, count, bytes_.data() + static_cast<std::size_t>(kept) * stride_,
                     stride_);
        nextRow_ = from + count;
    }

    RowSource& source_;
    int x_;
    int width_;
    int endRow_;
    int capacity_ = 0;
    std::size_t stride_ = 0;
    std::vector<std::uint8_t> bytes_;
    int firstRow_ = 0;
    int nextRow_ = 0;  ///< the row after the last one held
};

/// Adds up the rows of one window, in portions where they do not fit into the buffer together.
void sumRows(RowBuffer& buffer, const Window& window, const WeightPair* weights, std::size_t samples,
             std::vector<std::int32_t>& sums, std::int16_t* target) {
    const int most = buffer.capacity() / 2 * 2;
    int done = 0;
    bool carry = false;
    while (window.count - done > most) {
        const std::uint8_t* rows = buffer.rows(window.first + done, most);
        sums.resize(samples);
        addWeightedRows(rows, buffer.stride(), most, weights + done / 2, samples,
                        carry ? sums.data() : nullptr, sums.data());
        carry = true;
        done += most;
    }
    const int rest = window.count - done;
    const std::uint8_t* rows = buffer.rows(window.first + done, rest);
    weightedRows(rows, buffer.stride(), rest, weights + done / 2, samples, carry ? sums.data() : nullptr,
                 target);
}

}  // namespace

void scalePicture(const ScaleJob& job, RowSource& source, const PixelView& target) {
    if (job.visible.width <= 0 || job.visible.height <= 0) {
        return;
    }
    const Axis columns =
        planAxis(job.source.left, job.source.width, job.width, job.visible.left, job.visible.width);
    const Axis rows =
        planAxis(job.source.top, job.source.height, job.height, job.visible.top, job.visible.height);

    const int width = columns.end - columns.first;
    RowBuffer buffer(source, columns.first, width, rows.end);
    const std::size_t samples = buffer.stride();
    std::vector<std::int32_t> sums;
    // Columns are read in pairs of four samples each, which may reach past the last pixel.
    std::vector<std::int16_t> line(samples + 8);

    for (int y = 0; y < job.visible.height; ++y) {
        const Window& window = rows.windows[static_cast<std::size_t>(y)];
        sumRows(buffer, window, rows.weights.data() + window.weights, samples, sums, line.data());
        std::uint32_t* pixel = target.at(0, y);
        for (const Window& column : columns.windows) {
            *pixel =
                weightedPixel(line.data() + std::ptrdiff_t{column.first - columns.first} * kBytesPerPixel,
                              (column.count + 1) / 2, columns.weights.data() + column.weights);
            pixel += target.xStep;
        }
    }
}

}  // namespace picture
