#pragma once

#include "capture/OverlaySession.h"
#include "capture/SelectionModel.h"

namespace vellora {

/// One area selection: the picture of a rectangle the person draws, and the rectangle as the capture's origin.
class SelectionSession final : public OverlaySession {
 public:
  /// What the selected area is for. It decides the hint the overlays show; every purpose gets the picture and the
  /// rectangle.
  enum class Purpose { ImageCapture, TextCapture, ScrollingCapture, RegionRecording };

  SelectionSession(Purpose purpose, OverlayServices services, Completion completion, bool adjustAfterRelease = false);

  Purpose purpose() const { return purpose_; }

 protected:
  std::unique_ptr<OverlayModel> makeModel(ShareableContent content, PixelPoint pointer, KeyModifiers held) override;
  DisplayInfo chosenDisplay() const override { return model_->display(); }
  PixelRect chosenRect() const override { return model_->rect(); }
  void capture(std::optional<DisplayInfo> display, CaptureEngine::Callback<CaptureEngine::Image> done) override;

 private:
  const Purpose purpose_;
  const bool adjustAfterRelease_;
  const SelectionModel* model_ = nullptr;  // owned by the base until the session ends
};

}  // namespace vellora
