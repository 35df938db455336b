#pragma once

#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <QImage>
#include <QTransform>

#include "editor/rendering/PixelTarget.h"

namespace vellora {

/// A lens with its shadow, glass and rim as it looks at one scale: ready to be laid over what is below.
class LensLayer {
 public:
  /// `image` is Format_ARGB32_Premultiplied; `local` maps document points to its pixels.
  LensLayer(QImage image, const QTransform& local);

  bool shows(const QSize& size, const QTransform& local) const { return image_.size() == size && local_ == local; }
  qint64 pixelCount() const { return qint64{image_.width()} * image_.height(); }

  /// Draws it with its corner at the pixel `corner`.
  void draw(const PixelTarget& target, const QRect& clip, QPoint corner) const;

 private:
  /// The longest run of opaque pixels of a row.
  struct Run {
    int begin = 0;
    int end = 0;
  };

  QImage image_;
  QTransform local_;
  std::vector<Run> opaque_;
};

/// Keeps the layers of lenses, one for each, as long as they do not take too much memory.
class LensLayers {
 public:
  /// Null when it is not kept at this size and scale.
  const LensLayer* find(std::uint64_t key, const QSize& size, const QTransform& local) const;
  /// Lets go of others when there are too many.
  void keep(std::uint64_t key, LensLayer layer);
  void keepOnly(const std::unordered_set<std::uint64_t>& keys);

 private:
  std::unordered_map<std::uint64_t, LensLayer> layers_;
  qint64 pixels_ = 0;
};

}  // namespace vellora
