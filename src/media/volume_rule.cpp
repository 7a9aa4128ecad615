#include "media/volume_rule.h"

#include <cmath>

namespace media {

long attenuation(int volume) {
    if (volume <= 0) {
        return kSilence;
    }
    if (volume >= kFullVolume) {
        return 0;
    }
    return std::lround(2000.0 * std::log10(static_cast<double>(volume) / kFullVolume));
}

}  // namespace media
