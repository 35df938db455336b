#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "base/Lifetime.h"
#include "capture/AccessGate.h"
#include "capture/CaptureCompletion.h"
#include "capture/CaptureCountdown.h"
#include "capture/CaptureRequest.h"
#include "capture/CaptureResult.h"
#include "capture/OverlaySession.h"

namespace vellora {

/// Starts every image capture and keeps to one at a time. Main thread.
class CaptureCommands {
 public:
  /// What a running countdown shows.
  struct CountdownView {
    std::function<void(int remaining)> show;
    std::function<void()> hide;
  };
  using Completion = std::function<void(const CaptureResult&)>;

  CaptureCommands(OverlayServices services, AccessGate& gate, CountdownView countdownView);

  /// Where pictures go; set once, before the first command.
  void setCompletion(CaptureCompletion& completion) { completion_ = &completion; }
  /// Told right before a capture begins, to take messages off the screen.
  void setStartHandler(std::function<void()> handler) { startHandler_ = std::move(handler); }
  /// Told of every capture that failed, for the person to read.
  void setFailureHandler(std::function<void(CaptureError)> handler) { failureHandler_ = std::move(handler); }

  void captureArea();
  void captureWindow();
  void captureFullscreen();
  void captureFullscreenDelayed();

  /// Lets the person choose an area for somebody who wants its picture, instead of the after-capture actions. `receive`
  /// comes exactly once: without a picture when the person leaves, it fails (which the failure handler is told) or
  /// another capture is under way.
  using Receiver = std::function<void(std::optional<CapturedImage>)>;
  void captureAreaFor(Receiver receive);

  /// Lets the person choose what to record: an area, or a window. `receive` comes exactly once, with nothing under the
  /// same circumstances.
  using OriginReceiver = std::function<void(std::optional<CaptureOrigin>)>;
  void chooseRegionToRecord(OriginReceiver receive);
  void chooseWindowToRecord(OriginReceiver receive);

  /// Carries out a request; `done` comes exactly once, with Busy from inside the call.
  void start(const CaptureRequest& request, Completion done);

  /// Whether a selection, picker, countdown or screenshot is under way.
  bool isSessionActive() const { return active_ != nullptr; }
  /// Ends whatever is under way; its command ends as Cancelled.
  void cancelSessions();

 private:
  struct Run;

  void choose(const CaptureRequest& request, OriginReceiver receive);
  void begin(const std::shared_ptr<Run>& run);
  void proceed(const std::shared_ptr<Run>& run);
  void select(const std::shared_ptr<Run>& run);
  void captureNamed(const std::shared_ptr<Run>& run);
  void complete(const std::shared_ptr<Run>& run, const CapturedImage& image, const CaptureOrigin& origin);
  void fail(const std::shared_ptr<Run>& run, CaptureError error);
  void finish(const std::shared_ptr<Run>& run, const CaptureResult& result);

  OverlayServices services_;
  AccessGate& gate_;
  CountdownView countdownView_;
  CaptureCompletion* completion_ = nullptr;
  std::function<void()> startHandler_;
  std::function<void(CaptureError)> failureHandler_;
  std::unique_ptr<OverlaySession> session_;
  std::unique_ptr<CaptureCountdown> countdown_;
  TimerHandle repaint_;
  std::shared_ptr<Run> active_;
  Lifetime lifetime_;
};

}  // namespace vellora
