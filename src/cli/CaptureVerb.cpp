#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "base/AtomicFile.h"
#include "base/Log.h"
#include "base/QtRunLoop.h"
#include "capture/CaptureCompletion.h"
#include "capture/CaptureRequest.h"
#include "capture/CaptureResult.h"
#include "cli/DesktopProgram.h"
#include "cli/Terminal.h"
#include "cli/Values.h"
#include "cli/Verbs.h"
#include "platform/linux/desktop/DesktopPasteboard.h"
#include "platform/linux/desktop/InstanceClient.h"
#include "platform/linux/desktop/QSettingsPreferences.h"
#include "platform/linux/desktop/XdgFileNames.h"
#include "platform/linux/x11/X11ScreenCapture.h"
#include "platform/linux/x11/X11Screens.h"

namespace vellora::cli {
namespace {

std::nullopt_t refuse(const QString& message) {
  printError(message);
  return std::nullopt;
}

/// The request a command line stands for; nothing when a value is wrong, after saying so. A display given by name is
/// left to `displayName`.
std::optional<CaptureRequest> makeRequest(const Invocation& invocation, QString& displayName) {
  CaptureRequest request;
  if (invocation.verb == "capture area") request.kind = CaptureRequest::Kind::Area;
  if (invocation.verb == "capture window") request.kind = CaptureRequest::Kind::Window;
  if (const auto region = invocation.value("--region")) {
    request.region = parseRegion(*region);
    if (!request.region) return refuse(QStringLiteral("--region takes X,Y,W,H in device pixels, W and H above 0"));
  }
  if (const auto window = invocation.value("--window")) {
    request.window = parseWindow(*window);
    if (!request.window) return refuse(QStringLiteral("--window takes an id as 'vellora windows' lists it"));
  }
  if (const auto display = invocation.value("--display")) {
    const auto id = parseInteger(*display);
    if (id && *id >= 0 && *id <= UINT32_MAX) {
      request.display = static_cast<DisplayId>(*id);
    } else {
      displayName = QString::fromStdString(*display);
    }
  }
  if (const auto delay = invocation.value("--delay")) {
    bool ok = false;
    request.delay = QString::fromStdString(*delay).toDouble(&ok);
    if (!ok || !(request.delay >= 0) || request.delay > maximumCaptureDelay) {
      return refuse(QStringLiteral("--delay takes seconds from 0 to %1").arg(maximumCaptureDelay));
    }
  }
  request.copy = invocation.has("--copy");
  request.save = invocation.has("--save");
  request.edit = invocation.has("--edit");
  request.pin = invocation.has("--pin");
  if (request.edit && request.pin) return refuse(QStringLiteral("--edit and --pin cannot be used together"));
  if (const auto output = invocation.value("--output")) {
    if (output->empty()) return refuse(QStringLiteral("--output takes a file name"));
    request.outputFile = QDir::cleanPath(QDir::current().absoluteFilePath(QString::fromStdString(*output)));
    if (QFileInfo(request.outputFile).isDir())
      return refuse(QStringLiteral("--output names a folder: %1").arg(request.outputFile));
  }
  return request;
}

int report(const CaptureResult& result, bool json) {
  if (json) {
    printJson(captureResultJson(result));
  } else {
    for (const QString& path : result.outcome.writtenFiles()) printLine(path);
  }
  const QString message = captureResultMessage(result);
  if (message.isEmpty()) return Done;
  printError(message);
  return Failed;
}

/// Where the command's own windows would be needed, but not pointing: the program with windows does it, running or new.
int handOver(const CaptureRequest& request, bool json) {
  const QString text = QString::fromUtf8(encode(request));
  const QString mode = json ? QStringLiteral("json") : QStringLiteral("text");
  InstanceClient instance;
  if (instance.isRunning()) {
    const auto outcome = instance.run({QStringLiteral("capture"), text, mode}, QDir::currentPath());
    if (outcome) {
      if (!outcome->standardOutput.isEmpty()) printLine(outcome->standardOutput);
      if (!outcome->standardError.isEmpty()) printError(outcome->standardError);
      return outcome->exitCode;
    }
    if (outcome.error() != InstanceError::NotRunning) {
      printError(QStringLiteral("the running Vellora did not carry the capture out"));
      return Failed;
    }
  }
  return becomeDesktopProgram({QStringLiteral("--capture"), text, mode});
}

CaptureResult failed(CaptureError error) {
  CaptureResult result;
  result.end = CaptureResult::End::Failed;
  result.error = error;
  return result;
}

/// Takes the picture here and now.
CaptureResult takePicture(const CaptureRequest& request, const QString& displayName, ScreenCaptureService& service,
                          CapturedImage& picture) {
  const auto content = service.shareableContent();
  if (!content) return failed(captureError(content.error()));
  CaptureRequest named = request;
  for (const DisplayInfo& display : content->displays) {
    if (!displayName.isEmpty() && display.name == displayName) named.display = display.id;
  }
  if (!displayName.isEmpty() && !named.display) return failed(CaptureError::NoDisplay);
  std::optional<PixelPoint> pointer;
  if (named.kind == CaptureRequest::Kind::FullScreen && !named.display && content->displays.size() > 1) {
    pointer = X11Screens().pointerPosition();
  }
  const auto target = resolveTarget(named, *content, pointer);
  if (!target) return failed(target.error());
  const auto image = target->display  ? service.displayImage(target->display->id)
                     : target->window ? service.windowImage(*target->window)
                                      : service.regionImage(target->origin.rect);
  if (!image) return failed(captureError(image.error()));
  picture = {*image, target->scale};
  CaptureResult result;
  result.size = image->size();
  result.scale = target->scale;
  result.origin = target->origin;
  return result;
}

/// Only a file is wanted: no settings, no history, no event loop.
void writeOutput(const CaptureRequest& request, const CapturedImage& picture, CaptureResult& result) {
  result.outcome.outputFile = request.outputFile;
  SharedPng png(picture.image, picture.scale);
  const auto bytes = png.bytes();
  if (!bytes) return;
  const auto written = AtomicFile::write(request.outputFile, *bytes);
  result.outcome.outputWritten = written.has_value();
  if (!written) log::error(QStringLiteral("capture output failed: %1").arg(written.error().description()));
}

void completeHere(const CaptureRequest& request, std::optional<AfterCaptureActions> actions,
                  const CapturedImage& picture, CaptureResult& result) {
  int argc = 1;
  char name[] = "vellora";
  char* argv[] = {name, nullptr};
  QCoreApplication application(argc, argv);
  QtRunLoop runLoop;
  XdgFileNames fileNames;
  const auto preferences = QSettingsPreferences::openOwn();
  Settings settings(*preferences, fileNames);
  ClipboardFiles clipboardFiles(fileNames.applicationSupport());
  DesktopPasteboard pasteboard(runLoop);
  CaptureOutput output(runLoop, pasteboard, clipboardFiles);
  SessionStore store(SessionStore::defaultDirectory(fileNames.applicationSupport()), runLoop,
                     [](const QString&) { return std::nullopt; });
  CaptureCompletion completion(
      settings, store, output, runLoop, {}, [] {}, [](const CaptureOutcome&) {});
  completion.completeCapture(picture, result.origin, CaptureCompletion::Override{actions, request.outputFile},
                             [&result](const CaptureOutcome& outcome) {
                               result.outcome = outcome;
                               QCoreApplication::quit();
                             });
  QCoreApplication::exec();
  store.waitForPendingWrites();
  clipboardFiles.waitForPendingWork();
}

}  // namespace

int capture(const Invocation& invocation) {
  QString displayName;
  const auto request = makeRequest(invocation, displayName);
  if (!request) return WrongUsage;
  if (!requireDesktop()) return Failed;

  std::optional<AfterCaptureActions> actions;
  if (!request->namesActions()) {
    actions = AfterCaptureActions::load(*QSettingsPreferences::openOwn());
  } else {
    actions = namedActions(*request);
  }
  const bool needsWindow =
      request->isInteractive() ||
      (actions && (actions->contains(AfterCaptureAction::ShowEditor) || actions->contains(AfterCaptureAction::Pin)));
  if (needsWindow) return handOver(*request, invocation.json);

  if (request->delay > 0) ::usleep(static_cast<useconds_t>(request->delay * 1e6));
  X11ScreenCapture service;
  CapturedImage picture;
  CaptureResult result = takePicture(*request, displayName, service, picture);
  if (result.end == CaptureResult::End::Done) {
    if (actions) {
      completeHere(*request, actions, picture, result);
    } else {
      writeOutput(*request, picture, result);
    }
  }
  return report(result, invocation.json);
}

}  // namespace vellora::cli
