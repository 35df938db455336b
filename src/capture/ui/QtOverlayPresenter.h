#pragma once

#include <memory>
#include <vector>

#include <QObject>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "capture/CaptureEngine.h"
#include "capture/OverlayPresenter.h"

class QTimer;

namespace vellora {

class OverlayWindow;

/// The overlays as windows, one per display. Holds pixels and windows only from `prepare` to `close`.
class QtOverlayPresenter final : public QObject, public OverlayPresenter {
  Q_OBJECT

 public:
  /// `engine` takes the pictures the overlays show; it must outlive the presenter.
  explicit QtOverlayPresenter(CaptureEngine& engine);
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
  void stillArrived(OverlayWindow& window, const CaptureEngine::Image& image);
  void reveal();
  void windowAppeared();
  void grab();
  void releaseGrabs();
  void watchDisplays(bool watch);
  void handleKey(int key, Qt::KeyboardModifiers modifiers, bool pressed, bool repeated);

  CaptureEngine& engine_;
  std::vector<OverlayWindow*> windows_;  // deleted by Qt once their events have returned
  OverlayInput* input_ = nullptr;
  OverlayScene scene_;
  bool revealed_ = false;
  OverlayWindow* grabber_ = nullptr;
  int grabAttempts_ = 0;
  std::vector<QMetaObject::Connection> displayWatch_;
  std::unique_ptr<Lifetime> run_;  // of one run: late pictures of an earlier one are dropped
};

}  // namespace vellora
