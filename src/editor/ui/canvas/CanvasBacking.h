#pragma once

#include <chrono>
#include <functional>
#include <vector>

#include <QImage>
#include <QRegion>
#include <QTransform>

class QPainter;

namespace vellora {

/// The picture behind a view that is moved about over a large plane: holds what was painted, and paints what is new in
/// pieces, within the time it is given. The plane has device pixels as coordinates at the current scale. The picture is
/// a torus (a pixel of the plane is kept at its place modulo the picture's size), so moving copies nothing. After a
/// change of scale the old picture stands in, stretched, where the new one is not painted yet.
class CanvasBacking {
 public:
  /// Paints the part `clip` of `target`, covering all of it; `planeToTarget` tells where the plane lies in it.
  using Paint = std::function<void(QImage& target, const QRect& clip, QPoint planeToTarget)>;

  explicit CanvasBacking(Paint paint) : paint_(std::move(paint)) {}

  /// Shows the part `visible` of the plane, which has `scale` pixels for a unit of whatever it shows.
  void show(const QRect& visible, double scale);
  /// What is kept of this part is no longer what it should be; it goes on being shown until it is painted anew.
  void outdate(const QRegion& region);
  /// The same of everything.
  void outdateAll();

  /// Paints what is missing or outdated within `region`, the nearest to `focus` first, for about `budget`; at least one
  /// piece. Returns what was painted. The rest waits for the next call.
  QRegion paint(const QRegion& region, QPoint focus, std::chrono::nanoseconds budget);
  /// What of the visible part is still to be painted.
  QRegion unpainted() const { return (missing_ | outdated_) & visible_; }

  /// Whether some of this part was never painted.
  bool isMissing(const QRegion& region) const { return missing_.intersects(region & visible_); }

  /// Draws the part `region` of the plane; `painter` has the plane's pixels as coordinates. What was never painted is
  /// filled with `ground` under the stand-in.
  void draw(QPainter& painter, const QRegion& region, const QColor& ground) const;
  /// A picture of a part of the plane; transparent outside what is visible and painted.
  QImage copy(const QRect& part) const;
  /// Gives back the memory of the stand-in once nothing is missing any more.
  void releaseStandin();

 private:
  struct Standin {
    QImage picture;
    QRect part;  // of its own plane
    double scale = 1;
  };

  struct Run {
    QRect part;     // of the plane
    QPoint inside;  // where the picture holds it
  };
  static std::vector<Run> runs(const QRect& part, QSize size);
  void resize(QSize size);
  void keepAsStandin();
  void moveWindow(const QRect& visible);
  void drawStandin(QPainter& painter, const QRegion& region) const;
  QRect nextPiece(const QRegion& region, QPoint focus) const;

  Paint paint_;
  QImage picture_;
  QRect window_;   // the part of the plane the picture holds
  QRect visible_;  // what is shown of it
  double scale_ = 0;
  QRegion missing_;   // never painted
  QRegion outdated_;  // painted, but no longer right
  Standin standin_;
  double nanosecondsPerPixel_ = 10;  // how long painting took of late
};

}  // namespace vellora
