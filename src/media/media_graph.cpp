#include "media/media_graph.h"

#include <algorithm>

namespace media {

namespace {

/// A cue is a matter of 30 ms; a file that never gives its first frame must not hold the program.
constexpr LONG kCueTimeout = 1000;

/// A film starts this little after the call, so that its first frames are not late.
constexpr Ticks kStartMargin = 10 * kTicksPerMillisecond;

constexpr Ticks kTicksPerSecond = 1000 * kTicksPerMillisecond;
constexpr Ticks kStampsPerSecond = 90'000;

}  // namespace

MediaGraph::MediaGraph(const std::wstring& path, HWND parent)
    : parts_(buildGraph(path)),
      control_(parts_.graph.as<IMediaControl>(IID_IMediaControl)),
      filter_(parts_.graph.as<IMediaFilter>()),
      seeking_(parts_.graph.as<IMediaSeeking>()),
      audio_(parts_.graph.as<IBasicAudio>(IID_IBasicAudio)) {
    if (!control_ || !filter_ || !seeking_) {
        throw platform::Error("QueryInterface", static_cast<unsigned long>(E_NOINTERFACE));
    }
    // Also where no frames can be taken: the renderer would show a window of its own.
    window_ = parts_.graph.as<IVideoWindow>(IID_IVideoWindow);
    embed(parent);
    cue(0);
    measure();
}

MediaGraph::~MediaGraph() {
    control_->Stop();
    if (window_) {
        window_->put_Visible(OAFALSE);
        window_->put_Owner(0);
    }
}

void MediaGraph::embed(HWND parent) {
    if (!window_) {
        return;
    }
    // Without a picture in the file nothing answers.
    if (FAILED(window_->put_AutoShow(OAFALSE)) || parent == nullptr) {
        window_.reset();
        return;
    }
    window_->put_Owner(reinterpret_cast<OAHWND>(parent));
    window_->put_WindowStyle(WS_CHILD | WS_CLIPSIBLINGS);
    if (parts_.frames) {
        window_->SetWindowPosition(0, 0, parts_.frames->width(), parts_.frames->height());
    }
}

void MediaGraph::jump(Ticks position) {
    // Only a graph that is stopped takes a new position safely: seeking in a halt may never come to an end.
    control_->Stop();
    seeking_->SetPositions(&position, AM_SEEKING_AbsolutePositioning, nullptr, AM_SEEKING_NoPositioning);
    cue(position);
}

void MediaGraph::cue(Ticks position) {
    if (parts_.frames) {
        parts_.frames->clear();
    }
    control_->Pause();
    OAFilterState state = State_Stopped;
    control_->GetState(kCueTimeout, &state);
    filter_->GetSyncSource(referenceClock_.put());
    clock_.cue(position, parts_.frames ? parts_.frames->firstStamp().value_or(0) : 0);
}

void MediaGraph::measure() {
    if (parts_.stream) {
        length_ = parts_.stream->end * kTicksPerSecond / kStampsPerSecond - clock_.streamTime(0);
    } else {
        seeking_->GetDuration(&length_);
    }
    length_ = std::max<Ticks>(length_, 0);
}

void MediaGraph::run() {
    if (!clock_.moving()) {
        filter_->Run(clock_.start(now()) + kStartMargin);
    }
    if (window_) {
        window_->put_Visible(OATRUE);
    }
    mode_ = Mode::Playing;
}

void MediaGraph::play(std::optional<int> from) {
    if (from) {
        const Ticks position = std::min<Ticks>(*from * kTicksPerMillisecond, length_);
        if (!clock_.untouchedAt(position)) {
            jump(position);
        }
    }
    if (!atEnd()) {
        run();
    }
}

void MediaGraph::halt(Mode mode) {
    if (clock_.moving()) {
        clock_.halt(now());
        control_->Pause();
    }
    mode_ = mode;
}

void MediaGraph::pause() {
    if (mode() == Mode::Playing) {
        halt(Mode::Paused);
    }
}

void MediaGraph::stop() {
    halt(Mode::Stopped);
}

bool MediaGraph::put(int left, int top, int width, int height) {
    return window_ && SUCCEEDED(window_->SetWindowPosition(left, top, width, height));
}

void MediaGraph::setAudio(bool on) {
    audioOn_ = on;
    applyVolume();
}

void MediaGraph::setVolume(int volume) {
    volume_ = volume;
    applyVolume();
}

void MediaGraph::applyVolume() {
    if (audio_) {
        audio_->put_Volume(audioOn_ ? attenuation(volume_) : kSilence);
    }
}

int MediaGraph::length() const {
    return static_cast<int>((length_ + kTicksPerMillisecond - 1) / kTicksPerMillisecond);
}

int MediaGraph::position() const {
    // The end is the length as it is told, which is rounded up.
    return atEnd() ? length() : static_cast<int>(clock_.position(now(), length_) / kTicksPerMillisecond);
}

MediaGraph::Mode MediaGraph::mode() const {
    return atEnd() ? Mode::Stopped : mode_;
}

bool MediaGraph::atEnd() const {
    return clock_.position(now(), length_) >= length_;
}

std::optional<SIZE> MediaGraph::size() const {
    if (!parts_.frames) {
        return {};
    }
    return SIZE{parts_.frames->width(), parts_.frames->height()};
}

bool MediaGraph::paint(HDC dc) const {
    return parts_.frames && parts_.frames->paint(dc, clock_.streamTime(now()));
}

Ticks MediaGraph::now() const {
    Ticks time = 0;
    if (referenceClock_ && SUCCEEDED(referenceClock_->GetTime(&time))) {
        return time;
    }
    LARGE_INTEGER count{};
    LARGE_INTEGER frequency{};
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return static_cast<Ticks>(static_cast<double>(count.QuadPart) * kTicksPerSecond /
                              static_cast<double>(frequency.QuadPart));
}

}  // namespace media
