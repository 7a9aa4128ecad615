#include "show/preview.h"

#include <atomic>
#include <exception>
#include <utility>

#include "show/fit_rule.h"

namespace show {

namespace {

constexpr int kPollMs = 10;

}  // namespace

/// What the worker thread knows: a path and a size in, pixels out.
struct Preview::Job {
    std::wstring path;
    int width = 0;
    int height = 0;
    picture::ColourTarget colours;
    std::optional<picture::DecodedPicture> picture;
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

void Preview::load(const std::wstring& path, int width, int height, const picture::ColourTarget& colours) {
    wanted_ = path;
    width_ = width;
    height_ = height;
    colours_ = colours;
    // Begun by the next tick: a show that starts at once cancels the wish, and its own decode has the machine
    // to itself.
    poll_.setEnabled(true);
}

void Preview::cancel() {
    wanted_.clear();
}

void Preview::begin() {
    job_ = std::make_shared<Job>();
    job_->path = wanted_;
    job_->width = width_;
    job_->height = height_;
    job_->colours = colours_;
    worker_ = std::thread([job = job_] {
        try {
            const auto fit = [&](int width, int height) {
                const PixelRect place = fitPicture(width, height, job->width, job->height);
                return picture::Placement{place.left, place.top, place.width, place.height};
            };
            job->picture = picture::decodeOntoSurface(job->path, job->width, job->height, fit, job->colours);
        } catch (const std::exception&) {
            // No picture: the preview stays empty.
        }
        job->done = true;
    });
}

void Preview::poll() {
    if (job_ == nullptr) {
        if (wanted_.empty()) {
            poll_.setEnabled(false);
        } else {
            begin();
        }
        return;
    }
    if (!job_->done) {
        return;
    }
    worker_.join();
    const std::shared_ptr<Job> job = std::exchange(job_, nullptr);
    if (wanted_ != job->path) {
        return;
    }
    wanted_.clear();
    poll_.setEnabled(false);
    onLoaded(std::move(job->picture));
}

}  // namespace show
