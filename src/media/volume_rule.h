#pragma once

namespace media {

/// A volume command's full volume.
inline constexpr int kFullVolume = 1000;

/// The attenuation of silence, in hundredths of a decibel.
inline constexpr long kSilence = -10000;

/// What a volume of `volume` thousandths of the full amplitude is in hundredths of a decibel: 0 for
/// kFullVolume and more, 2000 * log10(volume / 1000) below, kSilence for 0 and less.
long attenuation(int volume);

}  // namespace media
