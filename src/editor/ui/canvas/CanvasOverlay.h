#pragma once

#include <optional>
#include <vector>

#include <QLineF>
#include <QPainterPath>
#include <QPointF>
#include <QPolygonF>
#include <QRect>
#include <QRegion>
#include <QTransform>

#include "editor/canvas/CanvasModel.h"

class QPainter;

namespace vellora {

/// What lies over the document while it is worked on, placed in device pixels of the view: outlines, handles, guides,
/// the marquee, the crop's frame, the text cursor.
struct OverlayContent {
  struct Mark {
    Handle::Role role = Handle::Role::Start;
    QPointF position;
    friend bool operator==(const Mark&, const Mark&) = default;
  };
  struct Crop {
    QRect frame;               ///< what stays
    QRect sheet;               ///< what is dimmed outside of it
    bool showsThirds = false;  ///< while it is dragged
    friend bool operator==(const Crop&, const Crop&) = default;
  };

  std::vector<QPolygonF> outlines;   ///< of what is selected
  std::vector<QPolygonF> shafts;     ///< along arrows and lines that are selected together, from end to end
  std::optional<QPolygonF> hovered;  ///< of what a click would select
  QPolygonF hoveredShaft;            ///< along the arrow or line a click would select
  std::optional<QPolygonF> marquee;
  std::vector<QLineF> guides;
  std::vector<QPainterPath> lensSources;  ///< what a selected lens shows
  std::vector<Mark> marks;
  std::optional<Crop> crop;
  std::optional<QPolygonF> textFrame;  ///< around the text being edited
  std::vector<QPolygonF> textSelection;
  std::vector<QLineF> composing;  ///< lines under what the input method composes
  std::optional<QLineF> cursor;   ///< of the text; absent in the dark half of its blinking
  friend bool operator==(const OverlayContent&, const OverlayContent&) = default;
};

/// What the model holds, placed by `toView` (from document points before the backdrop's placement to device pixels).
/// `showsHovered`: with the outline of what a click would take.
OverlayContent overlayOf(const CanvasModel& model, const QTransform& toView, bool showsHovered);

/// Every pixel `content` may colour; `ratio`: device pixels per point of the view.
QRegion overlayRegion(const OverlayContent& content, double ratio);

/// What looks different when one takes the other's place.
QRegion overlayDifference(const OverlayContent& before, const OverlayContent& after, double ratio);

/// Draws it; `painter` has device pixels as coordinates.
void paintOverlay(QPainter& painter, const OverlayContent& content, double ratio);

}  // namespace vellora
