#pragma once

#include "editor/canvas/Gesture.h"

namespace vellora {

/// Moves the selected annotations and lines them up. Shift keeps to one axis, Control lets nothing line up; while Alt
/// is held copies move and the originals stay. A click changes the selection to `clicked`.
class MoveGesture final : public Gesture {
 public:
  MoveGesture(GestureState start, const PointerEvent& press, AnnotationOutlines& outlines,
              std::set<AnnotationId> clicked);
  void drag(const PointerEvent& event) override;
  void click(const PointerEvent& event) override;

 private:
  Point from_;
  std::vector<AnnotationPtr> moving_;
  std::vector<AnnotationId> copyIds_;
  Rect bounds_;
  Snapper snapper_;
  std::set<AnnotationId> clicked_;
};

/// Moves a piece by whole pixels, and with it what is drawn on it; with Alt the piece alone. Lines up like annotations.
class PieceGesture final : public Gesture {
 public:
  PieceGesture(GestureState start, std::uint64_t piece, const PointerEvent& press, AnnotationOutlines& outlines);
  void drag(const PointerEvent& event) override;
  void click(const PointerEvent& event) override;

 private:
  Point from_;
  std::uint64_t piece_;
  std::set<AnnotationId> riding_;
  Snapper snapper_;
};

/// Drags a handle of an annotation.
class HandleGesture final : public Gesture {
 public:
  HandleGesture(GestureState start, AnnotationPtr annotation, const Handle& handle, const PointerEvent& press,
                AnnotationOutlines& outlines);
  void drag(const PointerEvent& event) override;

 private:
  AnnotationPtr annotation_;
  Rect outline_;
  Handle handle_;
  Point offset_;  // from the pointer to the handle
  Snapper snapper_;
};

/// Selects what the pointer draws a rectangle over; with Shift beside what was selected. A click selects `clickedPiece`
/// or, without one, nothing.
class MarqueeGesture final : public Gesture {
 public:
  MarqueeGesture(GestureState start, const PointerEvent& press, AnnotationOutlines& outlines,
                 std::optional<std::uint64_t> clickedPiece);
  void drag(const PointerEvent& event) override;
  void click(const PointerEvent& event) override;

 private:
  Point from_;
  bool adds_;
  AnnotationOutlines& outlines_;
  std::optional<std::uint64_t> clickedPiece_;
};

/// Crops a piece by one of its edges or corners; from its inside, shows another part of the source.
class CropGesture final : public Gesture {
 public:
  CropGesture(GestureState start, std::uint64_t piece, std::optional<Handle> handle, const PointerEvent& press);
  void drag(const PointerEvent& event) override;

 private:
  std::uint64_t piece_;
  std::optional<Handle> handle_;
  Point from_;
};

/// The document with a piece moved, and with it the annotations of `riding`.
ImageDocument withPieceMoved(const ImageDocument& document, std::uint64_t piece, Point by,
                             const std::set<AnnotationId>& riding);

}  // namespace vellora
