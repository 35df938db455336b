#pragma once

#include <functional>

#include <QImage>
#include <QRect>

#include "base/Bitmap.h"
#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "base/SerialQueue.h"

class QPainter;

namespace vellora {

/// Paints one picture at any size: pixel by pixel at its own, as squares from twice it on, smoothly in between and
/// below. Beside the picture it keeps at most the reduced one that is shown. Reducing well takes a moment, so it is
/// done on `queue`; until then the picture is reduced quickly. Main thread.
class PinPicture {
 public:
  /// `refined` is called when a better picture can be painted.
  PinPicture(Bitmap image, RunLoop& runLoop, SerialQueue& queue, std::function<void()> refined);

  bool hasAlpha() const { return image_.alpha() == PixelAlpha::Premultiplied; }
  PixelSize size() const { return image_.size(); }

  /// The size in device pixels at which a picture meant to be about `wanted` is painted: a whole multiple of its own
  /// where that is less than a pixel away.
  QSize paintedSize(QSize wanted) const;

  /// Paints the part `exposed` of the picture at `size`, a result of paintedSize(), its corners cut round. The painter
  /// stands on device pixels, with the picture's corner at its origin.
  void paint(QPainter& painter, QSize size, const QRect& exposed, double radius);

  /// A small copy to be seen under the pointer while dragging, quickly made.
  QImage miniature(int longestSide) const;

 private:
  void refine(QSize size);
  QImage band(QSize size, const QRect& part) const;

  const Bitmap image_;
  RunLoop& runLoop_;
  SerialQueue& queue_;
  const std::function<void()> refined_;
  QImage reduced_;  // with its alpha set
  QSize wanted_;    // what reduced_ is to become
  bool refining_ = false;
  Lifetime lifetime_;
};

}  // namespace vellora
