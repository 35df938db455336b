#pragma once

#include <QAbstractButton>
#include <QWidget>

#include "editor/PinGeometry.h"

class QTimer;
class QVariantAnimation;

namespace vellora {

/// One of the controls over a pin: an icon, or a text. Never takes the focus; what it does is in the menu and on the
/// keyboard too.
class PinButton final : public QAbstractButton {
  Q_OBJECT

 public:
  PinButton(const QString& iconName, int width, QWidget* parent);

  /// `title` is what a screen reader says; `hint` follows it in the tooltip, empty for none.
  void setTitle(const QString& title, const QString& hint);
  void setIconName(const QString& name);
  /// Whether pulling on the button drags something out of it: then it is no click.
  void setDraggable(bool draggable) { draggable_ = draggable; }

  QSize sizeHint() const override { return size(); }

 signals:
  void dragged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  QString iconName_;
  bool draggable_ = false;
  QPoint pressed_;
};

/// The controls at the top edge of a pin: as many as its tier has room for, fading in and out. Dark in both themes,
/// since what lies below may have any colour.
class PinChrome final : public QWidget {
  Q_OBJECT

 public:
  explicit PinChrome(QWidget* parent);

  /// Least width of a tier's controls, in points.
  static int widthOf(PinGeometry::ChromeTier tier);
  static constexpr int height = 28;

  /// Lays the tier's controls out in `area`: the ones that work on the picture at the left, closing at the right.
  void arrange(PinGeometry::ChromeTier tier, const QRect& area);
  void setScale(double scale);
  PinGeometry::ChromeTier tier() const { return tier_; }

  void fadeIn() { fadeTo(1); }
  void fadeOut() { fadeTo(0); }
  double shown() const { return shown_; }
  bool isWanted() const { return target_ > 0; }

  /// Marks the copy button for a moment.
  void showCopied();

 signals:
  void copyRequested();
  void editRequested();
  void menuRequested(const QPoint& position);
  void closeRequested();
  void actualSizeRequested();
  void dragRequested();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void fadeTo(double target);
  void setShown(double shown);
  void translate();

  PinGeometry::ChromeTier tier_ = PinGeometry::ChromeTier::CloseOnly;
  double shown_ = 0;  // 0 to 1
  double from_ = 0;   // where a fade began
  double target_ = 0;
  // Owned by this as children:
  PinButton* readout_;
  PinButton* copy_;
  PinButton* edit_;
  PinButton* more_;
  PinButton* close_;
  QVariantAnimation* fade_;
  QTimer* copied_;
};

/// How transparent controls and texts over a picture are painted: dark, with light ink.
QColor pinChromeGround();
QColor pinChromeInk();
QColor pinChromeEdge();

}  // namespace vellora
