#include "app/preview.h"

#include <atomic>
#include <exception>
#include <utility>

#include "platform/com.h"
#include "show/fit_rule.h"

namespace app {

namespace {

constexpr int kPollMs = 10;

}  // namespace

/// What the worker thread knows: a path and a size in, pixels out.
struct Preview::Job {
    std::wstring path;
    int width = 0;
    int height = 0;
    std::optional<platform::DecodedPicture> picture;
    std::atomic<bool> done = false;
};

Preview::Preview(ui::EventLoop& loop) : poll_(loop, kPollMs) {
    poll_.onTimer = [this] { poll(); };
}

Preview::~Preview() {
    if (worker_.joinable()) {
        worker_.join();
    }
}

void Preview::load(const std::wstring& path, int width, int height) {
    wanted_ = path;
    width_ = width;
    height_ = height;
    if (job_ == nullptr) {
        begin();
    }
}

void Preview::cancel() {
    wanted_.clear();
}

void Preview::begin() {
    job_ = std::make_shared<Job>();
    job_->path = wanted_;
    job_->width = width_;
    job_->height = height_;
    worker_ = std::thread([job = job_] {
        try {
            const platform::ComApartment com;
            job->picture = platform::decodeOntoSurface(job->path, job->width, job->height, [&](int w, int h) {
                const show::PixelRect place = show::fitPicture(w, h, job->width, job->height);
                return platform::Placement{place.left, place.top, place.width, place.height};
            });
        } catch (const std::exception&) {
            // No picture: the preview stays empty.
        }
        job->done = true;
    });
    poll_.setEnabled(true);
}

void Preview::poll() {
    if (!job_->done) {
        return;
    }
    poll_.setEnabled(false);
    worker_.join();
    const std::shared_ptr<Job> job = std::exchange(job_, nullptr);
    if (wanted_.empty()) {
        return;
    }
    if (wanted_ != job->path) {
        begin();
        return;
    }
    wanted_.clear();
    onLoaded(std::move(job->picture));
}

}  // namespace app
