#include "app/CaptureWindows.h"

#include <algorithm>

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include "app/AppServices.h"

namespace vellora {
namespace {

QScreen* screenNamed(const QString& name) {
  for (QScreen* screen : QGuiApplication::screens()) {
    if (screen->name() == name) return screen;
  }
  return nullptr;
}

/// Where a window goes: the screen the capture came from and the capture's middle on it, in that screen's own
/// coordinates (its origin stays in device pixels, distances within it are scaled).
struct Placement {
  QScreen* screen = nullptr;
  std::optional<QPoint> center;
};

Placement placementOf(const CaptureDocument& document, ScreenService& screens) {
  if (document.origin) {
    for (const ScreenInfo& info : screens.screens()) {
      if (info.display.id != document.origin->display) continue;
      const PixelPoint middle = document.origin->rect.center();
      QScreen* screen = screenNamed(info.display.name);
      if (!screen) break;
      const double scale = screen->devicePixelRatio();
      const QPoint within(static_cast<int>((middle.x - info.display.frame.x) / scale),
                          static_cast<int>((middle.y - info.display.frame.y) / scale));
      return {screen, screen->geometry().topLeft() + within};
    }
  }
  QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
  return {screen ? screen : QGuiApplication::primaryScreen(), std::nullopt};
}

}  // namespace

CaptureWindows::CaptureWindows(AppServices& services, std::function<void(const CaptureOutcome&)> report,
                               std::function<void()> allClosed)
    : services_(services), report_(std::move(report)), allClosed_(std::move(allClosed)) {}

CaptureWindows::~CaptureWindows() {
  for (const auto& window : windows_) delete window.data();
}

void CaptureWindows::open(const CaptureDocument& document, Stacking stacking) {
  pushUneditedCapture(services_.sessionStore, document);
  const bool isPin = stacking == Stacking::OnTop;
  const QString title = captureFileStem(document.capturedAt, NamePrecision::Seconds);
  auto* window = new PictureWindow(document.picture, title,
                                   isPin ? PictureWindow::Option::StayOnTop : PictureWindow::Option::None);
  QObject::connect(window, &PictureWindow::copyRequested, window,
                   [this, document] { output(document, AfterCaptureAction::Copy); });
  QObject::connect(window, &PictureWindow::saveRequested, window,
                   [this, document] { output(document, AfterCaptureAction::Save); });
  QObject::connect(window, &QObject::destroyed, &services_.overlayPresenter, [this] {
    std::erase_if(windows_, [](const QPointer<PictureWindow>& entry) { return entry.isNull(); });
    if (windows_.empty()) allClosed_();
  });
  windows_.emplace_back(window);
  const Placement placement = placementOf(document, services_.screens);
  window->present(placement.screen, placement.center ? &*placement.center : nullptr);
}

void CaptureWindows::output(const CaptureDocument& document, AfterCaptureAction action) {
  CaptureOutputRequest request;
  request.png = document.png;
  request.capturedAt = document.capturedAt;
  request.copy = action == AfterCaptureAction::Copy;
  request.save = action == AfterCaptureAction::Save;
  request.namePrecision = NamePrecision::Seconds;
  request.saveFolder = services_.settings.saveDirectory();
  request.clipboardMode = services_.settings.clipboardMode();
  services_.captureOutput.run(std::move(request), report_);
}

void CaptureWindows::closePins() {
  const auto windows = windows_;
  for (const auto& window : windows) {
    if (window && window->windowFlags().testFlag(Qt::WindowStaysOnTopHint)) window->close();
  }
}

bool CaptureWindows::hasOpenWindows() const {
  return !windows_.empty();
}

}  // namespace vellora
