#pragma once

#include <optional>
#include <string>
#include <vector>

#include "picture/surface.h"

namespace show {

/// A picture ready for the screen.
struct ShowPicture {
    /// The picture's own size in pixels, upright.
    int nativeWidth = 0;
    int nativeHeight = 0;
    /// The whole show surface with the picture on it.
    picture::Surface surface;
};

/// Where the show gets its pictures from: laid onto the show surface by the fit rule, black beside it.
class PictureSource {
  public:
    virtual ~PictureSource() = default;

    /// The surface that pictures are wanted for, in pixels, and the shape of the fit rule (see fitPicture).
    virtual void setSurface(int width, int height, double shape) = 0;
    /// The picture of a file, as soon as it is there; none when it cannot be loaded.
    virtual std::optional<ShowPicture> take(const std::wstring& path) = 0;
    /// The files that will be wanted next, the most urgent first. Others that were prepared are forgotten.
    virtual void prepare(const std::vector<std::wstring>& paths) = 0;
};

}  // namespace show
