#pragma once

#include <functional>

#include <QAbstractButton>
#include <QPixmap>

#include "kit/Paint.h"

namespace vellora {

/// A rounded tile that shows what it offers; the chosen one wears a ring.
class TileButton final : public QAbstractButton {
  Q_OBJECT

 public:
  /// Paints what is offered into a rectangle.
  using Preview = std::function<void(QPainter& painter, const QRectF& rect)>;

  /// As wide as its place, at least `least` points.
  TileButton(const QSize& least, const QString& title, QWidget* parent = nullptr);

  void setTitle(const QString& title);
  void setPreview(Preview preview);
  /// An icon over the preview; with no preview the tile is an empty place.
  void setIconName(const QString& name);

  QSize sizeHint() const override { return least_; }
  QSize minimumSizeHint() const override { return least_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  const QPixmap& picture();

  QSize least_;
  QString iconName_;
  Preview preview_;
  QPixmap picture_;  ///< the preview in device pixels, made when it is first shown
  KeyboardFocus focus_;
};

}  // namespace vellora
