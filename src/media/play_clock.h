#pragma once

#include <cstdint>

namespace media {

/// Time in units of 100 nanoseconds, as filter graphs count it.
using Ticks = std::int64_t;

inline constexpr Ticks kTicksPerMillisecond = 10'000;

/// Where a film stands: keeps the relation between the clock, the stream's time stamps and the position in
/// the film through starts, halts and jumps.
///
/// The first frame of a film need not carry the time stamp 0: program streams begin about half a second
/// late. That lead is left out, so that the first frame is due the moment the film starts.
class PlayClock {
  public:
    /// The film stands at `position`; its next frame carries the time stamp `lead`.
    void cue(Ticks position, Ticks lead);

    /// The film begins to move at clock time `now`. Returns the clock time that time stamp 0 belongs to,
    /// which is what a graph is run with. Starting a moving film changes nothing.
    Ticks start(Ticks now);

    /// The film stands still from clock time `now` on.
    void halt(Ticks now);

    bool moving() const { return moving_; }

    /// Whether the film was cued at `position` and has not moved since: playing from there needs no jump.
    bool untouchedAt(Ticks position) const { return untouched_ && cued_ == position; }

    /// The time stamp that is due at clock time `now`.
    Ticks streamTime(Ticks now) const;

    /// The position in the film at clock time `now`, from 0 to `length`.
    Ticks position(Ticks now, Ticks length) const;

  private:
    Ticks cued_ = 0;
    Ticks lead_ = 0;
    Ticks streamTime_ = 0;  // while standing
    Ticks origin_ = 0;      // clock time of time stamp 0, while moving
    bool moving_ = false;
    bool untouched_ = false;
};

}  // namespace media
