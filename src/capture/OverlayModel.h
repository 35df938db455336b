#pragma once

#include "capture/OverlayInput.h"
#include "capture/OverlayScene.h"

namespace vellora {

enum class OverlayOutcome { Running, Finished, Cancelled };

/// The rules of one overlay run: events in, a scene and an outcome out. Needs no display.
class OverlayModel {
 public:
  virtual ~OverlayModel() = default;
  OverlayModel() = default;
  OverlayModel(const OverlayModel&) = delete;
  OverlayModel& operator=(const OverlayModel&) = delete;

  virtual void pointerMoved(PixelPoint position, KeyModifiers modifiers) = 0;
  virtual void pointerPressed(const OverlayPointerEvent& event) = 0;
  virtual void pointerReleased(const OverlayPointerEvent& event) = 0;
  virtual void keyPressed(OverlayKey key, KeyModifiers modifiers) = 0;
  virtual void keyReleased(OverlayKey key, KeyModifiers modifiers) = 0;
  virtual void modifiersChanged(KeyModifiers modifiers) = 0;

  virtual OverlayScene scene() const = 0;
  virtual OverlayOutcome outcome() const = 0;
};

}  // namespace vellora
