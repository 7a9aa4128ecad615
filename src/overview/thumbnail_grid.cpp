#include "overview/thumbnail_grid.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "files/file_filter.h"
#include "overview/film_still.h"
#include "overview/reorder_rule.h"
#include "overview/thumb_folder.h"
#include "platform/directory.h"

namespace overview {

namespace {

constexpr int kBoxesPerTurn = 100;
/// A look costs the system more than it costs this thread, and the threads that decode want the cores.
constexpr int kPollMs = 30;
/// How long a turn takes results, so that the window stays alive.
constexpr double kMostMsPerTurn = 20;
constexpr int kMostResultsPerTurn = 64;
/// An image is made anew for cells that grew by a quarter, and kept smaller for those that shrank to half.
constexpr int kGrown = 5;
constexpr int kBefore = 4;
constexpr int kShrunk = 2;

SIZE imageSize(const GridLayout& layout) {
    return {layout.imageWidth(), layout.imageHeight()};
}

}  // namespace

ThumbnailGrid::ThumbnailGrid(Parts parts)
    : parts_(std::move(parts)), making_(parts_.loop, 1), filling_(parts_.loop, kPollMs) {
    making_.onTimer = [this] { makeBoxes(); };
    filling_.onTimer = [this] { fill(); };
    parts_.view.onChanged = [this] { request(); };
}

void ThumbnailGrid::load() {
    // Nothing that was asked for former items may come for the new ones, nor be asked for while they change.
    stopped_ = true;
    workers_.finish();
    while (workers_.take()) {
    }
    const int count = parts_.records.thumbCount();
    dropBoxes();
    thumbs_.assign(static_cast<std::size_t>(count), {});
    places_.resize(thumbs_.size());
    for (int i = 0; i < count; ++i) {
        places_[static_cast<std::size_t>(i)] = i;
        at(i).item = i;
        at(i).film = files::isVideoName(record(i).fileName);
        at(i).locked = record(i).locked;
    }
    done_ = 0;
    parts_.view.reset(count);
    stopped_ = false;
    making_.setEnabled(true);
    request();
}

// A window may get the handle of one that is gone, and with it the tip. The last tip is found last, but
// taking it away moves no other.
void ThumbnailGrid::dropBoxes() {
    for (int i = parts_.view.boxCount() - 1; i >= 0; --i) {
        parts_.setTip(parts_.view.box(i)->hwnd(), {});
    }
    parts_.view.reset(0);
}

void ThumbnailGrid::makeBoxes() {
    const int from = parts_.view.boxCount();
    const bool more = parts_.view.createMore(thumbs_, kBoxesPerTurn);
    for (int i = from; i < parts_.view.boxCount(); ++i) {
        if (!std::exchange(at(i).tipped, true)) {
            parts_.records.thumbRecords[static_cast<std::size_t>(i)].toolTip = tipOf(record(i));
        }
        tipChanged(i);
    }
    if (!more) {
        making_.setEnabled(false);
        reportProgress();
        filling_.setEnabled(!stopped_);
    }
}

std::wstring ThumbnailGrid::pathOf(int index) const {
    return platform::joinPath(parts_.records.folder, record(index).fileName);
}

GridLayout ThumbnailGrid::layoutFor(int index) const {
    return parts_.view.inView(1).holds(index) ? parts_.view.layout() : parts_.view.fittingLayout();
}

bool ThumbnailGrid::wantsImage(int index, const GridLayout& layout) const {
    const Thumb& thumb = at(index);
    if (!thumb.failed.empty()) {
        return false;
    }
    return !thumb.filled || thumb.image.width * kGrown <= layout.imageWidth() * kBefore;
}

ThumbnailJob ThumbnailGrid::jobFor(int index, const GridLayout& layout) const {
    ThumbnailJob job;
    job.item = at(index).item;
    job.version = at(index).version;
    job.width = layout.imageWidth();
    job.height = layout.imageHeight();
    job.colours = parts_.colours();
    if (!at(index).filled) {
        job.kept = parts_.store.pathOf(record(index).fileName);
        job.embedded = true;
    }
    if (!isFilm(index)) {
        job.path = pathOf(index);
    }
    return job;
}

// What is seen comes first, then a screen more on either side of an enlarged grid, and then the rest, small.
void ThumbnailGrid::request() {
    if (stopped_) {
        return;
    }
    releaseOutOfView();
    const std::vector<int> underWay = workers_.underWay();
    const std::unordered_set<int> busy(underWay.begin(), underWay.end());
    stale_ = !busy.empty();
    std::array<std::deque<ThumbnailJob>, 3> jobs;
    const ItemRange inView = parts_.view.inView();
    const ItemRange nearby = parts_.view.inView(1);
    const GridLayout fitting = parts_.view.fittingLayout();
    for (int i = 0; i < static_cast<int>(thumbs_.size()); ++i) {
        const GridLayout& layout = nearby.holds(i) ? parts_.view.layout() : fitting;
        if (busy.contains(at(i).item) || !wantsImage(i, layout)) {
            continue;
        }
        ThumbnailJob job = jobFor(i, layout);
        // A film that is kept shows that until it is opened.
        if (!isFilm(i) || (!job.kept.empty() && at(i).image.empty())) {
            jobs.at(inView.holds(i) ? 0 : nearby.holds(i) ? 1 : 2).push_back(std::move(job));
        }
    }
    std::move(jobs[1].begin(), jobs[1].end(), std::back_inserter(jobs[0]));
    std::move(jobs[2].begin(), jobs[2].end(), std::back_inserter(jobs[0]));
    workers_.setJobs(std::move(jobs[0]));
    // What is made before its box waits: all boxes come with their tips before the first image.
    filling_.setEnabled(!making_.enabled());
}

// Images are kept as small as they are needed: those out of view as when all items are shown.
void ThumbnailGrid::releaseOutOfView() {
    const ItemRange nearby = parts_.view.inView(1);
    const GridLayout fitting = parts_.view.fittingLayout();
    for (int i = 0; i < static_cast<int>(thumbs_.size()); ++i) {
        const GridLayout& wanted = nearby.holds(i) ? parts_.view.layout() : fitting;
        const picture::Pixels& image = at(i).image;
        if (!image.empty() && image.width > kShrunk * wanted.imageWidth()) {
            at(i).image = scaledTo(image, wanted.imageWidth(), wanted.imageHeight());
        }
    }
}

void ThumbnailGrid::fill() {
    const bool took = takeResults();
    const bool filmDone = fillFilm();
    if (took || filmDone) {
        reportProgress();
    }
    if (workers_.busy() || filmDone) {
        return;
    }
    if (std::exchange(stale_, false)) {
        request();
        return;
    }
    filling_.setEnabled(false);
}

bool ThumbnailGrid::takeResults() {
    const double until = parts_.loop.now() + kMostMsPerTurn;
    bool took = false;
    for (int i = 0; i < kMostResultsPerTurn && parts_.loop.now() < until; ++i) {
        const auto result = workers_.take();
        if (!result) {
            break;
        }
        apply(*result);
        took = true;
    }
    return took;
}

void ThumbnailGrid::apply(const ThumbnailResult& result) {
    const int index = places_[static_cast<std::size_t>(result.item)];
    if (result.version != at(index).version) {
        return;
    }
    if (!isFilm(index)) {
        setImage(index, result.pixels);
    } else if (result.pixels && !at(index).filled) {
        at(index).image = *result.pixels;
        repaint(index);
    }
}

void ThumbnailGrid::setImage(int index, std::optional<picture::Pixels> image) {
    Thumb& thumb = at(index);
    if (!std::exchange(thumb.filled, true)) {
        ++done_;
    }
    if (image) {
        thumb.image = std::move(*image);
        thumb.failed.clear();
    } else {
        const GridLayout layout = layoutFor(index);
        thumb.image = picture::Pixels(layout.imageWidth(), layout.imageHeight());
        thumb.failed = record(index).fileName;
    }
    repaint(index);
}

std::optional<int> ThumbnailGrid::nextFilm() const {
    const ItemRange nearby = parts_.view.inView(1);
    std::optional<int> beside;
    for (int i = 0; i < static_cast<int>(thumbs_.size()); ++i) {
        if (!isFilm(i)) {
            continue;
        }
        if (nearby.holds(i) && wantsImage(i, parts_.view.layout())) {
            return i;
        }
        if (!beside && !at(i).filled) {
            beside = i;
        }
    }
    return beside;
}

// One film a turn, so that everything else goes on between two of them.
bool ThumbnailGrid::fillFilm() {
    const auto next = filmsPaused_ ? std::nullopt : nextFilm();
    if (next) {
        showFilm(*next);
    }
    return next.has_value();
}

void ThumbnailGrid::showFilm(int index) {
    const bool first = !at(index).filled;
    ItemImages images = imagesOfFilm(index);
    if (images.kept && first) {
        parts_.store.save(record(index).fileName, *images.kept);
    }
    setImage(index, std::move(images.shown));
}

ItemImages ThumbnailGrid::imagesOfFilm(int index) {
    return filmImages(parts_.control, parts_.Pic2, pathOf(index), imageSize(layoutFor(index)),
                      imageSize(parts_.view.fittingLayout()));
}

ItemImages ThumbnailGrid::imagesOfPicture(int index) const {
    const SIZE cell = imageSize(layoutFor(index));
    const SIZE kept = imageSize(parts_.view.fittingLayout());
    ThumbnailJob job;
    job.path = pathOf(index);
    job.width = static_cast<int>(cell.cx);
    job.height = static_cast<int>(cell.cy);
    ItemImages images{makeThumbnail(job), std::nullopt};
    images.kept = images.shown;
    if (images.kept && (kept.cx != cell.cx || kept.cy != cell.cy)) {
        images.kept = scaledTo(*images.shown, static_cast<int>(kept.cx), static_cast<int>(kept.cy));
    }
    job.colours = parts_.colours();
    if (job.colours) {
        images.shown = makeThumbnail(job);
    }
    return images;
}

std::optional<picture::Pixels> ThumbnailGrid::redraw(int index) {
    ++at(index).version;
    ItemImages images = isFilm(index) ? imagesOfFilm(index) : imagesOfPicture(index);
    setImage(index, std::move(images.shown));
    return std::move(images.kept);
}

void ThumbnailGrid::repaint(int index) {
    if (ThumbnailBox* box = parts_.view.box(index)) {
        box->repaint();
    }
}

void ThumbnailGrid::lockChanged(int index) {
    at(index).locked = record(index).locked;
    repaint(index);
}

void ThumbnailGrid::deletionChanged(int index) {
    at(index).deleted = record(index).deleted;
    repaint(index);
}

void ThumbnailGrid::tipChanged(int index) {
    if (const ThumbnailBox* box = parts_.view.box(index)) {
        parts_.setTip(box->hwnd(), record(index).toolTip);
    }
}

void ThumbnailGrid::move(int source, int target) {
    moveItem(parts_.records.thumbRecords, source, target);
    moveItem(thumbs_, source, target);
    for (int i = std::min(source, target); i <= std::max(source, target); ++i) {
        places_[static_cast<std::size_t>(at(i).item)] = i;
        tipChanged(i);
        repaint(i);
    }
}

void ThumbnailGrid::pauseFilms(bool paused) {
    filmsPaused_ = paused;
    if (!paused) {
        request();
    }
}

void ThumbnailGrid::stop() {
    stopped_ = true;
    making_.setEnabled(false);
    workers_.finish();
    while (const auto result = workers_.take()) {
        apply(*result);
    }
    filling_.setEnabled(false);
}

void ThumbnailGrid::resume() {
    stopped_ = false;
    making_.setEnabled(parts_.view.boxCount() < static_cast<int>(thumbs_.size()));
    request();
}

void ThumbnailGrid::remove(const std::vector<int>& indices) {
    // The boxes are made anew, as many as there are items left, and find the images that are there.
    dropBoxes();
    for (auto index = indices.rbegin(); index != indices.rend(); ++index) {
        parts_.records.thumbRecords.erase(parts_.records.thumbRecords.begin() + *index);
        thumbs_.erase(thumbs_.begin() + *index);
    }
    places_.resize(thumbs_.size());
    done_ = 0;
    for (int i = 0; i < static_cast<int>(thumbs_.size()); ++i) {
        at(i).item = i;
        places_[static_cast<std::size_t>(i)] = i;
        done_ += at(i).filled ? 1 : 0;
    }
    parts_.view.reset(static_cast<int>(thumbs_.size()));
    making_.setEnabled(true);
}

void ThumbnailGrid::reportProgress() {
    if (onProgress) {
        onProgress(done_, static_cast<int>(thumbs_.size()));
    }
}

}  // namespace overview
