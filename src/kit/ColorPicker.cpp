#include "kit/ColorPicker.h"

#include <algorithm>
#include <cctype>
#include <functional>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

#include "kit/Button.h"
#include "kit/ColorSwatch.h"
#include "kit/Paint.h"
#include "kit/TextField.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int planeWidth = 220;
constexpr int planeHeight = 140;
constexpr int stripHeight = 22;  // with the room its knob needs
constexpr double stripLine = 10;
constexpr double knob = 14;
constexpr double keyStep = 0.01;
constexpr double chequer = 5;

void paintKnob(QPainter& painter, const QPointF& center, const QColor& color, bool focused) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(0, 0, 0, 70), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(center, knob / 2 + 0.5, knob / 2 + 0.5);
  if (focused) {
    painter.setPen(QPen(Theme::shared().palette().accent, 2));
    painter.drawEllipse(center, knob / 2 + 1, knob / 2 + 1);
  }
  painter.setPen(QPen(Qt::white, 2.5));
  QColor opaque = color;
  opaque.setAlpha(255);
  painter.setBrush(opaque);
  painter.drawEllipse(center, knob / 2 - 1, knob / 2 - 1);
}

/// The steps an arrow key asks for, in hundredths; nothing for other keys.
bool arrowStep(const QKeyEvent& event, double& dx, double& dy) {
  const double step = event.modifiers().testFlag(Qt::ShiftModifier) ? 10 * keyStep : keyStep;
  switch (event.key()) {
    case Qt::Key_Left:
      dx = -step;
      return true;
    case Qt::Key_Right:
      dx = step;
      return true;
    case Qt::Key_Up:
      dy = -step;
      return true;
    case Qt::Key_Down:
      dy = step;
      return true;
    default:
      return false;
  }
}

/// What the plane and the strips share: a place between 0 and 1 on each axis, moved by the pointer and by keys.
class PlaceControl : public QWidget {
 public:
  PlaceControl(const QString& name, QWidget* parent) : QWidget(parent) {
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::StrongFocus);
    repaintOnThemeChange(*this);
  }

  std::function<void()> moved;
  std::function<void()> released;
  double x = 0;
  double y = 0;

 protected:
  virtual QRectF field() const = 0;

  void mousePressEvent(QMouseEvent* event) override { moveTo(event->position()); }
  void mouseMoveEvent(QMouseEvent* event) override { moveTo(event->position()); }
  void mouseReleaseEvent(QMouseEvent*) override { released(); }
  void keyPressEvent(QKeyEvent* event) override {
    double dx = 0;
    double dy = 0;
    if (!arrowStep(*event, dx, dy)) return QWidget::keyPressEvent(event);
    set(x + dx, y + dy);
    released();
  }
  void focusInEvent(QFocusEvent*) override { update(); }
  void focusOutEvent(QFocusEvent*) override { update(); }

 private:
  void moveTo(const QPointF& at) {
    const QRectF area = field();
    set((at.x() - area.left()) / area.width(), (at.y() - area.top()) / area.height());
  }
  void set(double nextX, double nextY) {
    x = std::clamp(nextX, 0.0, 1.0);
    y = std::clamp(nextY, 0.0, 1.0);
    moved();
    update();
  }
};

}  // namespace

/// Saturation to the right, brightness upward.
class ColorPlane final : public PlaceControl {
 public:
  //% "Saturation and brightness"
  explicit ColorPlane(QWidget* parent) : PlaceControl(qtTrId("color.plane"), parent) {
    setFixedSize(planeWidth, planeHeight);
  }
  double hue = 0;

 protected:
  QRectF field() const override { return rect(); }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    outline.addRoundedRect(rect(), tokens::controlRadius, tokens::controlRadius);
    painter.setClipPath(outline);
    QLinearGradient across(0, 0, width(), 0);
    across.setColorAt(0, Qt::white);
    across.setColorAt(1, QColor::fromHsvF(static_cast<float>(hue), 1, 1));
    painter.fillRect(rect(), across);
    QLinearGradient down(0, 0, 0, height());
    down.setColorAt(0, QColor(0, 0, 0, 0));
    down.setColorAt(1, Qt::black);
    painter.fillRect(rect(), down);
    const double inset = knob / 2 + 1;
    const QPointF at(std::clamp(x * width(), inset, width() - inset),
                     std::clamp(y * height(), inset, height() - inset));
    paintKnob(painter, at, QColor::fromHsvF(static_cast<float>(hue), static_cast<float>(x), static_cast<float>(1 - y)),
              hasFocus());
  }
};

/// One value from left to right, over a gradient.
class ColorStrip final : public PlaceControl {
 public:
  ColorStrip(const QString& name, QWidget* parent) : PlaceControl(name, parent) {
    setFixedSize(planeWidth, stripHeight);
  }
  QGradientStops stops;
  QColor knobColor;
  bool chequered = false;

 protected:
  QRectF field() const override { return QRectF(rect()).adjusted(knob / 2, 0, -knob / 2, 0); }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF line(0, (height() - stripLine) / 2, width(), stripLine);
    QPainterPath outline;
    outline.addRoundedRect(line, stripLine / 2, stripLine / 2);
    painter.save();
    painter.setClipPath(outline);
    if (chequered) paintChequers(painter, line, chequer);
    QLinearGradient gradient(field().left(), 0, field().right(), 0);
    gradient.setStops(stops);
    painter.fillRect(line, gradient);
    painter.restore();
    paintKnob(painter, {field().left() + x * field().width(), height() / 2.0}, knobColor, hasFocus());
  }
};

