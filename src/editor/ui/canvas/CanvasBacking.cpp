#include "editor/ui/canvas/CanvasBacking.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QPainter>

namespace vellora {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int sizeStep = 64;               // the picture grows and shrinks by this, not with every pixel of the view
constexpr double nanosecondsAPiece = 4e6;  // how long painting one piece should take
constexpr double leastPiece = 256 * 128;   // pixels; smaller ones cost more in calls than they save in waiting
constexpr double measuredFrom = 256 * 128;

int roundedUp(int length) {
  return (std::max(length, 1) + sizeStep - 1) / sizeStep * sizeStep;
}

int modulo(int value, int by) {
  const int rest = value % by;
  return rest < 0 ? rest + by : rest;
}

/// How far `point` is from the nearest pixel of `rect`, along the axes.
int distance(const QRect& rect, QPoint point) {
  const int dx = std::max({rect.left() - point.x(), point.x() - rect.right(), 0});
  const int dy = std::max({rect.top() - point.y(), point.y() - rect.bottom(), 0});
  return std::max(dx, dy);
}

}  // namespace

/// The parts, at most four, of a rectangle that lie in one run in a torus of `size`.
std::vector<CanvasBacking::Run> CanvasBacking::runs(const QRect& part, QSize size) {
  std::vector<Run> found;
  if (size.isEmpty()) return found;
  for (int y = part.top(); y <= part.bottom();) {
    const int insideY = modulo(y, size.height());
    const int height = std::min(part.bottom() + 1 - y, size.height() - insideY);
    for (int x = part.left(); x <= part.right();) {
      const int insideX = modulo(x, size.width());
      const int width = std::min(part.right() + 1 - x, size.width() - insideX);
      found.push_back({QRect(x, y, width, height), {insideX, insideY}});
      x += width;
    }
    y += height;
  }
  return found;
}

void CanvasBacking::show(const QRect& visible, double scale) {
  if (scale != scale_) {
    keepAsStandin();
    scale_ = scale;
    window_ = {};
    missing_ = {};
    outdated_ = {};
  }
  resize({roundedUp(visible.width()), roundedUp(visible.height())});
  moveWindow(visible);
  visible_ = visible;
}

void CanvasBacking::resize(QSize size) {
  if (picture_.size() == size) return;
  QImage next(size, QImage::Format_RGB32);
  if (next.isNull()) next = QImage(1, 1, QImage::Format_RGB32);
  const QRect kept = QRect(window_.topLeft(), next.size()) & window_;
  QPainter painter(&next);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  for (const Run& from : runs(kept, picture_.size())) {
    for (const Run& to : runs(from.part, next.size())) {
      painter.drawImage(to.inside, picture_,
                        QRect(from.inside + to.part.topLeft() - from.part.topLeft(), to.part.size()));
    }
  }
  painter.end();
  picture_ = std::move(next);
  missing_ &= kept;
  outdated_ &= kept;
  if (window_.isEmpty()) return;
  window_ = QRect(window_.topLeft(), picture_.size());
  missing_ |= QRegion(window_).subtracted(kept);
}

void CanvasBacking::moveWindow(const QRect& visible) {
  if (window_.contains(visible)) return;
  QRect next(visible.topLeft(), picture_.size());
  if (window_.intersects(visible)) {
    // As little as is needed: what leaves on one side may come back.
    next.moveLeft(std::clamp(window_.left(), visible.right() + 1 - picture_.width(), visible.left()));
    next.moveTop(std::clamp(window_.top(), visible.bottom() + 1 - picture_.height(), visible.top()));
  }
  missing_ = (missing_ & next) | QRegion(next).subtracted(window_);
  outdated_ &= next;
  window_ = next;
}

void CanvasBacking::keepAsStandin() {
  if (picture_.isNull() || visible_.isEmpty()) return;
  // Half a picture is a worse stand-in than the one it was to replace.
  if (missing_.intersects(visible_) && !standin_.picture.isNull()) return;
  standin_.part = visible_;
  standin_.scale = scale_;
  std::swap(standin_.picture, picture_);
  if (picture_.size() != standin_.picture.size()) picture_ = {};
}

void CanvasBacking::releaseStandin() {
  if (!missing_.intersects(visible_)) standin_ = {};
}

