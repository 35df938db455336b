#pragma once

#include <optional>

#include <QWidget>

#include "platform/HotKeyService.h"

class QScreen;

namespace vellora {

/// The seconds left before a delayed capture, as one large figure in a circle in the middle of a screen. It never takes
/// the focus, so that what is about to be captured stays as it is; a click cancels, and so does Escape wherever the
/// focus is. Hide it before the picture is taken. Main thread.
class CountdownPanel final : public QWidget {
  Q_OBJECT

 public:
  /// `hotKeys` lends Escape while the panel is up; it may be null and must outlive the panel.
  explicit CountdownPanel(HotKeyService* hotKeys = nullptr);
  ~CountdownPanel() override;

  /// Shows the figure, in the middle of `screen` when the panel is not up yet. A null screen is the primary one.
  void showRemaining(int seconds, QScreen* screen);
  int remaining() const { return remaining_; }

 signals:
  void cancelled();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void releaseEscape();

  HotKeyService* hotKeys_;
  std::optional<HotKeyService::Registration> escape_;
  int remaining_ = 0;
  bool blended_ = true;
};

}  // namespace vellora
