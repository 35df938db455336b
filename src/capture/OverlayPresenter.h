#pragma once

#include <vector>

#include "capture/OverlayInput.h"
#include "capture/OverlayScene.h"

namespace vellora {

/// Puts the overlays on the screens. One run at a time: prepare, show, any number of updates, hide, close. Main thread.
class OverlayPresenter {
 public:
  virtual ~OverlayPresenter() = default;

  /// Gets ready for these displays what takes time; nothing appears. What the displays show at this moment is what the
  /// overlays will show dimmed.
  virtual void prepare(const std::vector<DisplayInfo>& displays) = 0;

  /// Covers every prepared display, takes the keyboard and the pointer and sends what they do to `input` (which stays
  /// until `close`), never from inside this call.
  virtual void show(const OverlayScene& scene, OverlayInput& input) = 0;

  /// Shows another scene; only what differs is painted.
  virtual void update(const OverlayScene& scene) = 0;

  /// Takes the overlays off the screens and gives keyboard and pointer back. On return the display server has done it.
  virtual void hide() = 0;

  /// Ends the run and frees every pixel. Also without `hide` or `show` before.
  virtual void close() = 0;

  /// The modifiers that are down now.
  virtual KeyModifiers modifiers() const = 0;
};

}  // namespace vellora
