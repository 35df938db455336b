#pragma once

#include <cstddef>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "base/Bitmap.h"

namespace vellora {

/// A picture and its PNG form, encoded once however many want it: the file, the clipboard and the history write the
/// same bytes. Any thread.
class SharedPng {
 public:
  /// `scale`: device pixels per point, noted in the file so that viewers show it at its point size.
  SharedPng(Bitmap image, double scale) : image_(std::move(image)), scale_(scale) {}

  const Bitmap& image() const { return image_; }
  double scale() const { return scale_; }

  /// Encodes on the first call; calls that come meanwhile wait for it. Valid as long as this object; nothing when the
  /// picture cannot be encoded.
  std::optional<std::span<const std::byte>> bytes();

 private:
  const Bitmap image_;
  const double scale_;
  std::once_flag encoding_;
  // Written once, under encoding_:
  std::vector<std::byte> png_;
  bool encoded_ = false;
};

}  // namespace vellora
