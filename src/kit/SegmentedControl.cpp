#include "kit/SegmentedControl.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include "kit/Icons.h"
#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int inset = 2;
constexpr int iconSide = 18;
constexpr int textPadding = 10;

class SegmentButton final : public QAbstractButton {
 public:
  SegmentButton(const SegmentedControl::Segment& segment, QWidget* parent)
      : QAbstractButton(parent), iconName_(segment.iconName) {
    setText(segment.title);
    setAccessibleName(segment.title);
    setToolTip(segment.detail.isEmpty() ? segment.title : segment.title + QStringLiteral("\n") + segment.detail);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setFont(secondaryFont());
    repaintOnThemeChange(*this);
  }

  QSize sizeHint() const override {
    const int side = tokens::minimumHit;
    if (!iconName_.isEmpty()) return {side + tokens::space1, side};
    return {fontMetrics().horizontalAdvance(text()) + 2 * textPadding, side};
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const ThemeColors& palette = Theme::shared().palette();
    const QRectF edge = rect();
    const double radius = tokens::controlRadius - inset;
    if (isChecked()) {
      fillRounded(painter, edge, radius, palette.raised);
      strokeRounded(painter, edge, radius, palette.controlBorder);
    } else if (underMouse() || isDown()) {
      fillRounded(painter, edge, radius, isDown() ? palette.pressed : palette.hover);
    }
    const QColor ink = !isEnabled() ? palette.disabledText : isChecked() ? palette.accent : palette.secondaryText;
    if (iconName_.isEmpty()) {
      painter.setFont(font());
      painter.setPen(isChecked() ? palette.text : ink);
      painter.drawText(rect(), Qt::AlignCenter, text());
    } else {
      QRectF icon(0, 0, iconSide, iconSide);
      icon.moveCenter(edge.center());
      paintIcon(painter, iconName_, snapped(painter, icon), ink);
    }
    if (focus_.visible()) {
      strokeRounded(painter, edge, radius, palette.accent, tokens::focusRingWidth);
    }
  }

  void focusInEvent(QFocusEvent* event) override {
    focus_.focusIn(*event);
    QAbstractButton::focusInEvent(event);
    update();
  }
  void focusOutEvent(QFocusEvent* event) override {
    focus_.focusOut();
    QAbstractButton::focusOutEvent(event);
    update();
  }

 private:
  QString iconName_;
  KeyboardFocus focus_;
};

}  // namespace

SegmentedControl::SegmentedControl(const QList<Segment>& segments, QWidget* parent)
    : QWidget(parent), group_(new QButtonGroup(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(inset, inset, inset, inset);
  row->setSpacing(inset);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  for (int i = 0; i < segments.size(); ++i) {
    auto* button = new SegmentButton(segments[i], this);
    group_->addButton(button, i);
    row->addWidget(button);
  }
  connect(group_, &QButtonGroup::idClicked, this, [this](int index) {
    if (index == current_) return;
    current_ = index;
    emit chosen(index);
  });
  repaintOnThemeChange(*this);
}

void SegmentedControl::setCurrent(int index) {
  current_ = index;
  group_->setExclusive(false);
  for (QAbstractButton* button : group_->buttons()) button->setChecked(group_->id(button) == index);
  group_->setExclusive(true);
}

int SegmentedControl::current() const {
  return current_;
}

void SegmentedControl::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  fillRounded(painter, rect(), tokens::controlRadius, palette.sunken);
  strokeRounded(painter, rect(), tokens::controlRadius, palette.line);
}

}  // namespace vellora
