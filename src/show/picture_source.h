#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/picture_decoder.h"

namespace show {

/// Where the show gets its pictures from: laid onto the show surface by the fit rule, black beside it.
class PictureSource {
  public:
    virtual ~PictureSource() = default;

    /// The surface that pictures are wanted for, in pixels, and the shape of the fit rule (see fitPicture).
    virtual void setSurface(int width, int height, double shape) = 0;
    /// The picture of a file, as soon as it is there; none when it cannot be loaded.
    virtual std::optional<platform::DecodedPicture> take(const std::wstring& path) = 0;
    /// The files that will be wanted next, the most urgent first. Others that were prepared are forgotten.
    virtual void prepare(const std::vector<std::wstring>& paths) = 0;
};

}  // namespace show
