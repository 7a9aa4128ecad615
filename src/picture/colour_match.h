#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <mutex>
#include <span>

#include "picture/orientation.h"
#include "picture/pixels.h"

namespace picture {

/// Converts pictures from the colours of their own profile to those of the monitor. What was worked out for
/// the last few pairs of profiles is kept: the pictures of a folder mostly come from the same camera. Safe to
/// use from any thread.
class ColourMatch {
  public:
    /// How a picture was converted.
    enum class Road {
        None,    ///< both profiles mean the same, or there is no way to convert
        Rule,    ///< by ColourConversion
        System,  ///< by SystemColourTransform
    };

    ColourMatch();
    ~ColourMatch();
    ColourMatch(const ColourMatch&) = delete;
    ColourMatch& operator=(const ColourMatch&) = delete;

    /// Converts the part `place` of a picture, as far as it lies inside. `pictureProfile` and
    /// `monitorProfile` are the bytes of ICC profiles; empty ones, damaged ones and those for anything but
    /// red, green and blue count as sRGB. Where the system fails the picture stays as it is.
    Road convert(const Canvas& pixels, const Placement& place, std::span<const std::uint8_t> pictureProfile,
                 std::span<const std::uint8_t> monitorProfile);

    /// How many pairs are kept.
    static constexpr std::size_t kKept = 4;
    /// How many pairs have been worked out so far.
    int workedOut() const;

  private:
    struct Pair;
    std::shared_ptr<const Pair> find(std::span<const std::uint8_t> picture,
                                     std::span<const std::uint8_t> monitor);

    mutable std::mutex mutex_;
    /// The one used last comes first.
    std::list<std::shared_ptr<const Pair>> pairs_;
    int workedOut_ = 0;
};

/// The program's own.
ColourMatch& colourMatch();

}  // namespace picture
