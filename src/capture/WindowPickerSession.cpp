#include "capture/WindowPickerSession.h"

#include <utility>

namespace vellora {

WindowPickerSession::WindowPickerSession(OverlayServices services, Completion completion)
    : OverlaySession(services, QStringLiteral("window capture"), std::move(completion)) {}

std::unique_ptr<OverlayModel> WindowPickerSession::makeModel(ShareableContent content, PixelPoint pointer,
                                                             KeyModifiers) {
  auto model = std::make_unique<WindowPickModel>(std::move(content), pointer);
  model_ = model.get();
  return model;
}

void WindowPickerSession::capture(std::optional<DisplayInfo> display,
                                  CaptureEngine::Callback<CaptureEngine::Image> done) {
  // A window may outlive its display: it is still there to be captured.
  const double scale = display ? display->scale : chosenDisplay().scale;
  engine().captureWindow(model_->window()->id, scale, std::move(done));
}

}  // namespace vellora
