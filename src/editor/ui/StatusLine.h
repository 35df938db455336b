#pragma once

#include <functional>

#include <QWidget>

namespace vellora {

class IconButton;
class StatusButton;
class TextLabel;

/// The line below the canvas: what a drag will do, the place and size of what is selected, the picture's size, the zoom
/// with its menu, and long work with a way to give it up.
class StatusLine final : public QWidget {
  Q_OBJECT

 public:
  explicit StatusLine(QWidget* parent);

  void setHint(const QString& hint);
  void setSelection(const QString& text);
  void setSizeText(const QString& text);
  /// `zoom`: 1 is 100 %.
  void setZoom(double zoom);

  /// Shows that work goes on; `cancel` is called when the person gives it up.
  void showProgress(const QString& text, std::function<void()> cancel);
  void hideProgress();
  bool showsProgress() const;

  QWidget* zoomButton() const;

 signals:
  void zoomMenuRequested();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  TextLabel* hint_;  // the children are owned by Qt
  TextLabel* progress_;
  IconButton* cancel_;
  TextLabel* selection_;
  TextLabel* size_;
  StatusButton* zoom_;
  std::function<void()> cancelled_;
  int timer_ = 0;
  double phase_ = 0;  // of the moving bar, 0 to 1
};

}  // namespace vellora
