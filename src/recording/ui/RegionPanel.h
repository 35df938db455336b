#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QObject>

#include "platform/ScreenCaptureService.h"
#include "recording/ui/RegionModel.h"

namespace vellora {

class RegionBadge;
class WindowHints;

/// The frame in which a person chooses the region: its line with eight handles, a badge with the size and the presets,
/// and shade over the rest of the display. What lies in the region stays within the pointer's reach. Main thread.
class RegionPanel final : public QObject {
  Q_OBJECT

 public:
  /// `hints` may be null.
  RegionPanel(const PixelRect& region, const DisplayInfo& screen, WindowHints* hints);
  ~RegionPanel() override;

  void show();
  void hide();

  const RegionModel& model() const { return model_; }
  void nudge(int dx, int dy);
  void apply(const RegionPreset& preset);
  /// Opens the menu of presets.
  void openPresets();

  std::vector<WindowId> windows() const;
  RegionBadge& badge() { return *badge_; }

 signals:
  void regionChanged(const vellora::PixelRect& region);
  /// A person works with it.
  void pressed();

 private:
  class Frame;
  class Shade;
  void arrange();
  void changed(const PixelRect& before);

  DisplayInfo screen_;
  RegionModel model_;
  std::unique_ptr<Shade> shade_;  // where windows are blended
  std::unique_ptr<Frame> frame_;
  std::unique_ptr<RegionBadge> badge_;
};

}  // namespace vellora
