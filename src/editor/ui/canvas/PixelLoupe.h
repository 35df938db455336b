#pragma once

#include <QImage>
#include <QWidget>

namespace vellora {

/// A round magnifying glass beside the pointer: a few pixels of the screen, eight times as large, the middle one marked
/// and its colour's value below. A window of its own, above all others, that takes no input.
class PixelLoupe final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int pixelCount = 15;  ///< across; odd, so that one is in the middle

  explicit PixelLoupe(QWidget* parent);

  /// Shows `pixels` (pixelCount across) beside the pointer at `global`, flipped where the screen ends.
  void showAt(QPoint global, const QImage& pixels);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QImage pixels_;
};

}  // namespace vellora
