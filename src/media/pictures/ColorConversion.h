#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "media/pictures/Raster.h"

namespace vellora {

/// Takes the raster's samples, in place, from the colors of an ICC profile to sRGB; grey stays grey. 8 and 16 bits,
/// alpha is kept. A profile that is malformed, or for another number of channels, or that is sRGB itself, changes
/// nothing. Any thread.
void convertToSrgb(Raster& raster, std::span<const std::uint8_t> profile);

/// What takes rows of CMYK to sRGB: by a profile, or, without one that can be used, as paper on which each ink takes
/// away its part of the light.
class CmykConverter {
 public:
  /// `bitsPerSample` 8 or 16, of both sides.
  CmykConverter(std::span<const std::uint8_t> profile, int bitsPerSample);
  ~CmykConverter();
  CmykConverter(const CmykConverter&) = delete;
  CmykConverter& operator=(const CmykConverter&) = delete;

  /// `pixels` of 4 samples, 0 for no ink, to as many of 3.
  void convertRow(const std::uint8_t* cmyk, std::uint8_t* rgb, int pixels) const;

 private:
  void* transform_ = nullptr;
  int bitsPerSample_;
};

/// How a file without a profile may describe its colors (CIE xy).
struct ColorDescription {
  struct Chromaticity {
    double x, y;
  };
  Chromaticity white{0.3127, 0.3290};
  Chromaticity red{0.640, 0.330}, green{0.300, 0.600}, blue{0.150, 0.060};
  double gamma = 0;  ///< of the samples: light = sample ^ gamma; 0: the curve of sRGB
};

/// The ICC profile of such colors; empty when they are sRGB's or make no sense.
std::vector<std::uint8_t> profileOf(const ColorDescription& colors);

/// The same for the numbers of ITU-T H.273 that PNG, HEIC and AVIF files use.
std::vector<std::uint8_t> profileOfCodePoints(int primaries, int transfer);

}  // namespace vellora
