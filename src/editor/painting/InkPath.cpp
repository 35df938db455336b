#include "editor/painting/InkPath.h"

#include <algorithm>
#include <limits>

#include "editor/painting/Vector.h"

namespace vellora {
namespace {

QPointF toQt(Point point) {
  return {point.x, point.y};
}

/// The middle of the edge after corner k, where curve k ends.
Point middle(std::span<const Point> outline, std::size_t k) {
  const std::size_t corner = k < outline.size() ? k : k - outline.size();
  return vec::mix(outline[corner], outline[corner + 1 < outline.size() ? corner + 1 : 0], 0.5);
}

/// A piece of an outline between two chords: curves on the way forth, after `forthBegin` up to `forthEnd`, a chord,
/// curves on the way back, and the chord home.
struct Cut {
  std::size_t forthBegin;
  std::size_t forthEnd;
  std::size_t backBegin;
  std::size_t backEnd;
  std::span<const Point> outline;
  Rect bounds{};

  /// Curves keep between their ends and their corners.
  void measure() {
    double left = std::numeric_limits<double>::max(), top = left, right = -left, bottom = -left;
    const auto add = [&](Point point) {
      left = std::min(left, point.x);
      right = std::max(right, point.x);
      top = std::min(top, point.y);
      bottom = std::max(bottom, point.y);
    };
    const auto addCurves = [&](std::size_t begin, std::size_t end) {
      for (std::size_t k = begin; k <= end; ++k) {
        if (k > begin) add(outline[k < outline.size() ? k : k - outline.size()]);
        if (k == begin || k == end) add(middle(outline, k));
      }
    };
    addCurves(forthBegin, forthEnd);
    addCurves(backBegin, backEnd);
    bounds = {{left, top}, {right - left, bottom - top}};
  }

  void addTo(QPainterPath& path) const {
    const auto addCurves = [&](std::size_t begin, std::size_t end) {
      for (std::size_t k = begin + 1; k <= end; ++k) {
        path.quadTo(toQt(outline[k < outline.size() ? k : k - outline.size()]), toQt(middle(outline, k)));
      }
    };
    path.moveTo(toQt(middle(outline, forthBegin)));
    addCurves(forthBegin, forthEnd);
    if (backBegin != forthEnd) path.lineTo(toQt(middle(outline, backBegin)));
    addCurves(backBegin, backEnd);
    path.closeSubpath();
  }
};

/// Cuts pieces off an outline, from the start of its stroke on.
class Cutter {
 public:
  Cutter(std::span<const Point> outline, std::vector<Cut>& cuts) : outline_(outline), cuts_(cuts) {}

  void cut() {
    std::size_t forth = 0;
    std::size_t back = outline_.size();
    while (back - forth > 3 * mostCurves) {
      const std::size_t nextForth = endOfPiece(forth);
      const std::size_t nextBack = opposite(nextForth, back);
      cuts_.push_back({forth, nextForth, nextBack, back, outline_});
      const double width = vec::distance(middle(outline_, nextForth), middle(outline_, nextBack));
      pieceLength_ = std::clamp(5 * width, shortest, longest);
      forth = nextForth;
      back = nextBack;
    }
    cuts_.push_back({forth, back, back, back, outline_});
  }

 private:
  static constexpr std::size_t mostCurves = 16;
  // Several times as long as wide, or the chords would take as long as the outline.
  static constexpr double shortest = 24;
  static constexpr double longest = 160;

  std::size_t endOfPiece(std::size_t from) const {
    double length = 0;
    std::size_t to = from;
    do {
      ++to;
      length += vec::distance(outline_[to - 1], outline_[to]);
    } while (to - from < mostCurves && length < pieceLength_);
    return to;
  }

  /// The nearest place across the stroke, not far from where the last chord ended.
  std::size_t opposite(std::size_t forth, std::size_t back) const {
    const Point from = middle(outline_, forth);
    std::size_t best = back;
    double least = vec::distance(from, middle(outline_, back));
    for (std::size_t k = back - 1; k + 2 * mostCurves > back && k > forth; --k) {
      const double distance = vec::distance(from, middle(outline_, k));
      if (distance < least) {
        least = distance;
        best = k;
      }
    }
    return best;
  }

  std::span<const Point> outline_;
  std::vector<Cut>& cuts_;
  double pieceLength_ = shortest;
};

bool meet(const QRectF& a, const QRectF& b) {
  return a.left() < b.right() && b.left() < a.right() && a.top() < b.bottom() && b.top() < a.bottom();
}

}  // namespace

InkPath InkPath::of(std::span<const std::vector<Point>> outlines) {
  std::vector<Cut> cuts;
  std::size_t corners = 0;
  for (const std::vector<Point>& outline : outlines) {
    if (outline.size() < 3) continue;
    Cutter(outline, cuts).cut();
    corners += outline.size();
  }
  for (Cut& cut : cuts) cut.measure();
  std::sort(cuts.begin(), cuts.end(), [](const Cut& a, const Cut& b) { return a.bounds.minX() > b.bounds.minX(); });

  InkPath ink;
  ink.whole_.reserve(static_cast<int>(3 * corners + 3 * cuts.size()));
  ink.pieces_.reserve(cuts.size());
  for (const Cut& cut : cuts) {
    const int begin = ink.pieces_.empty() ? 0 : ink.pieces_.back().end;
    cut.addTo(ink.whole_);
    const QRectF bounds(cut.bounds.minX(), cut.bounds.minY(), cut.bounds.size.width, cut.bounds.size.height);
    ink.pieces_.push_back({begin, ink.whole_.elementCount(), bounds});
    ink.bounds_ = ink.pieces_.size() == 1 ? bounds : ink.bounds_ | bounds;
  }
  ink.whole_.setFillRule(Qt::WindingFill);
  return ink;
}

QPainterPath InkPath::within(const QRectF& clip) const {
  if (clip.contains(bounds_)) return whole_;
  QPainterPath part;
  part.setFillRule(Qt::WindingFill);
  for (const Piece& piece : pieces_) {
    if (!meet(piece.bounds, clip)) continue;
    for (int i = piece.begin; i < piece.end; ++i) {
      const QPainterPath::Element element = whole_.elementAt(i);
      if (element.isMoveTo()) {
        part.moveTo(element);
      } else if (element.isLineTo()) {
        part.lineTo(element);
      } else {
        part.cubicTo(element, whole_.elementAt(i + 1), whole_.elementAt(i + 2));
        i += 2;
      }
    }
  }
  return part;
}

QRectF InkPath::changedFrom(const InkPath& other) const {
  QRectF changed;
  const auto add = [&](const QRectF& bounds) { changed = changed.isNull() ? bounds : changed | bounds; };
  const auto same = [&](const Piece& a, const Piece& b) {
    if (a.end - a.begin != b.end - b.begin) return false;
    for (int i = 0; i < a.end - a.begin; ++i) {
      if (whole_.elementAt(a.begin + i) != other.whole_.elementAt(b.begin + i)) return false;
    }
    return true;
  };
  // Both are sorted alike, so that equal pieces come in the same order.
  auto mine = pieces_.begin();
  auto its = other.pieces_.begin();
  while (mine != pieces_.end() && its != other.pieces_.end()) {
    if (same(*mine, *its)) {
      ++mine;
      ++its;
    } else if (mine->bounds.left() >= its->bounds.left()) {
      add((mine++)->bounds);
    } else {
      add((its++)->bounds);
    }
  }
  for (; mine != pieces_.end(); ++mine) add(mine->bounds);
  for (; its != other.pieces_.end(); ++its) add(its->bounds);
  return changed;
}

}  // namespace vellora
