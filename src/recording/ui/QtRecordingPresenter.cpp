#include "recording/ui/QtRecordingPresenter.h"
#include "kit/Toast.h"

#include <utility>

#include "platform/WindowHints.h"
#include "recording/ui/CameraBubble.h"
#include "recording/ui/RecordingBar.h"
#include "recording/ui/RecordingBorder.h"
#include "recording/ui/RecordingCountdown.h"
#include "recording/ui/RecordingNotices.h"
#include "recording/ui/RegionPanel.h"
#include "recording/ui/ScreenPlaces.h"

namespace vellora {
namespace {

constexpr std::uint32_t escapeKeyCode = 53;

}  // namespace

QtRecordingPresenter::QtRecordingPresenter(RunLoop& runLoop, PreferenceStore& preferences, WindowHints* hints,
                                           HotKeyService* hotKeys)
    : runLoop_(runLoop), preferences_(preferences), hints_(hints), hotKeys_(hotKeys), feed_(runLoop) {}

QtRecordingPresenter::~QtRecordingPresenter() {
  hideCountdown();
  closeRegionPanel();
  hideBorder();
  hideBar();
  hideCamera();
}

void QtRecordingPresenter::showRegionPanel(const PixelRect& region, const DisplayInfo& screen,
                                           std::function<void(PixelRect)> changed, std::function<void()> cancelled) {
  closeRegionPanel();
  screen_ = screen;
  regionCancelled_ = std::move(cancelled);
  regionPanel_.reset(new RegionPanel(region, screen, hints_));
  RegionPanel* const panel = regionPanel_.get();
  connect(panel, &RegionPanel::regionChanged, this,
          [this, changed = std::move(changed), screen](const PixelRect& next) {
            if (changed) changed(next);
            if (bar_) bar_->placeBeside(next, screen);
          });
  connect(panel, &RegionPanel::pressed, this, &QtRecordingPresenter::takeKeyboard);
  panel->show();
  // The shade darkens what is recorded, not the controls.
  if (camera_) camera_->raise();
  if (bar_) bar_->raise();
  // The region it was asked for may have been too small or beyond the display.
  if (panel->model().region() != region) emit panel->regionChanged(panel->model().region());
}

void QtRecordingPresenter::closeRegionPanel() {
  if (!regionPanel_) return;
  regionPanel_->hide();
  regionPanel_.reset();
  regionCancelled_ = nullptr;
}

void QtRecordingPresenter::showBorder(const PixelRect& frame, double cornerRadius, BorderLook look) {
  if (!border_) border_.reset(new RecordingBorder(hints_));
  border_->show(frame, cornerRadius, look);
}

void QtRecordingPresenter::hideBorder() {
  border_.reset();
}

void QtRecordingPresenter::showBar(RecordingBarModel& model, const PixelRect& beside, const DisplayInfo& screen) {
  hideBar();
  model_ = &model;
  screen_ = screen;
  bar_.reset(new RecordingBar(model, hints_));
  connect(bar_.get(), &RecordingBar::nudged, this, [this](int dx, int dy) {
    if (regionPanel_) regionPanel_->nudge(dx, dy);
  });
  bar_->placeBeside(regionPanel_ ? regionPanel_->model().region() : beside, screen);
  bar_->appear();
  takeKeyboard();
}

void QtRecordingPresenter::hideBar() {
  if (!bar_) return;
  model_ = nullptr;
  bar_->detach();
  bar_->hide();
  bar_.reset();
  giveKeyboardBack();
}

/// Before a recording the keys are for the bar: Return starts, Escape leaves, the arrows move the region.
void QtRecordingPresenter::takeKeyboard() {
  if (!bar_ || bar_->isActiveWindow()) return;
  if (hints_ != nullptr && !keyboardBefore_) keyboardBefore_ = hints_->activeWindow();
  bar_->activateWindow();
}

/// From the countdown on they are for what is recorded.
void QtRecordingPresenter::giveKeyboardBack() {
  if (const auto before = std::exchange(keyboardBefore_, std::nullopt); before && *before != 0) {
    hints_->activate(*before);
  }
}

void QtRecordingPresenter::cancel() {
  if (model_ != nullptr && model_->onStop) return model_->onStop();
  if (regionCancelled_) regionCancelled_();
}

void QtRecordingPresenter::showCountdown(int number, const PixelRect& over, const DisplayInfo& screen) {
  if (!countdown_) {
    countdown_.reset(new RecordingCountdown);
    giveKeyboardBack();
    if (hotKeys_ != nullptr) escape_ = hotKeys_->registerHotKey(escapeKeyCode, 0, [this] { cancel(); });
  }
  countdown_->showNumber(number, over, screen);
  if (bar_) bar_->setCountdown(number);
}

void QtRecordingPresenter::hideCountdown() {
  if (!countdown_) return;
  if (escape_) hotKeys_->unregisterHotKey(*escape_);
  escape_.reset();
  countdown_->hide();
  countdown_.reset();
  if (bar_) bar_->setCountdown(0);
}

void QtRecordingPresenter::showCamera(const DisplayInfo& screen) {
  if (camera_) return;
  camera_.reset(new CameraBubble(screen, preferences_, hints_));
  CameraBubble* const bubble = camera_.get();
  connect(bubble, &CameraBubble::closeRequested, this, &QtRecordingPresenter::closeCamera);
  connect(bubble, &CameraBubble::resized, this, [this, bubble] { feed_.setSide(bubble->pictureSide()); });
  bubble->appear();
  feed_.open(bubble->pictureSide(), [bubble](QImage picture) { bubble->setPicture(std::move(picture)); });
}

void QtRecordingPresenter::cameraFrame(std::shared_ptr<const CameraFrame> frame) {
  feed_.push(std::move(frame));
}

void QtRecordingPresenter::hideCamera() {
  if (!camera_) return;
  feed_.close();
  camera_->hide();
  camera_.reset();
}

/// Before a recording the camera goes off. Afterwards it belongs to the recording, and only its picture goes.
void QtRecordingPresenter::closeCamera() {
  if (model_ != nullptr && model_->mode == RecordingBarModel::Mode::preStart && model_->onSelectCamera) {
    return model_->onSelectCamera(std::nullopt);
  }
  hideCamera();
}

std::vector<WindowId> QtRecordingPresenter::ownWindows() const {
  std::vector<WindowId> result;
  const auto add = [&](const std::vector<WindowId>& windows) {
    result.insert(result.end(), windows.begin(), windows.end());
  };
  if (regionPanel_) add(regionPanel_->windows());
  if (border_) add(border_->windows());
  if (bar_) result.push_back(bar_->windowId());
  if (countdown_) result.push_back(countdown_->windowId());
  if (camera_) result.push_back(camera_->windowId());
  if (const Toast* toast = Toast::current()) result.push_back(static_cast<WindowId>(toast->winId()));
  return result;
}

void QtRecordingPresenter::notify(RecordingNotice notice) {
  showNotice(notice, screen_ ? screenOf(*screen_) : nullptr);
}

void QtRecordingPresenter::startFailed(RecordingError error) {
  showStartFailure(error);
}

}  // namespace vellora
