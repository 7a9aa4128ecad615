#include "media/media_text.h"

#include <cmath>

#include "text/text_number.h"

namespace media {

std::string pixelText(float pixels) {
    constexpr float kRounding = 0.001F;
    const float whole = std::round(pixels);
    return text::decimalBytes(std::abs(pixels - whole) < kRounding ? whole : pixels);
}

}  // namespace media
