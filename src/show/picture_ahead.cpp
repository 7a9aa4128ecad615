#include "show/picture_ahead.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "platform/com.h"
#include "show/fit_rule.h"

namespace show {

bool PictureAhead::FileStamp::operator==(const FileStamp& other) const {
    return CompareFileTime(&written, &other.written) == 0 && size == other.size;
}

PictureAhead::FileStamp PictureAhead::stampOf(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == FALSE) {
        return {};
    }
    return {data.ftLastWriteTime, std::uint64_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow};
}

PictureAhead::PictureAhead() : worker_([this] { work(); }) {}

PictureAhead::~PictureAhead() {
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    changed_.notify_all();
    worker_.join();
}

void PictureAhead::setSurface(int width, int height, double shape) {
    const std::lock_guard lock(mutex_);
    if (width == width_ && height == height_ && shape == shape_) {
        return;
    }
    width_ = width;
    height_ = height;
    shape_ = shape;
    ++surfaceNumber_;
    for (Job& job : jobs_) {
        job.done = false;
        job.picture.reset();
    }
    changed_.notify_all();
}

PictureAhead::Jobs::iterator PictureAhead::find(const std::wstring& path) {
    return std::find_if(jobs_.begin(), jobs_.end(), [&](const Job& job) { return job.path == path; });
}

PictureAhead::Jobs::iterator PictureAhead::find(int number) {
    return std::find_if(jobs_.begin(), jobs_.end(), [=](const Job& job) { return job.number == number; });
}

PictureAhead::Jobs::iterator PictureAhead::nextJob() {
    return std::find_if(jobs_.begin(), jobs_.end(), [](const Job& job) { return !job.done; });
}

PictureAhead::Job PictureAhead::newJob(const std::wstring& path) {
    return {++lastNumber_, path, stampOf(path), false, std::nullopt};
}

void PictureAhead::prepare(const std::vector<std::wstring>& paths) {
    const std::lock_guard lock(mutex_);
    Jobs wanted;
    for (const std::wstring& path : paths) {
        const auto job = find(path);
        if (job != jobs_.end()) {
            wanted.splice(wanted.end(), jobs_, job);
        } else {
            wanted.push_back(newJob(path));
        }
    }
    jobs_ = std::move(wanted);
    changed_.notify_all();
}

std::optional<platform::DecodedPicture> PictureAhead::take(const std::wstring& path) {
    std::unique_lock lock(mutex_);
    if (width_ <= 0 || height_ <= 0) {
        return std::nullopt;
    }
    auto job = find(path);
    if (job != jobs_.end() && !(job->stamp == stampOf(path))) {
        jobs_.erase(job);
        job = jobs_.end();
    }
    if (job == jobs_.end()) {
        jobs_.push_front(newJob(path));
        job = jobs_.begin();
    } else {
        jobs_.splice(jobs_.begin(), jobs_, job);
    }
    changed_.notify_all();
    changed_.wait(lock, [&] { return job->done; });
    std::optional<platform::DecodedPicture> picture = std::move(job->picture);
    jobs_.erase(job);
    return picture;
}

bool PictureAhead::idle() {
    const std::lock_guard lock(mutex_);
    return !decoding_ && nextJob() == jobs_.end();
}

void PictureAhead::work() {
    const platform::ComApartment com;
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return stopping_ || (width_ > 0 && nextJob() != jobs_.end()); });
        if (stopping_) {
            return;
        }
        const auto job = nextJob();
        decode(lock, job->number, std::wstring(job->path));
    }
}

void PictureAhead::decode(std::unique_lock<std::mutex>& lock, int number, const std::wstring& path) {
    const int surface = surfaceNumber_;
    const int width = width_;
    const int height = height_;
    const double shape = shape_;
    decoding_ = true;
    lock.unlock();
    std::optional<platform::DecodedPicture> picture;
    try {
        picture = platform::decodeOntoSurface(path, width, height, [=](int pictureWidth, int pictureHeight) {
            const PixelRect place = fitPicture(pictureWidth, pictureHeight, width, height, shape);
            return platform::Placement{place.left, place.top, place.width, place.height};
        });
    } catch (const std::exception&) {
        // No picture: the show passes over it.
    }
    lock.lock();
    decoding_ = false;
    // Forgotten meanwhile, or wanted for another surface: thrown away.
    const auto job = find(number);
    if (job != jobs_.end() && surface == surfaceNumber_) {
        job->done = true;
        job->picture = std::move(picture);
    }
    changed_.notify_all();
}

}  // namespace show
