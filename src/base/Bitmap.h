#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "base/Geometry.h"

namespace vellora {

/// What the fourth byte of a pixel means.
enum class PixelAlpha {
  Opaque,         ///< ignored on reading, any value
  Premultiplied,  ///< alpha; the colour bytes are already multiplied by it
};

/// An image in memory: 4 bytes a pixel in the order blue, green, red, alpha (the layout of X11's 24 and 32 bit visuals
/// and of QImage's RGB32 and ARGB32_Premultiplied on little-endian machines). A handle: copies share the pixels. Pixels
/// are written only by whoever made the bitmap, before handing it on; after that every thread may read.
class Bitmap {
 public:
  Bitmap() = default;

  /// Wraps memory owned elsewhere; `owner` keeps it alive. `stride` is in bytes, at least width × 4.
  Bitmap(const std::byte* pixels, PixelSize size, std::size_t stride, PixelAlpha alpha,
         std::shared_ptr<const void> owner)
      : pixels_(pixels), size_(size), stride_(stride), alpha_(alpha), owner_(std::move(owner)) {}

  /// The largest accepted edge in pixels and the largest accepted area in bytes.
  static constexpr int maximumEdge = 65535;
  static constexpr std::size_t maximumBytes = std::size_t{2} << 30;

  bool isNull() const { return pixels_ == nullptr; }
  PixelSize size() const { return size_; }
  int width() const { return size_.width; }
  int height() const { return size_.height; }
  std::size_t stride() const { return stride_; }
  PixelAlpha alpha() const { return alpha_; }
  const std::shared_ptr<const void>& owner() const { return owner_; }

  const std::byte* row(int y) const { return pixels_ + stride_ * static_cast<std::size_t>(y); }
  const std::byte* pixel(int x, int y) const { return row(y) + static_cast<std::size_t>(x) * 4; }

  /// The part inside `rect`, sharing the pixels; null when `rect` does not meet the bitmap.
  Bitmap cropped(const PixelRect& rect) const {
    const PixelRect part = rect.intersected({0, 0, size_.width, size_.height});
    if (isNull() || part.isEmpty()) return {};
    return {pixel(part.x, part.y), part.size(), stride_, alpha_, owner_};
  }

 private:
  const std::byte* pixels_ = nullptr;
  PixelSize size_;
  std::size_t stride_ = 0;
  PixelAlpha alpha_ = PixelAlpha::Opaque;
  std::shared_ptr<const void> owner_;
};

/// A bitmap being filled. `finish` gives it away as a read-only Bitmap.
class MutableBitmap {
 public:
  /// Nothing when the size is empty, above Bitmap's limits, or memory is short. Pixels are not initialised.
  static std::optional<MutableBitmap> create(PixelSize size, PixelAlpha alpha);

  PixelSize size() const { return size_; }
  std::size_t stride() const { return stride_; }
  std::byte* row(int y) { return memory_.get() + stride_ * static_cast<std::size_t>(y); }

  Bitmap finish() &&;

 private:
  MutableBitmap() = default;
  std::shared_ptr<std::byte[]> memory_;
  PixelSize size_;
  std::size_t stride_ = 0;
  PixelAlpha alpha_ = PixelAlpha::Opaque;
};

}  // namespace vellora
