#include "show/picture_ahead.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "picture/picture_decoder.h"
#include "show/fit_rule.h"

namespace show {

namespace {

/// How long the next decode waits after a picture was taken, so that the two do not share the memory's speed.
constexpr std::chrono::milliseconds kRest(50);
/// More surfaces than a step can leave: the one shown before it, and one that was prepared for nothing.
constexpr std::size_t kMostSpares = 3;

}  // namespace

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

void PictureAhead::setSurface(const ShowSurface& surface) {
    const std::lock_guard lock(mutex_);
    if (sameSurface(surface, surface_)) {
        return;
    }
    surface_ = surface;
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
    Job job;
    job.number = ++lastNumber_;
    job.path = path;
    return job;
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
    for (Job& forgotten : jobs_) {
        if (forgotten.picture) {
            keepSpare(std::move(forgotten.picture->surface));
        }
    }
    jobs_ = std::move(wanted);
    changed_.notify_all();
}

void PictureAhead::giveBack(picture::Surface surface) {
    const std::lock_guard lock(mutex_);
    keepSpare(std::move(surface));
}

void PictureAhead::keepSpare(picture::Surface surface) {
    if (!surface.empty() && spares_.size() < kMostSpares) {
        spares_.push_back(std::move(surface));
    }
}

/// One of the spares where it fits, else a new one. The rest of them ends here, on the thread that decodes.
picture::Surface PictureAhead::blackSurface(std::vector<picture::Surface> spares, int width, int height) {
    for (picture::Surface& spare : spares) {
        if (spare.width() == width && spare.height() == height) {
            spare.fill(RGB(0, 0, 0));
            return std::move(spare);
        }
    }
    return {width, height};
}

void PictureAhead::waitFor(std::unique_lock<std::mutex>& lock, const Job& job) {
    ++awaited_;
    changed_.notify_all();
    changed_.wait(lock, [&] { return job.done; });
    --awaited_;
}

std::optional<ShowPicture> PictureAhead::take(const std::wstring& path) {
    std::unique_lock lock(mutex_);
    if (surface_.width <= 0 || surface_.height <= 0) {
        return std::nullopt;
    }
    auto job = find(path);
    if (job == jobs_.end()) {
        jobs_.push_front(newJob(path));
        job = jobs_.begin();
    } else {
        jobs_.splice(jobs_.begin(), jobs_, job);
    }
    waitFor(lock, *job);
    if (!(job->stamp == stampOf(path))) {
        // Another file of that name has taken its place since.
        job->number = ++lastNumber_;
        job->done = false;
        waitFor(lock, *job);
    }
    restUntil_ = std::chrono::steady_clock::now() + kRest;
    std::optional<ShowPicture> picture = std::move(job->picture);
    jobs_.erase(job);
    return picture;
}

bool PictureAhead::ready(const std::wstring& path) {
    const std::lock_guard lock(mutex_);
    const auto job = find(path);
    return job != jobs_.end() && job->done && job->picture;
}

bool PictureAhead::idle() {
    const std::lock_guard lock(mutex_);
    return !decoding_ && nextJob() == jobs_.end();
}

void PictureAhead::work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return stopping_ || (surface_.width > 0 && nextJob() != jobs_.end()); });
        // The picture just taken is being brought to the screen.
        changed_.wait_until(lock, restUntil_, [this] { return stopping_ || awaited_ > 0; });
        if (stopping_) {
            return;
        }
        // All may have been forgotten meanwhile.
        const auto job = nextJob();
        if (job != jobs_.end()) {
            decode(lock, job->number, std::wstring(job->path));
        }
    }
}

void PictureAhead::decode(std::unique_lock<std::mutex>& lock, int number, const std::wstring& path) {
    const int surfaceNumber = surfaceNumber_;
    const ShowSurface surface = surface_;
    std::vector<picture::Surface> spares = std::exchange(spares_, {});
    decoding_ = true;
    lock.unlock();
    const FileStamp stamp = stampOf(path);
    std::optional<ShowPicture> picture;
    try {
        const auto fit = [&](int width, int height) {
            const PixelRect place = fitPicture(width, height, surface.width, surface.height, surface.shape);
            return picture::Placement{place.left, place.top, place.width, place.height};
        };
        // Onto what the window thread only has to take in the step itself.
        ShowPicture made{0, 0, blackSurface(std::move(spares), surface.width, surface.height)};
        const picture::LaidPicture laid =
            picture::decodeOnto(made.surface.canvas(), path, fit, surface.colours);
        made.nativeWidth = laid.nativeWidth;
        made.nativeHeight = laid.nativeHeight;
        picture = std::move(made);
    } catch (const std::exception&) {
        // No picture: the show passes over it.
    }
    lock.lock();
    decoding_ = false;
    // Forgotten meanwhile, or wanted for another surface: thrown away.
    const auto job = find(number);
    if (job != jobs_.end() && surfaceNumber == surfaceNumber_) {
        job->done = true;
        job->stamp = stamp;
        job->picture = std::move(picture);
    }
    changed_.notify_all();
}

}  // namespace show
