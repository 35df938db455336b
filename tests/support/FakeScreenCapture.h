#pragma once

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/ScreenCaptureService.h"
#include "platform/ScreenService.h"

namespace vellora::test {

/// The colour (0xRRGGBB) the fake desktop has at a place: every pixel tells where it was.
inline std::uint32_t desktopColour(int x, int y) {
  return static_cast<std::uint32_t>(((x & 0xFFF) << 12) | (y & 0xFFF));
}

inline std::uint32_t colourAt(const Bitmap& image, int x, int y) {
  const std::byte* p = image.pixel(x, y);
  return std::to_integer<std::uint32_t>(p[2]) << 16 | std::to_integer<std::uint32_t>(p[1]) << 8 |
         std::to_integer<std::uint32_t>(p[0]);
}

/// A desktop made of numbers. Change it between calls only while the engine's queue is idle.
class FakeScreenCapture final : public ScreenCaptureService {
 public:
  ShareableContent content;
  std::optional<ScreenCaptureError> refuses;
  std::atomic<int> pictures = 0;

  Result<ShareableContent, ScreenCaptureError> shareableContent() override {
    if (refuses) return failure(*refuses);
    return content;
  }

  Result<Bitmap, ScreenCaptureError> displayImage(DisplayId display) override {
    for (const DisplayInfo& info : content.displays) {
      if (info.id == display) return picture(info.frame);
    }
    return failure(ScreenCaptureError::NoDisplay);
  }

  Result<Bitmap, ScreenCaptureError> regionImage(const PixelRect& region) override {
    const auto meets = [&](const DisplayInfo& info) { return !info.frame.intersected(region).isEmpty(); };
    if (!std::ranges::any_of(content.displays, meets)) return failure(ScreenCaptureError::NoDisplay);
    return picture(region);
  }

  Result<Bitmap, ScreenCaptureError> windowImage(WindowId window) override {
    for (const WindowInfo& info : content.windows) {
      if (info.id == window) return picture(info.frame);
    }
    return failure(ScreenCaptureError::WindowGone);
  }

 private:
  Result<Bitmap, ScreenCaptureError> picture(const PixelRect& rect) {
    ++pictures;
    if (refuses) return failure(*refuses);
    auto bitmap = MutableBitmap::create(rect.size(), PixelAlpha::Opaque);
    if (!bitmap) return failure(ScreenCaptureError::Failed);
    for (int y = 0; y < rect.height; ++y) {
      std::byte* row = bitmap->row(y);
      for (int x = 0; x < rect.width; ++x) {
        const std::uint32_t colour = desktopColour(rect.x + x, rect.y + y);
        for (int part = 0; part < 4; ++part) row[x * 4 + part] = static_cast<std::byte>(colour >> (8 * part));
      }
    }
    return std::move(*bitmap).finish();
  }
};

/// Screens and a pointer set by hand.
class FakeScreens final : public ScreenService {
 public:
  std::vector<ScreenInfo> list;
  std::optional<PixelPoint> pointer;

  std::vector<ScreenInfo> screens() override { return list; }
  std::optional<PixelPoint> pointerPosition() override { return pointer; }
  bool isComposited() override { return false; }
};

}  // namespace vellora::test
