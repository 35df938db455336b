#include "capture/CaptureCompletion.h"

namespace vellora {

CaptureCompletion::CaptureCompletion(Settings& settings, SessionStore& store, CaptureOutput& output, RunLoop& runLoop,
                                     Windows windows, std::function<void()> cancelSessions, Report report)
    : settings_(settings),
      store_(store),
      output_(output),
      runLoop_(runLoop),
      windows_(std::move(windows)),
      cancelSessions_(std::move(cancelSessions)),
      report_(std::move(report)) {}

void CaptureCompletion::completeCapture(const CapturedImage& image, const std::optional<CaptureOrigin>& origin,
                                        const std::optional<Override>& override, Report done) {
  using enum AfterCaptureAction;
  cancelSessions_();
  const CaptureDocument document{image, std::make_shared<SharedPng>(image.image, image.scale), origin, runLoop_.now()};
  CaptureOutputRequest request;
  if (override) request.outputFile = override->outputFile;

  const std::optional<AfterCaptureActions> actions =
      override ? override->actions : AfterCaptureActions::load(settings_.preferences());
  if (actions) {
    if (actions->contains(Pin)) windows_.openPin(document);
    if (actions->contains(ShowEditor)) windows_.openEditor(document);
    if (!actions->contains(Pin) && !actions->contains(ShowEditor)) pushUneditedCapture(store_, document);
    request.copy = actions->contains(Copy);
    request.save = actions->contains(Save);
  }
  if (!request.copy && !request.save && request.outputFile.isEmpty()) {
    if (done) done({});
    return;
  }
  request.png = document.png;
  request.capturedAt = document.capturedAt;
  if (request.save) request.saveFolder = settings_.saveDirectory();
  request.clipboardMode = settings_.clipboardMode();
  output_.run(std::move(request), [report = report_, done = std::move(done)](const CaptureOutcome& outcome) {
    if (outcome.copyRequested || outcome.saveRequested) report(outcome);
    if (done) done(outcome);
  });
}

void pushUneditedCapture(SessionStore& store, const CaptureDocument& document) {
  ImageDocument plain;
  plain.pieces.push_back(makePiece(document.picture.image, document.picture.scale, document.png));
  store.push(plain, document.capturedAt);
}

}  // namespace vellora
