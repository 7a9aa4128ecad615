#include "media/play_clock.h"

#include <algorithm>

namespace media {

void PlayClock::cue(Ticks position, Ticks lead) {
    cued_ = position;
    lead_ = lead;
    streamTime_ = lead;
    moving_ = false;
    untouched_ = true;
}

Ticks PlayClock::start(Ticks now) {
    if (!moving_) {
        origin_ = now - streamTime_;
        moving_ = true;
        untouched_ = false;
    }
    return origin_;
}

void PlayClock::halt(Ticks now) {
    streamTime_ = streamTime(now);
    moving_ = false;
}

Ticks PlayClock::streamTime(Ticks now) const {
    return moving_ ? std::max(now - origin_, lead_) : streamTime_;
}

Ticks PlayClock::position(Ticks now, Ticks length) const {
    return std::clamp<Ticks>(cued_ + streamTime(now) - lead_, 0, std::max<Ticks>(length, 0));
}

}  // namespace media
