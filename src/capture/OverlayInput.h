#pragma once

#include "base/Geometry.h"

namespace vellora {

/// The keys an overlay understands, whatever the toolkit calls them.
enum class OverlayKey { Left, Right, Up, Down, Return, Escape, Space, Tab, Backtab, SelectAll };

struct KeyModifiers {
  bool shift = false;
  bool alt = false;
  bool control = false;
  friend bool operator==(const KeyModifiers&, const KeyModifiers&) = default;
};

enum class PointerButton { Primary, Secondary };

/// A button going down or up.
struct OverlayPointerEvent {
  PointerButton button = PointerButton::Primary;
  PixelPoint position;  ///< on the desktop, in device pixels
  KeyModifiers modifiers;
  int clicks = 1;  ///< 2 for the second press of a double click
};

/// Receives what a person does on the overlays. Main thread.
class OverlayInput {
 public:
  virtual ~OverlayInput() = default;

  virtual void pointerMoved(PixelPoint position, KeyModifiers modifiers) = 0;
  virtual void pointerPressed(const OverlayPointerEvent& event) = 0;
  virtual void pointerReleased(const OverlayPointerEvent& event) = 0;
  /// Repeats of a held key come as further presses, except for Space.
  virtual void keyPressed(OverlayKey key, KeyModifiers modifiers) = 0;
  virtual void keyReleased(OverlayKey key, KeyModifiers modifiers) = 0;
  /// Shift, Alt or Control went down or up.
  virtual void modifiersChanged(KeyModifiers modifiers) = 0;
  /// The displays under the overlays changed: what they show is no longer true.
  virtual void displaysChanged() = 0;
};

}  // namespace vellora
