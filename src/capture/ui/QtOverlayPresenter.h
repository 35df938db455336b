#pragma once

#include <memory>
#include <set>
#include <vector>

#include <QObject>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "capture/CaptureEngine.h"
#include "capture/OverlayPresenter.h"
#include "capture/ui/OverlayWindow.h"
#include "platform/ScreenStill.h"

namespace vellora {

/// The overlays as windows, one per display. Holds pixels and windows only from `prepare` to `close`.
class QtOverlayPresenter final : public QObject, public OverlayPresenter {
  Q_OBJECT

 public:
  /// `engine` reads the pictures the overlays show. With `stills` the display server paints them dimmed, and the
  /// overlays come up without waiting for them; it may be null. Both must outlive the presenter.
  explicit QtOverlayPresenter(CaptureEngine& engine, ScreenStillService* stills = nullptr);
  ~QtOverlayPresenter() override;

  void prepare(const std::vector<DisplayInfo>& displays) override;
  void show(const OverlayScene& scene, OverlayInput& input) override;
  void update(const OverlayScene& scene) override;
  void hide() override;
  void close() override;
  KeyModifiers modifiers() const override;

 signals:
  /// The overlays are on the screens, painted.
  void shown();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void connectWindow(OverlayWindow& window);
  void takePicture(OverlayWindow& window);
  bool isNeeded(const OverlayWindow& window) const;
  void readStill(OverlayWindow& window);
  void grounded(OverlayWindow& window, OverlayWindow::Ground ground);
  void reveal();
  void windowAppeared();
  void grab();
  void releaseGrabs();
  void watchDisplays(bool watch);
  void handleKey(int key, Qt::KeyboardModifiers modifiers, bool pressed, bool repeated);

  CaptureEngine& engine_;
  ScreenStillService* stills_;
  std::shared_ptr<ScreenStill> still_;
  std::set<const OverlayWindow*> reading_;  // their still has been asked for
  std::vector<OverlayWindow*> windows_;     // deleted by Qt once their events have returned
  OverlayInput* input_ = nullptr;
  OverlayScene scene_;
  bool revealed_ = false;
  OverlayWindow* grabber_ = nullptr;
  int grabAttempts_ = 0;
  std::vector<QMetaObject::Connection> displayWatch_;
  std::unique_ptr<Lifetime> run_;  // of one run: late pictures of an earlier one are dropped
};

}  // namespace vellora
