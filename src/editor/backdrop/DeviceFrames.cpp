#include "editor/backdrop/DeviceFrames.h"

#include <algorithm>

#include <QLinearGradient>
#include <QPainter>

namespace vellora {
namespace {

enum class Device { Browser, Laptop, Phone };

Device deviceOf(DeviceFrame frame) {
  switch (frame) {
    case DeviceFrame::BrowserLight:
    case DeviceFrame::BrowserDark:
      return Device::Browser;
    case DeviceFrame::LaptopLight:
    case DeviceFrame::LaptopDark:
      return Device::Laptop;
    case DeviceFrame::PhoneLight:
    case DeviceFrame::PhoneDark:
      break;
  }
  return Device::Phone;
}

bool isDark(DeviceFrame frame) {
  return frame == DeviceFrame::BrowserDark || frame == DeviceFrame::LaptopDark || frame == DeviceFrame::PhoneDark;
}

/// The measures of the frames, in units: a browser's unit is 1 point for a content 1100 points wide, a laptop's for
/// 1000 across, a phone's for 400 across its shorter side.
constexpr double barHeight = 42;
constexpr double laptopBezel = 15;
constexpr double laptopChin = 19;
constexpr double deckHeight = 24;
constexpr double deckOverhang = 62;
constexpr double lidRadius = 20;
constexpr double phoneBezel = 13;
constexpr double phoneKeyDepth = 2.5;
constexpr double phoneRadius = 54;

double unitOf(Device device, Size size) {
  switch (device) {
    case Device::Browser:
      return std::clamp(size.width / 1100, 0.5, 3.0);
    case Device::Laptop:
      return size.width / 1000;
    case Device::Phone:
      break;
  }
  return std::min(size.width, size.height) / 400;
}

/// A rectangle with one radius for its upper and one for its lower corners.
QPainterPath rounded(const QRectF& rect, double upper, double lower) {
  const double most = std::min(rect.width(), rect.height()) / 2;
  const double u = std::min(upper, most) * 2;
  const double l = std::min(lower, most) * 2;
  QPainterPath path;
  path.moveTo(rect.left(), rect.top() + u / 2);
  if (u > 0)
    path.arcTo(rect.left(), rect.top(), u, u, 180, -90);
  else
    path.lineTo(rect.topLeft());
  if (u > 0)
    path.arcTo(rect.right() - u, rect.top(), u, u, 90, -90);
  else
    path.lineTo(rect.topRight());
  if (l > 0)
    path.arcTo(rect.right() - l, rect.bottom() - l, l, l, 0, -90);
  else
    path.lineTo(rect.bottomRight());
  if (l > 0)
    path.arcTo(rect.left(), rect.bottom() - l, l, l, 270, -90);
  else
    path.lineTo(rect.bottomLeft());
  path.closeSubpath();
  return path;
}

QLinearGradient vertical(const QRectF& rect, const QColor& top, const QColor& bottom) {
  QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
  gradient.setColorAt(0, top);
  gradient.setColorAt(1, bottom);
  return gradient;
}

QColor white(double alpha) {
  return QColor::fromRgbF(1, 1, 1, static_cast<float>(alpha));
}
QColor black(double alpha) {
  return QColor::fromRgbF(0, 0, 0, static_cast<float>(alpha));
}

/// A line of `width` just inside the outline of a rounded rectangle.
void strokeInside(QPainter& painter, const QRectF& rect, double radius, double width, const QBrush& brush) {
  const double half = width / 2;
  painter.strokePath(rounded(rect.adjusted(half, half, -half, -half), radius - half, radius - half),
                     QPen(brush, width));
}

void drawChevron(QPainter& painter, QPointF center, double size, double direction, const QColor& color, double width) {
  QPainterPath path(center + QPointF(-direction * size / 2, -size));
  path.lineTo(center + QPointF(direction * size / 2, 0));
  path.lineTo(center + QPointF(-direction * size / 2, size));
  painter.strokePath(path, QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

}  // namespace

FrameInsets frameInsets(DeviceFrame frame, Size size) {
  const Device device = deviceOf(frame);
  const double unit = unitOf(device, size);
  switch (device) {
    case Device::Browser:
      return {0, barHeight * unit, 0, 0};
    case Device::Laptop:
      return {(laptopBezel + deckOverhang) * unit, laptopBezel * unit, (laptopBezel + deckOverhang) * unit,
              (laptopChin + deckHeight) * unit};
    case Device::Phone:
      break;
  }
  const double around = (phoneBezel + phoneKeyDepth) * unit;
  return {around, around, around, around};
}

DeviceFramePainter::DeviceFramePainter(DeviceFrame frame, const QRectF& content, double radius)
    : frame_(frame),
      dark_(isDark(frame)),
      content_(content),
      unit_(unitOf(deviceOf(frame), {content.width(), content.height()})),
      radius_(std::clamp(radius, 0.0, barHeight * unit_ * 0.9)) {}

QRectF DeviceFramePainter::lid() const {
  const double bezel = laptopBezel * unit_;
  return content_.adjusted(-bezel, -bezel, bezel, laptopChin * unit_);
}

QRectF DeviceFramePainter::deck() const {
  const QRectF screenHalf = lid();
  return {screenHalf.left() - deckOverhang * unit_, screenHalf.bottom(), screenHalf.width() + 2 * deckOverhang * unit_,
          deckHeight * unit_};
}

QRectF DeviceFramePainter::slab() const {
  const double bezel = phoneBezel * unit_;
  return content_.adjusted(-bezel, -bezel, bezel, bezel);
}

QRectF DeviceFramePainter::camera() const {
  const double side = 11 * unit_;
  const double gap = 16 * unit_;
  QRectF hole(0, 0, side, side);
  if (content_.width() > content_.height()) {
    hole.moveCenter({content_.left() + gap, content_.center().y()});
  } else {
    hole.moveCenter({content_.center().x(), content_.top() + gap});
  }
  return hole;
}

QPainterPath DeviceFramePainter::phoneKeys() const {
  const QRectF body = slab();
  const double depth = phoneKeyDepth * unit_;
  const double round = 1.4 * unit_;
  QPainterPath keys;
  const auto add = [&](double from, double to) {
    const bool upright = body.height() >= body.width();
    const double length = upright ? body.height() : body.width();
    const QRectF key = upright
                           ? QRectF(body.right() - depth, body.top() + from * length, 2 * depth, (to - from) * length)
                           : QRectF(body.left() + from * length, body.top() - depth, (to - from) * length, 2 * depth);
    keys.addRoundedRect(key, round, round);
  };
  add(0.20, 0.27);
  add(0.32, 0.45);
  return keys;
}

QPainterPath DeviceFramePainter::silhouette() const {
  switch (deviceOf(frame_)) {
    case Device::Browser: {
      const double bar = barHeight * unit_;
      return rounded(content_.adjusted(0, -bar, 0, 0), radius_, radius_);
    }
    case Device::Laptop: {
      QPainterPath path = rounded(lid(), lidRadius * unit_, 0);
      path.setFillRule(Qt::WindingFill);
      path.addPath(rounded(deck(), 3 * unit_, 18 * unit_));
      return path;
    }
    case Device::Phone:
      break;
  }
  QPainterPath path = rounded(slab(), phoneRadius * unit_, phoneRadius * unit_);
  path.setFillRule(Qt::WindingFill);
  path.addPath(phoneKeys());
  return path;
}

QPainterPath DeviceFramePainter::screen() const {
  switch (deviceOf(frame_)) {
    case Device::Browser:
      return rounded(content_, 0, radius_);
    case Device::Laptop:
      return rounded(content_, (lidRadius - laptopBezel) * unit_, 3 * unit_);
    case Device::Phone:
      break;
  }
  const double radius = (phoneRadius - phoneBezel) * unit_;
  return rounded(content_, radius, radius);
}

void DeviceFramePainter::paint(QPainter& painter) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  switch (deviceOf(frame_)) {
    case Device::Browser:
      paintBrowser(painter);
      break;
    case Device::Laptop:
      paintLaptop(painter);
      break;
    case Device::Phone:
      paintPhone(painter);
      break;
  }
  painter.restore();
}

void DeviceFramePainter::paintBrowser(QPainter& painter) const {
  const double u = unit_;
  const QRectF bar(content_.left(), content_.top() - barHeight * u, content_.width(), barHeight * u);
  const QColor mark = dark_ ? white(0.34) : black(0.28);
  painter.fillPath(silhouette(), dark_ ? QColor(0x1E1F22) : QColor(0xFFFFFF));
  painter.fillPath(
      rounded(bar.adjusted(0, 0, 0, u), radius_, 0),
      dark_ ? vertical(bar, QColor(0x34363B), QColor(0x2A2C30)) : vertical(bar, QColor(0xF8F9FA), QColor(0xEDEFF2)));
  painter.fillRect(QRectF(bar.left(), bar.bottom() - u, bar.width(), u), dark_ ? black(0.45) : black(0.10));
  const double middle = bar.center().y();
  // Narrow windows lose what has no room, the address first.
  const double dotsEnd = bar.left() + 70 * u;
  painter.setBrush(dark_ ? white(0.22) : black(0.16));
  for (int i = 0; i < 3; ++i) {
    painter.drawEllipse(QPointF(bar.left() + (20 + 17.0 * i) * u, middle), 5.25 * u, 5.25 * u);
  }
  if (bar.width() < 240 * u) return;
  drawChevron(painter, {dotsEnd + 18 * u, middle}, 4.5 * u, -1, mark, 1.6 * u);
  drawChevron(painter, {dotsEnd + 42 * u, middle}, 4.5 * u, 1, dark_ ? white(0.16) : black(0.13), 1.6 * u);
  painter.setBrush(mark);
  for (int i = -1; i <= 1; ++i)
    painter.drawEllipse(QPointF(bar.right() - 22 * u, middle + 5.2 * u * i), 1.5 * u, 1.5 * u);
  if (bar.width() < 420 * u) return;
  const double width = std::min(bar.width() * 0.46, bar.width() - 2 * 130 * u);
  const QRectF address(bar.center().x() - width / 2, middle - 13 * u, width, 26 * u);
  painter.setBrush(dark_ ? black(0.24) : QColor(0xFFFFFF));
  painter.drawRoundedRect(address, 8 * u, 8 * u);
  strokeInside(painter, address, 8 * u, 0.8 * u, dark_ ? white(0.06) : black(0.07));
  // A lock and a line in place of an address.
  const QRectF lock(address.left() + 13 * u, middle - 1.6 * u, 8 * u, 6.4 * u);
  painter.setBrush(mark);
  painter.drawRoundedRect(lock, 1.4 * u, 1.4 * u);
  QPainterPath shackle;
  shackle.moveTo(lock.left() + 1.8 * u, lock.top());
  shackle.arcTo(QRectF(lock.left() + 1.8 * u, lock.top() - 4.4 * u, 4.4 * u, 5.6 * u), 180, -180);
  shackle.lineTo(lock.right() - 1.8 * u, lock.top());
  painter.strokePath(shackle, QPen(mark, 1.2 * u));
  painter.setBrush(dark_ ? white(0.14) : black(0.10));
  painter.drawRoundedRect(QRectF(lock.right() + 9 * u, middle - 3 * u, std::min(width * 0.36, 150 * u), 6 * u), 3 * u,
                          3 * u);
}

void DeviceFramePainter::paintLaptop(QPainter& painter) const {
  const double u = unit_;
  const QRectF back = lid();
  const double radius = lidRadius * u;
  const QColor metal = dark_ ? QColor(0x4B4E54) : QColor(0xC9CDD3);
  painter.fillPath(rounded(back, radius, 0), metal);
  painter.fillPath(rounded(back.adjusted(1.6 * u, 1.6 * u, -1.6 * u, 0), radius - 1.6 * u, 0), QColor(0x0D0E10));
  painter.setBrush(QColor(0x23262C));
  painter.drawEllipse(QPointF(back.center().x(), back.top() + laptopBezel * u / 2 + 0.6 * u), 2.3 * u, 2.3 * u);
  painter.setBrush(QColor(0x3D5068));
  painter.drawEllipse(QPointF(back.center().x(), back.top() + laptopBezel * u / 2 + 0.6 * u), 0.9 * u, 0.9 * u);
  painter.fillPath(screen(), QColor(Qt::black));

  const QRectF base = deck();
  QLinearGradient body(base.topLeft(), base.bottomLeft());
  body.setColorAt(0, dark_ ? QColor(0x6A6E75) : QColor(0xF4F5F7));
  body.setColorAt(0.10, dark_ ? QColor(0x54575D) : QColor(0xE3E6EA));
  body.setColorAt(0.55, dark_ ? QColor(0x44474C) : QColor(0xCFD3D9));
  body.setColorAt(1, dark_ ? QColor(0x232529) : QColor(0x9AA0A9));
  const QPainterPath outline = rounded(base, 3 * u, 18 * u);
  painter.fillPath(outline, body);
  // The sides turn away from the light.
  QLinearGradient sides(base.topLeft(), base.topRight());
  sides.setColorAt(0, black(0.30));
  sides.setColorAt(0.035, black(0.0));
  sides.setColorAt(0.5, white(dark_ ? 0.05 : 0.14));
  sides.setColorAt(0.965, black(0.0));
  sides.setColorAt(1, black(0.30));
  painter.fillPath(outline, sides);
  painter.fillRect(QRectF(base.left() + 3 * u, base.top(), base.width() - 6 * u, 1.1 * u), white(dark_ ? 0.16 : 0.75));
  // Where a finger opens it.
  const QRectF groove(base.center().x() - 68 * u, base.top(), 136 * u, 8.5 * u);
  QLinearGradient hollow(groove.topLeft(), groove.topRight());
  const QColor deep = dark_ ? QColor(0x1D1F22) : QColor(0x9BA1AA);
  const QColor flat = dark_ ? QColor(0x45484E) : QColor(0xC6CAD0);
  hollow.setColorAt(0, deep);
  hollow.setColorAt(0.09, flat);
  hollow.setColorAt(0.91, flat);
  hollow.setColorAt(1, deep);
  painter.fillPath(rounded(groove, 0, 7.5 * u), hollow);
}

void DeviceFramePainter::paintPhone(QPainter& painter) const {
  const double u = unit_;
  const QRectF body = slab();
  const double radius = phoneRadius * u;
  const QColor metal = dark_ ? QColor(0x3A3D43) : QColor(0xC4C8CF);
  painter.fillPath(phoneKeys(), dark_ ? QColor(0x2A2C31) : QColor(0xAAB0B9));
  QLinearGradient rim(body.topLeft(), body.bottomRight());
  rim.setColorAt(0, metal.lighter(dark_ ? 165 : 118));
  rim.setColorAt(0.3, metal);
  rim.setColorAt(0.7, metal.darker(dark_ ? 130 : 112));
  rim.setColorAt(1, metal.lighter(dark_ ? 150 : 112));
  painter.fillPath(rounded(body, radius, radius), rim);
  const double edge = 2.6 * u;
  painter.fillPath(rounded(body.adjusted(edge, edge, -edge, -edge), radius - edge, radius - edge),
                   dark_ ? QColor(0x0B0C0E) : QColor(0xFBFBFC));
  strokeInside(painter, body.adjusted(edge, edge, -edge, -edge), radius - edge, 0.8 * u,
               dark_ ? white(0.10) : black(0.12));
  painter.fillPath(screen(), QColor(Qt::black));
}

void DeviceFramePainter::paintOver(QPainter& painter) const {
  const Device device = deviceOf(frame_);
  if (device == Device::Laptop) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if (device == Device::Phone) {
    const QRectF hole = camera();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x08090A));
    painter.drawEllipse(hole);
    painter.setBrush(QColor(0x1C2A3D));
    painter.drawEllipse(hole.center(), hole.width() * 0.26, hole.width() * 0.26);
    painter.setBrush(white(0.35));
    painter.drawEllipse(hole.center() + QPointF(-0.09, -0.09) * hole.width(), hole.width() * 0.07, hole.width() * 0.07);
  } else {
    // The edge that keeps a light window apart from a light ground.
    const QRectF window = content_.adjusted(0, -barHeight * unit_, 0, 0);
    strokeInside(painter, window, radius_, 0.9 * unit_, dark_ ? white(0.12) : black(0.10));
  }
  painter.restore();
}

}  // namespace vellora
