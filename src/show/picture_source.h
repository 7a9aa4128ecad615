#pragma once

#include <optional>
#include <string>
#include <vector>

#include "picture/picture_decoder.h"
#include "picture/surface.h"
#include "show/fit_rule.h"

namespace show {

/// A picture ready for the screen.
struct ShowPicture {
    /// The picture's own size in pixels, upright.
    int nativeWidth = 0;
    int nativeHeight = 0;
    /// The whole show surface with the picture on it.
    picture::Surface surface;
};

/// What pictures are made ready for.
struct ShowSurface {
    int width = 0;  ///< pixels
    int height = 0;
    double shape = kDesignShape;      ///< of the fit rule, see fitPicture
    picture::ColourTarget colours{};  ///< of its monitor
};

/// Whether pictures that were made ready for the one fit the other.
inline bool sameSurface(const ShowSurface& one, const ShowSurface& other) {
    return one.width == other.width && one.height == other.height && one.shape == other.shape &&
           picture::sameTarget(one.colours, other.colours);
}

/// Where the show gets its pictures from: laid onto the show surface by the fit rule, black beside it.
class PictureSource {
  public:
    virtual ~PictureSource() = default;

    /// The surface that pictures are wanted for.
    virtual void setSurface(const ShowSurface& surface) = 0;
    /// The picture of a file, as soon as it is there; none when it cannot be loaded.
    virtual std::optional<ShowPicture> take(const std::wstring& path) = 0;
    /// Whether take() would have it without waiting.
    virtual bool ready(const std::wstring& path) = 0;
    /// The files that will be wanted next, the most urgent first. Others that were prepared are forgotten.
    virtual void prepare(const std::vector<std::wstring>& paths) = 0;
    /// Takes a surface that nobody shows any more: a later picture is laid onto it. To give its memory back
    /// to the system takes longer than all else that a step does beside painting.
    virtual void giveBack(picture::Surface surface) = 0;
};

}  // namespace show