ColorPicker::ColorPicker(const QColor& color, QWidget* parent)
    : QWidget(parent),
      plane_(new ColorPlane(this)),
      //% "Hue"
      hueStrip_(new ColorStrip(qtTrId("color.hue"), this)),
      //% "Opacity"
      alphaStrip_(new ColorStrip(qtTrId("color.opacity"), this)),
      hex_(new TextField(this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(tokens::space2);
  column->addWidget(plane_);
  column->addWidget(hueStrip_);
  column->addWidget(alphaStrip_);
  auto* row = new QHBoxLayout;
  row->setSpacing(tokens::space2);
  //% "Color as a hexadecimal number"
  hex_->setAccessibleName(qtTrId("color.hex"));
  hex_->setToolTip(hex_->accessibleName());
  hex_->setMaxLength(9);
  row->addWidget(hex_, 1);
  //% "Pick a color from the screen"
  auto* dropper = new IconButton(QStringLiteral("eyedropper"), qtTrId("color.eyedropper"), {}, this);
  dropper->setIconSide(16);
  row->addWidget(dropper);
  column->addLayout(row);

  for (int i = 0; i <= 6; ++i) {
    hueStrip_->stops.append({i / 6.0, QColor::fromHsvF(static_cast<float>(i % 6) / 6, 1, 1)});
  }
  alphaStrip_->chequered = true;
  for (PlaceControl* part : {static_cast<PlaceControl*>(plane_), static_cast<PlaceControl*>(hueStrip_),
                             static_cast<PlaceControl*>(alphaStrip_)}) {
    part->moved = [this] { changeByHand(); };
    part->released = [this] { emit settled(); };
  }
  connect(hex_, &QLineEdit::textEdited, this, &ColorPicker::readHex);
  connect(hex_, &QLineEdit::editingFinished, this, [this] {
    hex_->setInvalid(false);
    showColor();
    emit settled();
  });
  connect(dropper, &IconButton::clicked, this, &ColorPicker::eyedropperRequested);
  setColor(color);
}

QColor ColorPicker::color() const {
  return QColor::fromHsvF(static_cast<float>(hue_), static_cast<float>(saturation_), static_cast<float>(value_),
                          static_cast<float>(alpha_));
}

void ColorPicker::setColor(const QColor& color) {
  const QColor hsv = color.toHsv();
  if (hsv.hsvHueF() >= 0) hue_ = hsv.hsvHueF();
  if (hsv.value() > 0) saturation_ = hsv.hsvSaturationF();
  value_ = hsv.valueF();
  alpha_ = hsv.alphaF();
  showColor();
}

void ColorPicker::showColor() {
  plane_->hue = std::min(hue_, 0.9999);
  plane_->x = saturation_;
  plane_->y = 1 - value_;
  hueStrip_->x = hue_;
  hueStrip_->knobColor = QColor::fromHsvF(static_cast<float>(plane_->hue), 1, 1);
  const QColor now = color();
  QColor clear = now;
  clear.setAlpha(0);
  QColor full = now;
  full.setAlpha(255);
  alphaStrip_->x = alpha_;
  alphaStrip_->stops = {{0, clear}, {1, full}};
  alphaStrip_->knobColor = full;
  for (QWidget* part :
       {static_cast<QWidget*>(plane_), static_cast<QWidget*>(hueStrip_), static_cast<QWidget*>(alphaStrip_)}) {
    part->update();
  }
  if (!hex_->hasFocus() || hex_->text().isEmpty()) hex_->setText(hexOfColor(now));
}

void ColorPicker::changeByHand() {
  hue_ = std::min(hueStrip_->x, 0.9999);
  saturation_ = plane_->x;
  value_ = 1 - plane_->y;
  alpha_ = alphaStrip_->x;
  showColor();
  emit colorChanged(color());
}

void ColorPicker::readHex(const QString& text) {
  const QColor read = colorFromHex(text);
  hex_->setInvalid(!read.isValid());
  if (!read.isValid()) return;
  setColor(read);
  emit colorChanged(color());
}

QColor colorFromHex(const QString& text) {
  QString digits = text.trimmed();
  if (digits.startsWith(QLatin1Char('#'))) digits.remove(0, 1);
  const auto isHex = [](QChar c) { return c.unicode() < 128 && std::isxdigit(c.toLatin1()) != 0; };
  if (!std::all_of(digits.begin(), digits.end(), isHex)) return {};
  const auto pair = [&](qsizetype at) { return digits.mid(at, 2).toInt(nullptr, 16); };
  switch (digits.size()) {
    case 3:
      return QColor(QStringLiteral("#") + digits);
    case 6:
      return QColor(pair(0), pair(2), pair(4));
    case 8:
      return QColor(pair(0), pair(2), pair(4), pair(6));
    default:
      return {};
  }
}

QString hexOfColor(const QColor& color) {
  QString text = color.name(QColor::HexRgb).toUpper();
  if (color.alpha() < 255) text += QStringLiteral("%1").arg(color.alpha(), 2, 16, QLatin1Char('0')).toUpper();
  return text;
}

}  // namespace vellora
