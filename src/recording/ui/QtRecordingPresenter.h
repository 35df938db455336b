#pragma once

#include <memory>
#include <optional>

#include <QObject>

#include "platform/HotKeyService.h"
#include "platform/PreferenceStore.h"
#include "recording/RecordingPresenter.h"
#include "recording/ui/CameraFeed.h"

namespace vellora {

class CameraBubble;
class RecordingBar;
class RecordingBorder;
class RecordingCountdown;
class RegionPanel;
class WindowHints;

/// The windows of a recording on the desktop. They exist from the moment they are shown until they are hidden. Main
/// thread but for `cameraFrame`.
class QtRecordingPresenter final : public QObject, public RecordingPresenter {
  Q_OBJECT

 public:
  /// `hints` and `hotKeys`, which lends Escape during the countdown, may be null. Everything outlives the presenter.
  QtRecordingPresenter(RunLoop& runLoop, PreferenceStore& preferences, WindowHints* hints, HotKeyService* hotKeys);
  ~QtRecordingPresenter() override;

  void showRegionPanel(const PixelRect& region, const DisplayInfo& screen, std::function<void(PixelRect)> changed,
                       std::function<void()> cancelled) override;
  void closeRegionPanel() override;
  void showBorder(const PixelRect& frame, double cornerRadius, BorderLook look) override;
  void hideBorder() override;
  void showBar(RecordingBarModel& model, const PixelRect& beside, const DisplayInfo& screen) override;
  void hideBar() override;
  void showCountdown(int number, const PixelRect& over, const DisplayInfo& screen) override;
  void hideCountdown() override;
  void showCamera(const DisplayInfo& screen) override;
  void cameraFrame(std::shared_ptr<const CameraFrame> frame) override;
  void hideCamera() override;
  std::vector<WindowId> ownWindows() const override;
  void notify(RecordingNotice notice) override;
  void startFailed(RecordingError error) override;

  /// The windows that are shown, null otherwise.
  RecordingBar* bar() const { return bar_.get(); }
  RegionPanel* regionPanel() const { return regionPanel_.get(); }
  RecordingBorder* border() const { return border_.get(); }
  RecordingCountdown* countdown() const { return countdown_.get(); }
  CameraBubble* camera() const { return camera_.get(); }

 private:
  /// Windows go once their own events have returned.
  struct Later {
    void operator()(QObject* object) const { object->deleteLater(); }
  };
  template <class T>
  using Window = std::unique_ptr<T, Later>;

  void takeKeyboard();
  void giveKeyboardBack();
  void cancel();
  void closeCamera();

  RunLoop& runLoop_;
  PreferenceStore& preferences_;
  WindowHints* const hints_;
  HotKeyService* const hotKeys_;

  RecordingBarModel* model_ = nullptr;
  std::function<void()> regionCancelled_;
  std::optional<DisplayInfo> screen_;  // where it all happens
  std::optional<std::uint64_t> keyboardBefore_;
  std::optional<HotKeyService::Registration> escape_;
  Window<RegionPanel> regionPanel_;
  Window<RecordingBorder> border_;
  Window<RecordingBar> bar_;
  Window<RecordingCountdown> countdown_;
  Window<CameraBubble> camera_;
  CameraFeed feed_;
};

}  // namespace vellora
