#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace vellora {

/// What the samples of a pixel are, in this order.
enum class RasterLayout : std::uint8_t { Grey, GreyAlpha, Rgb, Rgba };

constexpr int samplesOf(RasterLayout layout) {
  return static_cast<int>(layout) + 1;
}
constexpr bool hasAlpha(RasterLayout layout) {
  return layout == RasterLayout::GreyAlpha || layout == RasterLayout::Rgba;
}

/// A decoded picture as files have it: straight alpha, rows from the top. Samples have 8 bits, or 16 in the machine's
/// byte order. A handle: copies share the samples, which nobody changes any more once another has the raster.
class Raster {
 public:
  static constexpr int maximumEdge = 65535;
  static constexpr std::size_t maximumBytes = std::size_t{1} << 30;

  Raster() = default;
  /// Zero-filled, with `spareBytes` more behind the last row. Nothing when the size is empty, beyond the limits, or
  /// memory is short.
  static std::optional<Raster> create(int width, int height, RasterLayout layout, int bitsPerSample = 8,
                                      std::size_t spareBytes = 0);

  bool isNull() const { return samples_ == nullptr; }
  int width() const { return width_; }
  int height() const { return height_; }
  RasterLayout layout() const { return layout_; }
  int bitsPerSample() const { return bitsPerSample_; }
  std::size_t bytesPerPixel() const { return static_cast<std::size_t>(samplesOf(layout_) * bitsPerSample_ / 8); }
  std::size_t stride() const { return static_cast<std::size_t>(width_) * bytesPerPixel(); }
  std::size_t bytes() const { return stride() * static_cast<std::size_t>(height_); }
  const std::uint8_t* row(int y) const {
    return reinterpret_cast<const std::uint8_t*>(samples_.get()) + stride() * static_cast<std::size_t>(y);
  }
  std::uint8_t* row(int y) {
    return reinterpret_cast<std::uint8_t*>(samples_.get()) + stride() * static_cast<std::size_t>(y);
  }

 private:
  std::shared_ptr<std::byte[]> samples_;
  int width_ = 0;
  int height_ = 0;
  RasterLayout layout_ = RasterLayout::Rgba;
  int bitsPerSample_ = 8;
};

}  // namespace vellora
