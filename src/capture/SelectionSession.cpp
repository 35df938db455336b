#include "capture/SelectionSession.h"

#include <utility>

namespace vellora {
namespace {

QString hintKey(SelectionSession::Purpose purpose) {
  switch (purpose) {
    case SelectionSession::Purpose::TextCapture:
      return QStringLiteral("overlay.hint.text");
    case SelectionSession::Purpose::ScrollingCapture:
      return QStringLiteral("overlay.hint.scrolling");
    case SelectionSession::Purpose::RegionRecording:
      return QStringLiteral("overlay.hint.recording");
    case SelectionSession::Purpose::ImageCapture:
      break;
  }
  return QStringLiteral("overlay.hint.area");
}

}  // namespace

SelectionSession::SelectionSession(Purpose purpose, OverlayServices services, Completion completion,
                                   bool adjustAfterRelease)
    : OverlaySession(services, QStringLiteral("area capture"), std::move(completion)),
      purpose_(purpose),
      adjustAfterRelease_(adjustAfterRelease) {}

std::unique_ptr<OverlayModel> SelectionSession::makeModel(ShareableContent content, PixelPoint pointer,
                                                          KeyModifiers held) {
  auto model = std::make_unique<SelectionModel>(
      std::move(content), SelectionOptions{adjustAfterRelease_, hintKey(purpose_)}, pointer, held);
  model_ = model.get();
  return model;
}

void SelectionSession::capture(std::optional<DisplayInfo> display, CaptureEngine::Callback<CaptureEngine::Image> done) {
  if (!display) return done(failure(CaptureError::NoDisplay));
  const PixelRect& before = model_->display().frame;
  const PixelRect part = model_->rect().translated(-before.x, -before.y);
  engine().captureDisplay(*display, part, std::move(done));
}

}  // namespace vellora
