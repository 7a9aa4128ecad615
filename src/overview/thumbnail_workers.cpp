#include "overview/thumbnail_workers.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "overview/box_picture.h"
#include "overview/thumbnail_store.h"
#include "picture/colour_match.h"
#include "platform/com.h"
#include "show/fit_rule.h"

namespace overview {

namespace {

std::optional<picture::Pixels> keptThumbnail(const ThumbnailJob& job) {
    auto pixels = readThumbnail(job.kept);
    if (!pixels) {
        return std::nullopt;
    }
    if (pixels->width != job.width || pixels->height != job.height) {
        *pixels = scaledTo(*pixels, job.width, job.height);
    }
    if (job.colours) {
        picture::colourMatch().convert(*pixels, {0, 0, job.width, job.height}, {}, *job.colours);
    }
    return pixels;
}

}  // namespace

std::optional<picture::Pixels> makeThumbnail(const ThumbnailJob& job) {
    if (!job.kept.empty()) {
        if (auto kept = keptThumbnail(job)) {
            return kept;
        }
    }
    if (job.path.empty()) {
        return std::nullopt;
    }
    const auto fit = [&](int width, int height) {
        const show::PixelRect place = show::fitPicture(width, height, job.width, job.height);
        return picture::Placement{place.left, place.top, place.width, place.height};
    };
    try {
        if (job.embedded) {
            if (auto small =
                    picture::decodeEmbeddedThumbnail(job.path, job.width, job.height, fit, job.colours)) {
                return std::move(small->pixels);
            }
        }
        return picture::decodeOntoSurface(job.path, job.width, job.height, fit, job.colours).pixels;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

ThumbnailWorkers::ThumbnailWorkers() {
    const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
    for (unsigned i = 0; i < cores; ++i) {
        threads_.emplace_back([this] { work(); });
    }
}

ThumbnailWorkers::~ThumbnailWorkers() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
        jobs_.clear();
    }
    changed_.notify_all();
    for (std::thread& thread : threads_) {
        thread.join();
    }
}

void ThumbnailWorkers::setJobs(std::deque<ThumbnailJob> jobs) {
    {
        const std::lock_guard lock(mutex_);
        jobs_ = std::move(jobs);
    }
    changed_.notify_all();
}

void ThumbnailWorkers::finish() {
    std::unique_lock lock(mutex_);
    jobs_.clear();
    changed_.wait(lock, [this] { return making_.empty(); });
}

std::optional<ThumbnailResult> ThumbnailWorkers::take() {
    const std::lock_guard lock(mutex_);
    if (results_.empty()) {
        return std::nullopt;
    }
    ThumbnailResult result = std::move(results_.front());
    results_.pop_front();
    return result;
}

bool ThumbnailWorkers::busy() {
    const std::lock_guard lock(mutex_);
    return !jobs_.empty() || !making_.empty() || !results_.empty();
}

std::vector<int> ThumbnailWorkers::underWay() {
    const std::lock_guard lock(mutex_);
    std::vector<int> items = making_;
    for (const ThumbnailResult& result : results_) {
        items.push_back(result.item);
    }
    return items;
}

void ThumbnailWorkers::work() {
    // For the pictures that the system decodes.
    const platform::ComApartment apartment;
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return stopping_ || !jobs_.empty(); });
        if (stopping_) {
            return;
        }
        const ThumbnailJob job = std::move(jobs_.front());
        jobs_.pop_front();
        making_.push_back(job.item);
        lock.unlock();
        ThumbnailResult result{job.item, job.version, makeThumbnail(job)};
        lock.lock();
        making_.erase(std::find(making_.begin(), making_.end(), job.item));
        results_.push_back(std::move(result));
        changed_.notify_all();
    }
}

}  // namespace overview
