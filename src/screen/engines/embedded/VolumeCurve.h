#pragma once

#include <algorithm>
#include <cmath>

namespace tessivo {

/// Linear amplitude, 0..1, of a volume of 0..100 (values outside are brought inside).
inline float amplitudeOf(int volume, bool muted) {
  return muted ? 0.0F : static_cast<float>(std::clamp(volume, 0, 100)) / 100.0F;
}

/// The same loudness in hundredths of a decibel: 0 is full, -10000 is silence.
inline long attenuationOf(int volume, bool muted) {
  const float amplitude = amplitudeOf(volume, muted);
  if (amplitude <= 0.0F) return -10000;
  return std::lround(2000.0F * std::log10(amplitude));
}

}  // namespace tessivo
