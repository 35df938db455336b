#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "base/Geometry.h"

namespace vellora {

/// What a pull on the region's frame moves.
struct RegionGrip {
  bool left = false;
  bool top = false;
  bool right = false;
  bool bottom = false;

  bool isWhole() const { return left && top && right && bottom; }
  bool isNone() const { return !left && !top && !right && !bottom; }
  static constexpr RegionGrip whole() { return {true, true, true, true}; }
  friend bool operator==(const RegionGrip&, const RegionGrip&) = default;
};

/// A size or shape to choose for the region.
struct RegionPreset {
  enum class Kind : std::uint8_t { size, ratio, display };
  Kind kind = Kind::size;
  int width = 0;  ///< device pixels, or parts of the ratio
  int height = 0;
  friend bool operator==(const RegionPreset&, const RegionPreset&) = default;
};

/// The rules of choosing a region on one display: it stays on it and is never too small. Device pixels of the desktop.
class RegionModel {
 public:
  static constexpr int leastSide = 16;

  RegionModel(const PixelRect& region, const PixelRect& display);

  const PixelRect& region() const { return region_; }
  const PixelRect& display() const { return display_; }

  void beginPull(const RegionGrip& grip, PixelPoint at);
  /// `keepsRatio`: the region keeps the shape it had at the beginning.
  void pullTo(PixelPoint at, bool keepsRatio = false);
  void endPull() { grip_ = {}; }
  bool isPulled() const { return !grip_.isNone(); }

  void nudge(int dx, int dy);

  /// The presets, the sizes first.
  static std::span<const RegionPreset> presets();
  /// Whether the display has room for it.
  bool fits(const RegionPreset& preset) const;
  /// Whether the region is what applying it would make of it.
  bool matches(const RegionPreset& preset) const;
  /// Keeps the middle where there is room; a ratio keeps the area too.
  void apply(const RegionPreset& preset);

 private:
  PixelRect sized(double width, double height) const;
  void keepRatio(PixelRect& next) const;

  PixelRect display_;
  PixelRect region_;
  RegionGrip grip_;
  PixelPoint pressed_;
  PixelRect before_;  // the region when the pull began
};

/// Where the parts of the region's frame are, in device pixels of the desktop.
class RegionFrameLayout {
 public:
  /// In points: how far the frame's window reaches beyond the region, and the sizes of what is on it.
  static constexpr double reach = 28;
  static constexpr double line = 2;
  static constexpr double handle = 12;

  RegionFrameLayout(const PixelRect& region, double scale) : region_(region), scale_(scale) {}

  PixelRect window() const;
  int lineWidth() const;
  /// From the top left corner clockwise.
  std::array<PixelRect, 8> handles() const;
  /// The four sides of the line, outside the region.
  std::array<PixelRect, 4> lines() const;
  /// The four sides of what moves the region, around the line.
  std::array<PixelRect, 4> band() const;
  /// What takes the pointer: the sides with some room around them, the handles, and the band.
  std::vector<PixelRect> inputParts() const;
  /// What a press there takes hold of.
  RegionGrip gripAt(PixelPoint place) const;

 private:
  int pixels(double points) const;
  std::array<PixelRect, 4> ring(int inside, int outside) const;

  PixelRect region_;
  double scale_;
};

}  // namespace vellora
