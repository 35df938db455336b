#include "editor/ui/compressor/CompressorWindowController.h"

#include <QCursor>
#include <QGuiApplication>
#include <QLocale>
#include <QScreen>

#include "editor/ui/compressor/CompressorTexts.h"
#include "editor/ui/compressor/CompressorWindow.h"
#include "kit/Toast.h"

namespace vellora {
namespace {

/// What became of the pictures of one run.
struct RunTally {
  int succeeded = 0;
  int failed = 0;
  int cancelled = 0;
  std::uintmax_t before = 0;  ///< bytes of files that succeeded; pasted pixels had none
  std::uintmax_t after = 0;

  void add(const CompressionItem& item) {
    if (item.state == CompressionState::failed) ++failed;
    if (item.state == CompressionState::cancelled) ++cancelled;
    if (item.state != CompressionState::done && item.state != CompressionState::unchanged) return;
    ++succeeded;
    if (item.sourceURL.empty()) return;
    before += item.originalBytes;
    after += item.lastOutput->bytes;
  }

  QString text() const {
    QStringList parts;
    //% "%n image(s) compressed"
    if (succeeded > 0) parts << qtTrId("compress.toast.done", succeeded);
    if (after < before) {
      const double percent = 100 - 100.0 * static_cast<double>(after) / static_cast<double>(before);
      //% "%1 saved (%2%)"
      parts << qtTrId("compress.toast.savedPercent")
                   .arg(compressorText::bytes(before - after), QLocale().toString(percent, 'f', 0));
    }
    if (failed > 0) parts << qtTrId("compress.toast.failed", failed);
    //% "%n stopped"
    if (cancelled > 0) parts << qtTrId("compress.toast.stopped", cancelled);
    return parts.join(QStringLiteral(" · "));
  }
};

}  // namespace

CompressorWindowController::CompressorWindowController(Services services)
    : services_(std::move(services)),
      run_(services_.runLoop,
           {[this] {
              if (window_) window_->listChanged();
            },
            [this](std::uint64_t id) { itemChanged(id); },
            [this](const CompressionProgress& progress) {
              if (window_) window_->progressChanged(progress);
            },
            [this](const CompressionProgress&) { finished(); }},
           0, ThreadQuality::Utility) {}

CompressorWindowController::~CompressorWindowController() = default;

CompressorWindow& CompressorWindowController::madeWindow() {
  if (window_) return *window_;
  window_ = std::make_unique<CompressorWindow>(run_, services_);
  if (!geometry_.isEmpty()) window_->restoreGeometry(geometry_);
  QObject::connect(window_.get(), &CompressorWindow::closed, window_.get(),
                   [this] { services_.runLoop.post(lifetime_.guard([this] { closed(); })); });
  return *window_;
}

void CompressorWindowController::show() {
  madeWindow().present();
}

bool CompressorWindowController::isVisible() const {
  return window_ && window_->isVisible();
}

void CompressorWindowController::addFiles(std::vector<std::filesystem::path> files) {
  madeWindow().addFiles(std::move(files));
}

void CompressorWindowController::addCapture(const Bitmap& picture, const QString& name) {
  madeWindow().addPixels(picture, name);
}

void CompressorWindowController::itemChanged(std::uint64_t id) {
  const CompressionItem* item = run_.find(id);
  const bool isInWork = item && (item->state == CompressionState::waiting || item->state == CompressionState::running);
  if (run_.isRunning() && isInWork) inRun_.insert(id);
  if (window_) window_->itemChanged(id);
}

void CompressorWindowController::finished() {
  RunTally tally;
  for (const std::uint64_t id : inRun_) {
    if (const CompressionItem* item = run_.find(id)) tally.add(*item);
  }
  inRun_.clear();
  if (window_) window_->runEnded();
  const QString text = tally.text();
  QScreen* screen = isVisible() ? window_->screen() : QGuiApplication::screenAt(QCursor::pos());
  const ToastKind kind = tally.failed > 0      ? ToastKind::Failure
                         : tally.cancelled > 0 ? ToastKind::Info
                                               : ToastKind::Success;
  if (!text.isEmpty()) Toast::show({}, text, kind, screen);
  if (services_.changed) services_.changed();
}

void CompressorWindowController::closed() {
  if (!window_ || window_->isVisible()) return;  // opened again since
  if (!run_.isRunning()) {
    geometry_ = window_->saveGeometry();
    window_.reset();
    run_.clear();
  }
  if (services_.changed) services_.changed();
}

}  // namespace vellora
