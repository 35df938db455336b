#include <numbers>

#include "editor/canvas/AnnotationClip.h"
#include "editor/canvas/AnnotationGeometry.h"
#include "editor/canvas/CanvasModelPrivate.h"
#include "editor/canvas/Cropping.h"
#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

namespace {

using Key = KeyInput::Key;
using Kind = Annotation::Kind;

constexpr double step = 1;  // document points
constexpr double wideStep = 10;
constexpr double turnStep = std::numbers::pi / 36;
constexpr double wideTurn = std::numbers::pi / 4;

/// Where an arrow key points; nothing for other keys.
std::optional<Point> directionOf(Key key) {
  switch (key) {
    case Key::Left:
      return Point{-1, 0};
    case Key::Right:
      return Point{1, 0};
    case Key::Up:
      return Point{0, -1};
    case Key::Down:
      return Point{0, 1};
    default:
      return std::nullopt;
  }
}

/// The handle that keys drag.
Handle::Role stretchedHandle(Kind kind) {
  if (kind == Kind::Arrow || kind == Kind::Line) return Handle::Role::End;
  return kind == Kind::Counter ? Handle::Role::Tail : Handle::Role::BottomRight;
}

/// How far what is drawn by keys reaches, in document points.
Point usualExtent(Kind kind) {
  if (kind == Kind::Arrow || kind == Kind::Line) return {120, 0};
  if (kind == Kind::Magnifier) return {140, 140};
  return kind == Kind::Text || kind == Kind::Counter ? Point{} : Point{120, 80};
}

}  // namespace

/// Drags the last corner or end of the selected annotation, or turns its tail.
void CanvasModel::Private::stretch(Point direction, bool wide) {
  if (selection.size() != 1) return;
  const AnnotationPtr selected = document().annotation(*selection.begin());
  Annotation changedAnnotation = *selected;
  const auto role = stretchedHandle(selected->kind);
  if (role == Handle::Role::Tail) {
    changedAnnotation.tailAngle += (direction.x + direction.y) * (wide ? wideTurn : turnStep);
  } else {
    const Rect outline = outlines.of(selected);
    for (const Handle& handle : handlesOf(*selected, outline)) {
      if (handle.role != role) continue;
      const Point to = sum(handle.position, scaled(direction, wide ? wideStep : step));
      changedAnnotation = withHandleAt(*selected, outline, role, to, {}, 1);
    }
  }
  ImageDocument next = document();
  next.annotations[*next.indexOf(selected->id)] = makeAnnotation(std::move(changedAnnotation));
  commit(std::move(next), "stretch");
}

/// Shows another part of the source, or with Control and Alt drags the last or the first corner of the crop.
void CanvasModel::Private::cropByKey(Point direction, const Modifiers& modifiers) {
  ImageDocument next = document();
  for (CapturePiece& each : next.pieces) {
    if (each.id != cropped) continue;
    const Point by = scaled(direction, modifiers.shift ? wideStep : step);
    const Rect frame = each.frame();
    if (modifiers.control) {
      each = vellora::cropped(each, Handle::Role::BottomRight, sum({frame.maxX(), frame.maxY()}, by));
    } else if (modifiers.alt) {
      each = vellora::cropped(each, Handle::Role::TopLeft, sum(frame.origin, by));
    } else {
      each = cropShifted(each, by);
    }
  }
  commit(std::move(next), "crop by keys");
}

bool CanvasModel::Private::arrowKey(Point direction, const Modifiers& modifiers) {
  if (cropped) {
    cropByKey(direction, modifiers);
    return true;
  }
  if (selection.empty() && (!piece || modifiers.control)) return false;
  if (modifiers.control) {
    stretch(direction, modifiers.shift);
  } else {
    const Point by = scaled(direction, modifiers.shift ? wideStep : step);
    nudge(by);
  }
  return true;
}

/// Draws what the tool draws in the middle of the picture, for hands that cannot drag. False for the pen.
bool CanvasModel::Private::drawByKey() {
  if (tool == Tool::Select || tool == Tool::Pen) return false;
  Annotation drawn = newAnnotation(*drawnKind(tool));
  const Point extent = usualExtent(drawn.kind);
  drawn.p1 = difference(center(document().contentRect()), scaled(extent, 0.5));
  drawn.p2 = sum(drawn.p1, extent);
  constexpr int mostShifts = 50;
  for (int i = 0; i < mostShifts; ++i) {
    const AnnotationPtr candidate = makeAnnotation(drawn);
    if (!coversLike(document(), {&candidate, 1})) break;
    drawn = moved(drawn, {copyOffset, copyOffset});
  }
  if (drawn.kind == Kind::Text) {
    beginTyping(drawn);
    return true;
  }
  ImageDocument next = document();
  next.annotations.push_back(makeAnnotation(drawn));
  commit(std::move(next));
  setSelection({drawn.id});
  afterDrawing();
  return true;
}

bool CanvasModel::Private::returnKey() {
  if (cropped) {
    cropped.reset();
    return true;
  }
  const AnnotationPtr selected = selection.size() == 1 ? document().annotation(*selection.begin()) : nullptr;
  if (selected == nullptr || selected->kind != Kind::Text) return drawByKey();
  beginTyping(*selected);
  typing->selectAll();
  return true;
}

bool CanvasModel::escape() {
  const Private::Call call(*d_);
  if (d_->gesture) {
    d_->dropGesture();
  } else if (d_->typing) {
    d_->endTyping();
  } else if (d_->cropped) {
    d_->cropped.reset();
  } else if (!d_->selection.empty() || d_->piece) {
    d_->setSelection({});
  } else if (d_->tool != Tool::Select) {
    setTool(Tool::Select);
  } else {
    return false;
  }
  return true;
}

bool CanvasModel::keyPress(const KeyInput& key) {
  const Private::Call call(*d_);
  if (d_->typing && !d_->gesture) return d_->keyWhileTyping(key);
  if (key.key == Key::Escape) return escape();
  if (d_->gesture) return false;
  if (const auto direction = directionOf(key.key)) return d_->arrowKey(*direction, key.modifiers);
  switch (key.key) {
    case Key::Delete:
    case Key::Backspace: {
      const bool deletes = canDelete();
      if (deletes) deleteSelection();
      return deletes;
    }
    case Key::Return:
      return d_->returnKey();
    case Key::Tab:
    case Key::Backtab:
      return d_->selectByTab(key.key == Key::Tab && !key.modifiers.shift ? 1 : -1);
    case Key::SelectAll:
      selectAll();
      return true;
    default:
      return false;
  }
}

}  // namespace vellora
