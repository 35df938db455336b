#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "media/pictures/PictureReader.h"

namespace vellora::test {

using Bytes = std::vector<std::byte>;

/// Picture files that independent programs made, in a temporary folder that goes with the test program.
class ReaderSamples {
 public:
  /// Runs a shell command in the folder, unless `name` is there already, and returns the file `name`; an empty one,
  /// and a failed test, when it did not come about. base.png (67 × 45, RGB), alpha.png and deep.png (16 bits) are
  /// there from the start.
  static Bytes file(const std::string& name, const std::string& command);
  static std::string path(const std::string& name);
  /// What another program decodes the file to: red, green, blue, alpha of `depth` bits, turned upright.
  static std::vector<std::uint8_t> reference(const std::string& name, int depth = 8,
                                             const std::string& arguments = "-auto-orient");
};

/// Every pixel as red, green, blue, alpha, with the raster's own depth.
std::vector<std::uint8_t> rgbaOf(const Raster& raster);

/// The largest difference of two samples, as a part of `depth` bits' range; where both are transparent colors do not
/// count. A number beyond the range when the sizes differ.
int greatestDifference(std::span<const std::uint8_t> first, std::span<const std::uint8_t> second, int depth = 8);

}  // namespace vellora::test
