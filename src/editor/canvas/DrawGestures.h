#pragma once

#include "editor/canvas/Gesture.h"

namespace vellora {

/// Draws what is spanned by two points: arrow, line, box, ellipse, blur, lens. Shift goes in steps of 45° or makes it
/// even, Alt starts from the centre. A click draws nothing, but a lens of a usual size.
class ShapeGesture final : public Gesture {
 public:
  /// `prototype` has everything but its place.
  ShapeGesture(GestureState start, Annotation prototype, const PointerEvent& press);
  void drag(const PointerEvent& event) override;
  void click(const PointerEvent& event) override;

 private:
  Annotation prototype_;
  Point from_;
};

/// Draws freehand. Samples that lie on each other count once. While Shift is held the stroke goes on straight, and
/// locks onto steps of 45° that are near. A click leaves a dot.
class PenGesture final : public Gesture {
 public:
  PenGesture(GestureState start, Annotation prototype, const PointerEvent& press);
  bool startsOnPress() const override { return true; }
  void drag(const PointerEvent& event) override;

 private:
  void add(Point place, double pressure, double least);
  void addStraightTo(Point place, double pressure, double spacing);
  void show();

  Annotation stroke_;
  std::vector<Point> points_;
  std::vector<double> pressures_;
  std::optional<std::size_t> straightFrom_;  // samples up to here are kept while Shift is held
};

/// Places a counter where it is pressed; dragging turns its tail, with Shift in steps of 45°.
class CounterGesture final : public Gesture {
 public:
  CounterGesture(GestureState start, Annotation prototype, const PointerEvent& press);
  bool startsOnPress() const override { return true; }
  void drag(const PointerEvent& event) override;

 private:
  Annotation counter_;
};

/// Begins a text: a click one as wide as it grows, a drag one that wraps at the width dragged.
class TextGesture final : public Gesture {
 public:
  TextGesture(GestureState start, Annotation prototype, const PointerEvent& press, TextMeasurer& measurer);
  void drag(const PointerEvent& event) override;
  void click(const PointerEvent& event) override;

 private:
  Annotation prototype_;
  Point from_;
  TextMeasurer& measurer_;
};

}  // namespace vellora
