#pragma once

#include <optional>

#include "capture/OverlayModel.h"
#include "capture/WindowOrder.h"

namespace vellora {

/// The rules of picking one window: the one under the pointer is highlighted, Tab and the arrows go through all of
/// them, a click or Return takes it, Escape or the right button leaves.
class WindowPickModel final : public OverlayModel {
 public:
  WindowPickModel(ShareableContent content, PixelPoint pointer);

  void pointerMoved(PixelPoint position, KeyModifiers modifiers) override;
  void pointerPressed(const OverlayPointerEvent& event) override;
  void pointerReleased(const OverlayPointerEvent& event) override;
  void keyPressed(OverlayKey key, KeyModifiers modifiers) override;
  void keyReleased(OverlayKey, KeyModifiers) override {}
  void modifiersChanged(KeyModifiers) override {}

  OverlayScene scene() const override;
  OverlayOutcome outcome() const override { return outcome_; }

  /// The window taken. Set once the outcome is Finished.
  const std::optional<WindowInfo>& window() const { return taken_; }
  /// The display that shows most of it.
  std::optional<DisplayInfo> display() const;

 private:
  void take();

  const ShareableContent content_;
  WindowOrder windows_;
  PixelPoint pointer_;
  bool pressed_ = false;
  OverlayOutcome outcome_ = OverlayOutcome::Running;
  std::optional<WindowInfo> taken_;
};

}  // namespace vellora