void CanvasBacking::outdate(const QRegion& region) {
  outdated_ |= (region & window_).subtracted(missing_);
}

void CanvasBacking::outdateAll() {
  outdate(window_);
}

/// The next piece to paint of a region that is not empty: of the rectangle nearest to the focus, the part around it.
/// Twice as wide as high: long rows are quick to paint, but long strips meet more of what lies about than they show.
QRect CanvasBacking::nextPiece(const QRegion& region, QPoint focus) const {
  const QRect rect = *std::ranges::min_element(
      region, [&](const QRect& a, const QRect& b) { return distance(a, focus) < distance(b, focus); });
  const double area = std::max(nanosecondsAPiece / nanosecondsPerPixel_, leastPiece);
  const auto along = [](double length, int available) {
    return static_cast<int>(std::clamp(std::ceil(length), 1.0, double(available)));
  };
  const int width = along(std::max(std::sqrt(2 * area), area / rect.height()), rect.width());
  const int height = along(area / width, rect.height());
  return {std::clamp(focus.x() - width / 2, rect.left(), rect.right() + 1 - width),
          std::clamp(focus.y() - height / 2, rect.top(), rect.bottom() + 1 - height), width, height};
}

QRegion CanvasBacking::paint(const QRegion& region, QPoint focus, std::chrono::nanoseconds budget) {
  const auto start = Clock::now();
  QRegion painted;
  // A piece that would end well after the time is left for the next turn.
  const auto latestStart = budget - std::chrono::nanoseconds(static_cast<std::int64_t>(nanosecondsAPiece / 2));
  for (auto now = start; painted.isEmpty() || now - start < latestStart;) {
    // What is wrong on the screen is worse than what is blurred.
    QRegion waiting = outdated_ & visible_ & region;
    if (waiting.isEmpty()) waiting = missing_ & visible_ & region;
    if (waiting.isEmpty()) break;
    const QRect piece = nextPiece(waiting, focus);
    for (const Run& run : runs(piece, picture_.size())) {
      paint_(picture_, QRect(run.inside, run.part.size()), run.inside - run.part.topLeft());
    }
    painted |= piece;
    missing_ -= piece;
    outdated_ -= piece;
    const auto then = std::exchange(now, Clock::now());
    const double pixels = double(piece.width()) * piece.height();
    if (pixels >= measuredFrom) {
      const double measured = std::chrono::duration<double, std::nano>(now - then).count() / pixels;
      nanosecondsPerPixel_ = std::max(measured, (nanosecondsPerPixel_ + measured) / 2);
    }
  }
  return painted;
}

void CanvasBacking::draw(QPainter& painter, const QRegion& region, const QColor& ground) const {
  const QRegion held = (region & visible_).subtracted(missing_);
  for (const QRect& rect : held) {
    for (const Run& run : runs(rect, picture_.size())) {
      painter.drawImage(run.part.topLeft(), picture_, QRect(run.inside, run.part.size()));
    }
  }
  const QRegion blank = region.subtracted(held);
  if (blank.isEmpty()) return;
  for (const QRect& rect : blank) painter.fillRect(rect, ground);
  drawStandin(painter, blank);
}

void CanvasBacking::drawStandin(QPainter& painter, const QRegion& region) const {
  if (standin_.picture.isNull()) return;
  const double stretch = scale_ / standin_.scale;
  painter.save();
  painter.setClipRegion(region, Qt::IntersectClip);
  for (const Run& run : runs(standin_.part, standin_.picture.size())) {
    const QRectF target(QPointF(run.part.topLeft()) * stretch, QSizeF(run.part.size()) * stretch);
    if (!region.intersects(target.toAlignedRect())) continue;
    painter.drawImage(target, standin_.picture, QRectF(run.inside, run.part.size()));
  }
  painter.restore();
}

QImage CanvasBacking::copy(const QRect& part) const {
  QImage result(part.size(), QImage::Format_ARGB32_Premultiplied);
  result.fill(Qt::transparent);
  QPainter painter(&result);
  painter.translate(-part.topLeft());
  for (const QRect& rect : (QRegion(part) & visible_).subtracted(missing_)) {
    for (const Run& run : runs(rect, picture_.size())) {
      painter.drawImage(run.part.topLeft(), picture_, QRect(run.inside, run.part.size()));
    }
  }
  return result;
}

}  // namespace vellora
