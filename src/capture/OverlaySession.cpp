#include "capture/OverlaySession.h"

#include <utility>

#include "base/Log.h"
#include "capture/RepaintWait.h"

namespace vellora {

OverlaySession::OverlaySession(OverlayServices services, QString logName, Completion completion)
    : services_(services), logName_(std::move(logName)), completion_(std::move(completion)) {}

OverlaySession::~OverlaySession() {
  if (isActive()) services_.presenter.close();
}

void OverlaySession::begin() {
  if (state_ != State::Idle) return;
  state_ = State::Fetching;
  services_.engine.shareableContent(
      lifetime_.guard([this](CaptureEngine::Content content) { contentArrived(std::move(content)); }));
  // Asked for first: once the displays are being frozen the desktop answers late.
  pointer_ = services_.screens.pointerPosition();
  held_ = services_.presenter.modifiers();
  // The windows are listed on the engine's queue while the overlays get ready here.
  std::vector<DisplayInfo> displays;
  for (const ScreenInfo& screen : services_.screens.screens()) displays.push_back(screen.display);
  services_.presenter.prepare(displays);
}

void OverlaySession::contentArrived(CaptureEngine::Content content) {
  if (state_ != State::Fetching) return;
  if (!content) return end(std::nullopt, content.error());
  if (content->displays.empty()) return end(std::nullopt, CaptureError::NoDisplay);
  const PixelPoint pointer = pointer_.value_or(content->displays.front().frame.center());
  model_ = makeModel(std::move(*content), pointer, held_);
  state_ = State::Selecting;
  shown_ = model_->scene();
  services_.presenter.show(shown_, *this);
}

void OverlaySession::pointerMoved(PixelPoint position, KeyModifiers modifiers) {
  if (state_ != State::Selecting) return;
  model_->pointerMoved(position, modifiers);
  modelChanged();
}

void OverlaySession::pointerPressed(const OverlayPointerEvent& event) {
  if (state_ != State::Selecting) return;
  model_->pointerPressed(event);
  modelChanged();
}

void OverlaySession::pointerReleased(const OverlayPointerEvent& event) {
  if (state_ != State::Selecting) return;
  model_->pointerReleased(event);
  modelChanged();
}

void OverlaySession::keyPressed(OverlayKey key, KeyModifiers modifiers) {
  if (state_ != State::Selecting) return;
  model_->keyPressed(key, modifiers);
  modelChanged();
}

void OverlaySession::keyReleased(OverlayKey key, KeyModifiers modifiers) {
  if (state_ != State::Selecting) return;
  model_->keyReleased(key, modifiers);
  modelChanged();
}

void OverlaySession::modifiersChanged(KeyModifiers modifiers) {
  if (state_ != State::Selecting) return;
  model_->modifiersChanged(modifiers);
  modelChanged();
}

void OverlaySession::displaysChanged() {
  if (state_ == State::Selecting) endSoon(CaptureError::NoDisplay);
}

void OverlaySession::modelChanged() {
  switch (model_->outcome()) {
    case OverlayOutcome::Running: {
      OverlayScene scene = model_->scene();
      if (scene == shown_) return;
      shown_ = std::move(scene);
      services_.presenter.update(shown_);
      return;
    }
    case OverlayOutcome::Finished:
      return waitForRepaint();
    case OverlayOutcome::Cancelled:
      return endSoon(std::nullopt);
  }
}

void OverlaySession::waitForRepaint() {
  state_ = State::Waiting;
  services_.presenter.hide();
  const DisplayInfo display = chosenDisplay();
  origin_ = {chosenRect(), display.id, chosenWindow()};
  wait_ = services_.runLoop.after(repaintWait(display.refreshRate), [this] { takePicture(); });
  // The overlays' pixels go while there is time, once the event that ended the selection has returned: the picture then
  // finds memory that is warm, and a display server that is idle.
  services_.runLoop.post(lifetime_.guard([this] {
    if (state_ == State::Waiting) services_.presenter.close();
  }));
}

void OverlaySession::takePicture() {
  state_ = State::Capturing;
  std::optional<DisplayInfo> display;
  for (const ScreenInfo& screen : services_.screens.screens()) {
    if (screen.display.id == origin_.display) display = screen.display;
  }
  capture(display, lifetime_.guard([this](CaptureEngine::Image image) { pictureArrived(std::move(image)); }));
}

void OverlaySession::pictureArrived(CaptureEngine::Image image) {
  if (state_ != State::Capturing) return;
  if (image) {
    end(std::move(*image), std::nullopt);
  } else {
    end(std::nullopt, image.error());
  }
}

void OverlaySession::cancel() {
  if (isActive()) end(std::nullopt, std::nullopt);
}

/// Ends from inside an event of the overlays: they must not be destroyed before it has returned.
void OverlaySession::endSoon(std::optional<CaptureError> error) {
  state_ = State::Waiting;
  services_.presenter.hide();
  services_.runLoop.post(lifetime_.guard([this, error] {
    if (isActive()) end(std::nullopt, error);
  }));
}

void OverlaySession::end(std::optional<CapturedImage> image, std::optional<CaptureError> error) {
  state_ = State::TornDown;
  wait_.reset();
  services_.presenter.close();
  model_.reset();
  error_ = error;
  if (error) log::error(logName_ + QStringLiteral(" failed: ") + QLatin1String(description(*error)));
  const CaptureOrigin origin = image ? origin_ : CaptureOrigin{};
  const Completion completion = std::move(completion_);
  if (completion) completion(std::move(image), origin);
}

}  // namespace vellora
