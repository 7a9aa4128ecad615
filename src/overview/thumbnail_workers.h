#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "picture/picture_decoder.h"
#include "picture/pixels.h"

namespace overview {

/// A thumbnail to be made.
struct ThumbnailJob {
    int item = 0;           ///< told back with the result, and so is the version
    int version = 0;        ///< of the item's file: a result of a former one is of no use
    std::wstring path;      ///< of the picture; empty: only what is kept of it counts
    std::wstring kept;      ///< of its bitmap in the store, which comes first; empty for none
    bool embedded = false;  ///< whether the camera's own thumbnail will do
    int width = 0;          ///< pixels
    int height = 0;
    picture::ColourTarget colours{};
};

struct ThumbnailResult {
    int item = 0;
    int version = 0;
    std::optional<picture::Pixels> pixels;  ///< none where the picture cannot be decoded
};

/// Makes one thumbnail, by the fit rule on black. May be called on any thread.
std::optional<picture::Pixels> makeThumbnail(const ThumbnailJob& job);

/// Threads that make thumbnails, as many as the machine has cores. They know paths and pixels and nothing
/// else.
class ThumbnailWorkers {
  public:
    ThumbnailWorkers();
    /// Waits for the thumbnails that are being made.
    ~ThumbnailWorkers();
    ThumbnailWorkers(const ThumbnailWorkers&) = delete;
    ThumbnailWorkers& operator=(const ThumbnailWorkers&) = delete;

    /// Puts these in the place of all jobs that have not begun; the first one comes first. Items that are
    /// under way are to be left out.
    void setJobs(std::deque<ThumbnailJob> jobs);
    /// Drops what has not begun, and waits for what has.
    void finish();
    /// The next result; none when there is none yet.
    std::optional<ThumbnailResult> take();
    /// Whether anything is left to do or to be taken.
    bool busy();
    /// The items that are being made now or whose results wait.
    std::vector<int> underWay();

  private:
    void work();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<ThumbnailJob> jobs_;
    std::vector<int> making_;
    std::deque<ThumbnailResult> results_;
    bool stopping_ = false;
    std::vector<std::thread> threads_;
};

}  // namespace overview
