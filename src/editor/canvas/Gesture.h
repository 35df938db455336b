#pragma once

#include <optional>
#include <set>
#include <vector>

#include "editor/ImageDocument.h"
#include "editor/canvas/CanvasInput.h"
#include "editor/canvas/Snapping.h"

namespace vellora {

/// What a press of the pointer has come to so far. The document it holds becomes one step when the pointer is let go.
struct GestureState {
  ImageDocument document;
  std::set<AnnotationId> selection;
  std::optional<std::uint64_t> piece;  ///< the selected one
  std::optional<Rect> marquee;
  std::vector<Guide> guides;
  std::optional<AnnotationId> drawn;  ///< the new annotation
  std::optional<Annotation> typing;   ///< a text to be typed, not yet in the document
};

/// One press of the pointer until it is let go. Computes its state from where it started and where the pointer is now,
/// so that what lies between leaves nothing behind.
class Gesture {
 public:
  explicit Gesture(GestureState start) : start_(std::move(start)), state_(start_) {}
  virtual ~Gesture() = default;
  Gesture(const Gesture&) = delete;
  Gesture& operator=(const Gesture&) = delete;

  /// Does something where it is pressed, before the pointer has moved.
  virtual bool startsOnPress() const { return false; }
  virtual void drag(const PointerEvent& event) = 0;
  /// The pointer was let go where it was pressed.
  virtual void click(const PointerEvent&) {}

  const GestureState& start() const { return start_; }
  const GestureState& state() const { return state_; }

 protected:
  GestureState start_;
  GestureState state_;
};

/// Puts `annotation` into the document in the place of the one with its id, or on top of all.
void place(ImageDocument& document, const Annotation& annotation);

}  // namespace vellora
