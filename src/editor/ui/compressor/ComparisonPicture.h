#pragma once

#include <memory>
#include <vector>

#include <QFuture>
#include <QImage>
#include <QPointF>
#include <QRect>

class QPainter;

namespace vellora {

/// A picture made ready to be drawn at any zoom: with smaller versions of itself, each half the size of the one before
/// and averaged in linear light. Never changes; any thread may make one or draw it.
class ComparisonPicture {
 public:
  explicit ComparisonPicture(const QImage& picture);

  QSize size() const { return levels_.front().size(); }
  bool hasAlpha() const { return levels_.front().hasAlphaChannel(); }
  /// Made of this very image.
  bool isOf(const QImage& picture) const { return source_ == picture.cacheKey(); }

  /// How the picture lies on the pixels of a device.
  struct Placement {
    QPointF origin;         ///< of the picture's upper left corner
    double scaleX = 1;      ///< device pixels for a pixel of the picture
    double scaleY = 1;      ///< the same downward
    bool hardEdges = true;  ///< enlarged pixels stay squares
  };
  /// Draws what of it lies in `clip`; `painter` has device pixels as coordinates.
  void paint(QPainter& painter, const QRect& clip, const Placement& placement) const;

 private:
  std::vector<QImage> levels_;
  qint64 source_;
};

/// The two that are compared; either may be missing.
struct ComparisonPair {
  std::shared_ptr<const ComparisonPicture> before;
  std::shared_ptr<const ComparisonPicture> after;
};

/// Makes pictures ready on a thread of its own, small ones at once. What is already ready in `known` is taken over.
QFuture<ComparisonPair> prepareComparison(const QImage& before, const QImage& after, const ComparisonPair& known);

}  // namespace vellora
