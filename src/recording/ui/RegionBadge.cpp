#include "recording/ui/RegionBadge.h"

#include <algorithm>
#include <cmath>

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include "kit/Button.h"
#include "kit/Icons.h"
#include "kit/Menu.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"
#include "recording/ui/ScreenPlaces.h"

namespace vellora {
namespace {

constexpr int badgeHeight = 28;
constexpr int gripRoom = 22;
constexpr int gripIcon = 14;
constexpr double aboveRegion = 12;  // between the badge and the region's edge: clear of the handles
constexpr double insideRegion = 16;

QString titleOf(const RegionPreset& preset) {
  switch (preset.kind) {
    case RegionPreset::Kind::display:
      //% "Full display"
      return qtTrId("recording.region.fullDisplay");
    case RegionPreset::Kind::ratio:
      //% "Square"
      if (preset.width == preset.height) return qtTrId("recording.region.square");
      return QStringLiteral("%1 : %2").arg(preset.width).arg(preset.height);
    case RegionPreset::Kind::size:
      break;
  }
  return QStringLiteral("%1 × %2").arg(preset.width).arg(preset.height);
}

}  // namespace

RegionBadge::RegionBadge(const DisplayInfo& screen, WindowHints* hints)
    : OverlayPanel(hints, Keyboard::Never),
      display_(screen),
      size_(new TextLabel(TextLabel::Role::Badge)),
      //% "Sizes and shapes"
      presets_(new IconButton(QStringLiteral("chevron"), qtTrId("recording.region.presets"))) {
  if (QScreen* const target = screenOf(display_)) setScreen(target);
  setRadius(badgeHeight / 2.0);
  setPadding({gripRoom, 0, 0, 0});
  setCursor(Qt::SizeAllCursor);
  //% "Size of the recording; drag to move it"
  setToolTip(qtTrId("recording.region.badge"));
  setAccessibleName(toolTip());
  size_->setFont(tabularFont(badgeFont()));
  presets_->setIconSide(tokens::menuIcon - 2);
  presets_->setFocusPolicy(Qt::NoFocus);
  presets_->setCursor(Qt::ArrowCursor);
  connect(presets_, &QPushButton::clicked, this, &RegionBadge::openPresets);
  auto* const row = new QHBoxLayout(this);
  row->setSpacing(0);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(size_);
  row->addWidget(presets_);
}

QString RegionBadge::sizeText(const PixelRect& region) const {
  QString pixels = QStringLiteral("%1 × %2").arg(region.width).arg(region.height);
  if (display_.scale == 1) return pixels;
  //% "%1 px · %2 pt"
  return qtTrId("recording.region.sizes")
      .arg(pixels, QStringLiteral("%1 × %2")
                       .arg(std::lround(region.width / display_.scale))
                       .arg(std::lround(region.height / display_.scale)));
}

void RegionBadge::follow(const RegionModel& model) {
  model_ = &model;
  const QScreen* const target = screenOf(display_);
  if (target == nullptr) return;
  const QString text = sizeText(model.region());
  if (text != size_->text()) {
    size_->setText(text);
    size_->setAccessibleName(text);
    const QSize around = size() - panelRect().size();
    // The layout's wish is up to date only after the label's event; the label's own always is.
    const int width = gripRoom + size_->sizeHint().width() + presets_->sizeHint().width();
    setFixedSize(QSize(width, badgeHeight) + around);
  }
  const QRectF region = toPoints(model.region(), *target);
  const QRect area = target->geometry();
  const QSize panel = panelRect().size();
  const double above = region.top() - aboveRegion - panel.height();
  const bool fitsAbove = above >= area.top() + tokens::space1;
  const double left = fitsAbove ? region.left() : region.left() + insideRegion;
  const double top = fitsAbove ? above : region.top() + insideRegion;
  const int rightmost = area.right() + 1 - tokens::space1 - panel.width();
  movePanel({std::clamp(static_cast<int>(std::lround(left)), area.left() + tokens::space1,
                        std::max(area.left() + tokens::space1, rightmost)),
             static_cast<int>(std::lround(top))});
}

void RegionBadge::openPresets() {
  if (model_ == nullptr || menu_) return;
  menu_ = new QMenu(this);
  menu_->setAttribute(Qt::WA_DeleteOnClose);
  auto kind = RegionPreset::Kind::size;
  for (const RegionPreset& preset : RegionModel::presets()) {
    if (preset.kind != kind) menu_->addSeparator();
    kind = preset.kind;
    QAction* const action = menu_->addAction(titleOf(preset), this, [this, preset] { emit chosen(preset); });
    action->setEnabled(model_->fits(preset));
    action->setCheckable(true);
    action->setChecked(model_->matches(preset));
  }
  styleMenu(*menu_);
  menu_->popup(mapToGlobal(QPoint(panelRect().left(), panelRect().bottom() + tokens::space1)));
}

void RegionBadge::paintPanel(QPainter& painter, const QRect& panel) {
  const QRectF icon(panel.left() + (gripRoom - gripIcon) / 2.0 + 1, panel.center().y() - gripIcon / 2.0 + 0.5, gripIcon,
                    gripIcon);
  paintIcon(painter, QStringLiteral("grip"), snapped(painter, icon), Theme::shared().palette().secondaryText);
}

PixelPoint RegionBadge::onDesktop(QPointF global) const {
  const QPointF origin = screen()->geometry().topLeft();
  const double ratio = screen()->devicePixelRatio();
  return {qRound(origin.x() + (global.x() - origin.x()) * ratio),
          qRound(origin.y() + (global.y() - origin.y()) * ratio)};
}

void RegionBadge::mousePressEvent(QMouseEvent* event) {
  emit pressed();
  if (event->button() != Qt::LeftButton) return;
  pulling_ = true;
  emit pullBegan(onDesktop(event->globalPosition()));
}

void RegionBadge::mouseMoveEvent(QMouseEvent* event) {
  if (pulling_) emit pulled(onDesktop(event->globalPosition()));
}

void RegionBadge::mouseReleaseEvent(QMouseEvent*) {
  if (!pulling_) return;
  pulling_ = false;
  emit pullEnded();
}

void RegionBadge::hideEvent(QHideEvent* event) {
  if (menu_) menu_->close();
  OverlayPanel::hideEvent(event);
}

}  // namespace vellora
