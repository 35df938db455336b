#include "recording/ui/BarControls.h"

#include <algorithm>
#include <cmath>

#include <QKeyEvent>
#include <QPainter>

#include "kit/Icons.h"
#include "kit/Menu.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int meterWidth = 4;
constexpr int meterHeight = 20;
constexpr int meterSteps = 40;     // finer differences are not painted
constexpr double loudFrom = 0.85;  // of the meter: from here on it warns
constexpr int chevronSide = 10;
constexpr int startPadding = 14;
constexpr int startGap = 8;
constexpr int startDot = 10;
constexpr int startHeight = 32;

void prepare(QPushButton& button) {
  button.setFocusPolicy(Qt::StrongFocus);
  button.setAttribute(Qt::WA_Hover);
  button.setAutoDefault(false);
  button.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  repaintOnThemeChange(button);
}

QRectF edgeOf(const QWidget& control) {
  const int room = tokens::focusRingRoom;
  return QRectF(control.rect()).adjusted(room, room, -room, -room);
}

}  // namespace

LevelMeter::LevelMeter(QWidget* parent) : QWidget(parent) {
  setFixedSize(meterWidth + tokens::space2, meterHeight);
  //% "Level of the microphone"
  setAccessibleName(qtTrId("recording.bar.level"));
  repaintOnThemeChange(*this);
}

void LevelMeter::setLevel(double level) {
  const double next = std::round(std::clamp(level, 0.0, 1.0) * meterSteps) / meterSteps;
  if (next == level_) return;
  level_ = next;
  update();
}

void LevelMeter::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  const QRectF track = snapped(painter, {(width() - meterWidth) / 2.0, 0, meterWidth, meterHeight});
  fillRounded(painter, track, meterWidth / 2.0, palette.controlBorder);
  if (level_ <= 0) return;
  QRectF filled = track;
  filled.setTop(track.bottom() - std::max<double>(meterWidth, track.height() * level_));
  fillRounded(painter, snapped(painter, filled), meterWidth / 2.0,
              level_ >= loudFrom ? palette.warning : palette.success);
}

DeviceButton::DeviceButton(Words words, QWidget* parent) : QPushButton(parent), words_(std::move(words)) {
  prepare(*this);
  setDevices({}, std::nullopt);
}

void DeviceButton::setDevices(const std::vector<CaptureDeviceInfo>& devices, const std::optional<QString>& selected) {
  if (devices == devices_ && selected == selected_ && !toolTip().isEmpty()) return;
  devices_ = devices;
  selected_ = selected;
  QString state = words_.none;
  if (selected_) {
    const auto known = std::ranges::find(devices_, *selected_, &CaptureDeviceInfo::uniqueID);
    state = known != devices_.end() ? known->displayName : *selected_;
  }
  //% "%1: %2"
  const QString title = qtTrId("recording.bar.device").arg(words_.kind, state);
  setToolTip(title);
  setAccessibleName(title);
  update();
}

void DeviceButton::openMenu() {
  if (menu_) return;
  menu_ = new QMenu(this);
  menu_->setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [this](const QString& title, const std::optional<QString>& deviceID) {
    // An ampersand of a device's name is no shortcut.
    QAction* const action = menu_->addAction(QString(title).replace(QLatin1Char('&'), QLatin1String("&&")), this,
                                             [this, deviceID] { emit chosen(deviceID); });
    action->setCheckable(true);
    action->setChecked(selected_ == deviceID);
  };
  for (const CaptureDeviceInfo& device : devices_) add(device.displayName, device.uniqueID);
  if (!devices_.empty()) menu_->addSeparator();
  add(words_.none, std::nullopt);
  styleMenu(*menu_);
  connect(menu_, &QMenu::aboutToHide, this, qOverload<>(&QWidget::update));
  menu_->popup(mapToGlobal(QPoint(tokens::focusRingRoom, height() + tokens::space1)));
  update();
}

void DeviceButton::closeMenu() {
  if (menu_) menu_->close();
}

QSize DeviceButton::sizeHint() const {
  const int side = tokens::barIcon + 12;
  return {side + chevronSide + 2 * tokens::focusRingRoom, side + 2 * tokens::focusRingRoom};
}

void DeviceButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  const QRectF edge = edgeOf(*this);
  const bool isOpen = menu_ && menu_->isVisible();
  if (isEnabled() && (isOpen || isDown() || underMouse())) {
    fillRounded(painter, edge, tokens::controlRadius, isOpen || isDown() ? palette.pressed : palette.hover);
  }
  const QColor ink = !isEnabled() ? palette.disabledText : selected_ ? palette.text : palette.secondaryText;
  const QRectF icon(edge.left() + 6, edge.center().y() - tokens::barIcon / 2.0, tokens::barIcon, tokens::barIcon);
  paintIcon(painter, selected_ ? words_.on : words_.off, snapped(painter, icon), ink);
  const QRectF chevron(icon.right() + 2, edge.center().y() - chevronSide / 2.0, chevronSide, chevronSide);
  paintIcon(painter, QStringLiteral("chevron"), snapped(painter, chevron),
            isEnabled() ? palette.secondaryText : palette.disabledText);
  if (focus_.visible()) drawFocusRing(painter, edge, tokens::controlRadius);
}

void DeviceButton::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QPushButton::mousePressEvent(event);
  openMenu();
}

void DeviceButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Down) return openMenu();
  QPushButton::keyPressEvent(event);
}

void DeviceButton::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QPushButton::focusInEvent(event);
  update();
}

void DeviceButton::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QPushButton::focusOutEvent(event);
  update();
}

StartButton::StartButton(QWidget* parent)
    //% "Start"
    : QPushButton(qtTrId("recording.bar.start"), parent) {
  prepare(*this);
  setFont(bodyStrongFont());
  //% "Start recording (Return)"
  setToolTip(qtTrId("recording.bar.startTip"));
}

QSize StartButton::sizeHint() const {
  const int room = 2 * tokens::focusRingRoom;
  return {fontMetrics().horizontalAdvance(text()) + startDot + startGap + 2 * startPadding + room, startHeight + room};
}

void StartButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  const QRectF edge = edgeOf(*this);
  QColor ground = palette.dangerFill;
  QColor ink = palette.onFill;
  if (!isEnabled()) {
    ground = palette.hover;
    ink = palette.disabledText;
  } else if (isDown()) {
    ground = ground.darker(120);
  } else if (underMouse()) {
    ground = ground.darker(109);
  }
  const double radius = edge.height() / 2;
  fillRounded(painter, edge, radius, ground);
  const QRectF dot(edge.left() + startPadding, edge.center().y() - startDot / 2.0, startDot, startDot);
  fillRounded(painter, snapped(painter, dot), startDot / 2.0, ink);
  painter.setPen(ink);
  painter.setFont(font());
  painter.drawText(edge.adjusted(startPadding + startDot + startGap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                   text());
  if (focus_.visible()) drawFocusRing(painter, edge, radius);
}

void StartButton::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QPushButton::focusInEvent(event);
  update();
}

void StartButton::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QPushButton::focusOutEvent(event);
  update();
}

}  // namespace vellora
