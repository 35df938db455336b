#pragma once

#include "capture/OverlaySession.h"
#include "capture/WindowPickModel.h"

namespace vellora {

/// Picks one window on the overlays and takes its picture by itself, whatever covers it.
class WindowPickerSession final : public OverlaySession {
 public:
  WindowPickerSession(OverlayServices services, Completion completion);

 protected:
  std::unique_ptr<OverlayModel> makeModel(ShareableContent content, PixelPoint pointer, KeyModifiers held) override;
  DisplayInfo chosenDisplay() const override { return model_->display().value_or(DisplayInfo{}); }
  PixelRect chosenRect() const override { return model_->window()->frame; }
  WindowId chosenWindow() const override { return model_->window()->id; }
  void capture(std::optional<DisplayInfo> display, CaptureEngine::Callback<CaptureEngine::Image> done) override;

 private:
  const WindowPickModel* model_ = nullptr;  // owned by the base until the session ends
};

}  // namespace vellora
