#pragma once

#include <QColor>
#include <QWidget>

namespace vellora {

class ColorPlane;
class ColorStrip;
class IconButton;
class TextField;

/// Chooses any colour: a plane of saturation and brightness, strips for hue and opacity, the colour as a hexadecimal
/// number, and a button that asks for an eyedropper. Every part works with the arrow keys.
class ColorPicker final : public QWidget {
  Q_OBJECT

 public:
  explicit ColorPicker(const QColor& color, QWidget* parent = nullptr);

  void setColor(const QColor& color);
  QColor color() const;

 signals:
  /// With every movement.
  void colorChanged(const QColor& color);
  /// The person let go: a run of changes is over.
  void settled();
  void eyedropperRequested();

 private:
  void showColor();
  void changeByHand();
  void readHex(const QString& text);

  // Kept apart from the colour, which loses the hue at grey and the saturation at black.
  double hue_ = 0;
  double saturation_ = 0;
  double value_ = 0;
  double alpha_ = 1;
  ColorPlane* plane_;  // the children are owned by Qt
  ColorStrip* hueStrip_;
  ColorStrip* alphaStrip_;
  TextField* hex_;
};

/// Reads "#RGB", "#RRGGBB" and "#RRGGBBAA", with or without the mark; an invalid colour for anything else.
QColor colorFromHex(const QString& text);
/// "#2F6FED", with two more digits when it is see-through.
QString hexOfColor(const QColor& color);

}  // namespace vellora
