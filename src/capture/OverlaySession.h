#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QString>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "capture/CaptureEngine.h"
#include "capture/CaptureOrigin.h"
#include "capture/OverlayModel.h"
#include "capture/OverlayPresenter.h"
#include "platform/ScreenService.h"

namespace vellora {

/// What every session needs; all of it outlives the sessions.
struct OverlayServices {
  CaptureEngine& engine;
  ScreenService& screens;
  OverlayPresenter& presenter;
  RunLoop& runLoop;
};

/// One run of the overlays: show them, let a model decide, hide them, wait for the screens to repaint, take the
/// picture. The completion is called exactly once after `begin`, as the last thing the session does: it may destroy the
/// session. Destroying a session that runs ends it without a call. Main thread.
class OverlaySession : private OverlayInput {
 public:
  /// The picture and where it came from; no picture when the session was cancelled or failed.
  using Completion = std::function<void(std::optional<CapturedImage>, CaptureOrigin)>;

  ~OverlaySession() override;
  OverlaySession(const OverlaySession&) = delete;
  OverlaySession& operator=(const OverlaySession&) = delete;

  /// Shows the overlays as soon as the desktop has told what there is. Once.
  void begin();
  /// Ends the session at whatever stage it is; nothing when it has ended.
  void cancel();
  /// As `cancel`.
  void teardown() { cancel(); }

  /// From `begin` to the completion.
  bool isActive() const { return state_ != State::Idle && state_ != State::TornDown; }
  /// Why there was no picture; nothing after a cancel. Set when the completion runs.
  std::optional<CaptureError> error() const { return error_; }

 protected:
  OverlaySession(OverlayServices services, QString logName, Completion completion);

  virtual std::unique_ptr<OverlayModel> makeModel(ShareableContent content, PixelPoint pointer, KeyModifiers held) = 0;
  /// What the finished model chose: the display it is on and the rectangle.
  virtual DisplayInfo chosenDisplay() const = 0;
  virtual PixelRect chosenRect() const = 0;
  virtual WindowId chosenWindow() const { return 0; }
  /// Takes the picture of what was chosen; `display` as it is now, nothing when it is gone.
  virtual void capture(std::optional<DisplayInfo> display, CaptureEngine::Callback<CaptureEngine::Image> done) = 0;

  CaptureEngine& engine() const { return services_.engine; }

 private:
  enum class State { Idle, Fetching, Selecting, Waiting, Capturing, TornDown };

  void pointerMoved(PixelPoint position, KeyModifiers modifiers) override;
  void pointerPressed(const OverlayPointerEvent& event) override;
  void pointerReleased(const OverlayPointerEvent& event) override;
  void keyPressed(OverlayKey key, KeyModifiers modifiers) override;
  void keyReleased(OverlayKey key, KeyModifiers modifiers) override;
  void modifiersChanged(KeyModifiers modifiers) override;
  void displaysChanged() override;

  void contentArrived(CaptureEngine::Content content);
  void modelChanged();
  void waitForRepaint();
  void takePicture();
  void pictureArrived(CaptureEngine::Image image);
  void endSoon(std::optional<CaptureError> error);
  void end(std::optional<CapturedImage> image, std::optional<CaptureError> error);

  OverlayServices services_;
  const QString logName_;
  Completion completion_;
  State state_ = State::Idle;
  std::optional<PixelPoint> pointer_;  // as the session began
  KeyModifiers held_;
  std::unique_ptr<OverlayModel> model_;
  OverlayScene shown_;
  CaptureOrigin origin_;
  std::optional<CaptureError> error_;
  TimerHandle wait_;
  Lifetime lifetime_;
};

}  // namespace vellora
