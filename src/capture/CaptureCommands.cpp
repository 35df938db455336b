#include "capture/CaptureCommands.h"

#include <cmath>

#include "base/Log.h"
#include "capture/RepaintWait.h"
#include "capture/SelectionSession.h"
#include "capture/WindowPickerSession.h"

namespace vellora {
namespace {

using End = CaptureResult::End;
using Kind = CaptureRequest::Kind;

const char* flowName(Kind kind) {
  switch (kind) {
    case Kind::FullScreen:
      return "fullscreen";
    case Kind::Area:
      return "area";
    case Kind::Window:
      return "window";
  }
  return "";
}

AccessGate::Need needOf(Kind kind) {
  return kind == Kind::Area ? AccessGate::Need::ScreenAndInput : AccessGate::Need::Screen;
}

/// What the request's flags say to do with the picture; nothing when the stored actions apply.
std::optional<CaptureCompletion::Override> overrideOf(const CaptureRequest& request) {
  if (!request.namesActions()) return std::nullopt;
  CaptureCompletion::Override result;
  result.outputFile = request.outputFile;
  result.actions = namedActions(request);
  return result;
}

}  // namespace

/// One command under way.
struct CaptureCommands::Run {
  CaptureRequest request;
  Completion done;
  /// Gets the picture, none when there is none, instead of the after-capture actions.
  std::function<void(const CapturedImage*, const CaptureOrigin&)> receive{};
  SelectionSession::Purpose purpose = SelectionSession::Purpose::ImageCapture;
};

CaptureCommands::CaptureCommands(OverlayServices services, AccessGate& gate, CountdownView countdownView)
    : services_(services), gate_(gate), countdownView_(std::move(countdownView)) {}

void CaptureCommands::captureArea() {
  start({.kind = Kind::Area}, {});
}
void CaptureCommands::captureWindow() {
  start({.kind = Kind::Window}, {});
}
void CaptureCommands::captureFullscreen() {
  start({.kind = Kind::FullScreen}, {});
}
void CaptureCommands::captureFullscreenDelayed() {
  start({.kind = Kind::FullScreen, .delay = CaptureCountdown::defaultSeconds}, {});
}

void CaptureCommands::captureAreaFor(Receiver receive) {
  begin(std::make_shared<Run>(
      Run{{.kind = Kind::Area}, {}, [receive = std::move(receive)](const CapturedImage* image, const CaptureOrigin&) {
            receive(image != nullptr ? std::optional(*image) : std::nullopt);
          }}));
}

void CaptureCommands::chooseRegionToRecord(OriginReceiver receive) {
  choose({.kind = Kind::Area}, std::move(receive));
}
void CaptureCommands::chooseWindowToRecord(OriginReceiver receive) {
  choose({.kind = Kind::Window}, std::move(receive));
}

void CaptureCommands::choose(const CaptureRequest& request, OriginReceiver receive) {
  begin(std::make_shared<Run>(
      Run{request,
          {},
          [receive = std::move(receive)](const CapturedImage* image, const CaptureOrigin& origin) {
            receive(image != nullptr ? std::optional(origin) : std::nullopt);
          },
          SelectionSession::Purpose::RegionRecording}));
}

void CaptureCommands::start(const CaptureRequest& request, Completion done) {
  begin(std::make_shared<Run>(Run{request, std::move(done)}));
}

void CaptureCommands::begin(const std::shared_ptr<Run>& run) {
  const CaptureRequest& request = run->request;
  if (active_) return finish(run, {.end = End::Busy});
  if (!gate_.allows(needOf(request.kind))) return finish(run, {.end = End::NotAllowed});
  active_ = run;
  if (request.delay <= 0) return proceed(run);
  countdown_ = std::make_unique<CaptureCountdown>(services_.runLoop, static_cast<int>(std::ceil(request.delay)));
  countdown_->start([this](int remaining) { countdownView_.show(remaining); },
                    [this, run] {
                      countdown_.reset();
                      countdownView_.hide();
                      proceed(run);
                    });
}

void CaptureCommands::cancelSessions() {
  if (std::exchange(countdown_, nullptr)) countdownView_.hide();
  repaint_.reset();
  session_.reset();
  if (const auto run = std::exchange(active_, nullptr)) finish(run, {.end = End::Cancelled});
}

void CaptureCommands::proceed(const std::shared_ptr<Run>& run) {
  if (startHandler_) startHandler_();
  if (run->request.isInteractive()) return select(run);
  // A menu or countdown that has just been closed must be off the screen first.
  double wait = 0;
  for (const ScreenInfo& screen : services_.screens.screens()) {
    wait = std::max(wait, repaintWait(screen.display.refreshRate));
  }
  repaint_ = services_.runLoop.after(wait, [this, run] { captureNamed(run); });
}

void CaptureCommands::select(const std::shared_ptr<Run>& run) {
  auto completion = [this, run](const std::optional<CapturedImage>& image, const CaptureOrigin& origin) {
    const auto session = std::move(session_);  // it may go only after this call
    if (image) return complete(run, *image, origin);
    if (const auto error = session->error()) return fail(run, *error);
    if (active_ == run) active_.reset();
    finish(run, {.end = End::Cancelled});
  };
  if (run->request.kind == Kind::Window) {
    session_ = std::make_unique<WindowPickerSession>(services_, std::move(completion));
  } else {
    session_ = std::make_unique<SelectionSession>(run->purpose, services_, std::move(completion));
  }
  session_->begin();
}

void CaptureCommands::captureNamed(const std::shared_ptr<Run>& run) {
  repaint_.reset();
  services_.engine.shareableContent(lifetime_.guard([this, run](const CaptureEngine::Content& content) {
    if (active_ != run) return;
    if (!content) return fail(run, content.error());
    const auto target = resolveTarget(run->request, *content, services_.screens.pointerPosition());
    if (!target) return fail(run, target.error());
    capture(services_.engine, *target,
            lifetime_.guard([this, run, origin = target->origin](const CaptureEngine::Image& image) {
              if (active_ != run) return;
              if (!image) return fail(run, image.error());
              complete(run, *image, origin);
            }));
  }));
}

void CaptureCommands::complete(const std::shared_ptr<Run>& run, const CapturedImage& image,
                               const CaptureOrigin& origin) {
  if (active_ == run) active_.reset();
  if (const auto receive = std::exchange(run->receive, nullptr)) return receive(&image, origin);
  CaptureResult result;
  result.size = image.image.size();
  result.scale = image.scale;
  result.origin = origin;
  completion_->completeCapture(image, origin, overrideOf(run->request),
                               lifetime_.guard([this, run, result](const CaptureOutcome& outcome) mutable {
                                 result.outcome = outcome;
                                 finish(run, result);
                               }));
}

void CaptureCommands::fail(const std::shared_ptr<Run>& run, CaptureError error) {
  if (active_ == run) active_.reset();
  // Sessions with overlays have logged theirs.
  if (!run->request.isInteractive()) {
    log::error(QStringLiteral("%1 capture failed: %2")
                   .arg(QLatin1StringView(flowName(run->request.kind)), QLatin1StringView(description(error))));
  }
  if (failureHandler_) failureHandler_(error);
  finish(run, {.end = End::Failed, .error = error});
}

void CaptureCommands::finish(const std::shared_ptr<Run>& run, const CaptureResult& result) {
  if (const auto receive = std::exchange(run->receive, nullptr)) receive(nullptr, {});
  if (const auto done = std::exchange(run->done, nullptr)) done(result);
}

}  // namespace vellora
