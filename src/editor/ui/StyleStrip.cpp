#include "editor/ui/StyleStrip.h"

#include <algorithm>

#include <QAbstractButton>
#include <QPainter>
#include <QVBoxLayout>

#include "editor/ui/ColorSection.h"
#include "editor/ui/KindSections.h"
#include "editor/ui/WidthSection.h"
#include "kit/Button.h"
#include "kit/ColorSwatch.h"
#include "kit/Icons.h"
#include "kit/Paint.h"
#include "kit/Popover.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int gap = tokens::space3;
constexpr double spot = 18;
constexpr int chevronSide = 12;

}  // namespace

/// Shows the colour and opens all of them.
class ColorButton final : public QAbstractButton {
 public:
  explicit ColorButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(qtTrId("editor.color"));
    setToolTip(accessibleName());
    repaintOnThemeChange(*this);
  }
  void setColor(const QColor& color) {
    color_ = color;
    update();
  }
  QSize sizeHint() const override { return {46, tokens::minimumHit + 4}; }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const ThemeColors& palette = Theme::shared().palette();
    const QRectF edge = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (isDown() || underMouse()) {
      fillRounded(painter, edge, tokens::controlRadius, isDown() ? palette.pressed : palette.hover);
    }
    const QPointF center(edge.left() + 6 + spot / 2, edge.center().y());
    if (color_.isValid()) {
      paintColorSpot(painter, center, spot, color_);
    } else {
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setPen(QPen(palette.controlBorder, 1, Qt::DashLine));
      painter.drawEllipse(center, spot / 2, spot / 2);
    }
    const QRectF chevron(edge.right() - chevronSide - 4, edge.center().y() - chevronSide / 2.0, chevronSide,
                         chevronSide);
    paintIcon(painter, QStringLiteral("chevron"), snapped(painter, chevron), palette.secondaryText);
    if (hasFocus()) strokeRounded(painter, edge, tokens::controlRadius, palette.accent, tokens::focusRingWidth);
  }

 private:
  QColor color_;
};

void StyleStrip::add(StyleSection* section, Fold first, Fold last) {
  section->hide();
  parts_.push_back({section, first, last});
}

StyleStrip::StyleStrip(StyleContext& context, QWidget* parent)
    : QWidget(parent),
      context_(context),
      colors_(new ColorButton(this)),
      //% "More of the style"
      switches_(new IconButton(QStringLiteral("style.more"), qtTrId("editor.moreStyle"), {}, this)) {
  add(new ColorSection(context, this), Open, WidthFolded);
  add(new WidthSection(context, WidthSection::Form::Full, this), Open, Open);
  add(new WidthSection(context, WidthSection::Form::Button, this), WidthFolded, SwitchesFolded);
  add(new SwitchSection(context, this), Open, ColorsFolded);
  add(new BlurSection(context, this), Open, ColorsFolded);
  add(new LensSection(context, this), Open, ColorsFolded);
  colors_->hide();
  switches_->hide();
  switches_->setIconSide(18);
  switches_->setFocusPolicy(Qt::TabFocus);
  connect(colors_, &ColorButton::clicked, this, &StyleStrip::openColors);
  connect(switches_, &IconButton::clicked, this, &StyleStrip::openSwitches);
}

void StyleStrip::refresh() {
  const StyleState style = context_.model.style();
  switchesApply_ = false;
  for (Part& part : parts_) {
    part.applies = part.section->refresh(style);
    part.section->layout()->activate();
    if (part.last == ColorsFolded) switchesApply_ = switchesApply_ || part.applies;
  }
  colorApplies_ = std::ranges::any_of(style.kinds, hasColor);
  colors_->setColor(style.color ? toQColor(*style.color) : QColor());
}

bool StyleStrip::shows(const Part& part, Fold fold) const {
  return part.applies && fold >= part.first && fold <= part.last;
}

int StyleStrip::widthIn(Fold fold) const {
  int width = 0;
  const auto count = [&width](const QWidget* widget) { width += (width > 0 ? gap : 0) + widget->sizeHint().width(); };
  if (colorApplies_ && fold >= ColorsFolded) count(colors_);
  for (const Part& part : parts_) {
    if (shows(part, fold)) count(part.section);
  }
  if (switchesApply_ && fold >= SwitchesFolded) count(switches_);
  return width;
}

void StyleStrip::setFold(Fold fold) {
  resize(widthIn(fold), height());
  int x = 0;
  const auto place = [&](QWidget* widget, bool visible) {
    if (visible) {
      const QSize size = widget->sizeHint();
      const QRect logical(x, (height() - size.height()) / 2, size.width(), size.height());
      widget->setGeometry(layoutDirection() == Qt::RightToLeft
                              ? QRect(width() - logical.right() - 1, logical.y(), logical.width(), logical.height())
                              : logical);
      x += size.width() + gap;
    }
    widget->setVisible(visible);
  };
  place(colors_, colorApplies_ && fold >= ColorsFolded);
  for (const Part& part : parts_) place(part.section, shows(part, fold));
  place(switches_, switchesApply_ && fold >= SwitchesFolded);
}

void StyleStrip::openColors() {
  auto* popover = new Popover(colors_->accessibleName(), colors_);
  auto* column = new QVBoxLayout(popover);
  column->setContentsMargins({});
  auto* section = new ColorSection(context_, popover);
  section->refresh(context_.model.style());
  column->addWidget(section);
  popover->open();
}

void StyleStrip::openSwitches() {
  auto* popover = new Popover(switches_->accessibleName(), switches_);
  auto* column = new QVBoxLayout(popover);
  column->setContentsMargins({});
  column->setSpacing(tokens::space2);
  const StyleState style = context_.model.style();
  for (StyleSection* section : {static_cast<StyleSection*>(new SwitchSection(context_, popover)),
                                static_cast<StyleSection*>(new BlurSection(context_, popover)),
                                static_cast<StyleSection*>(new LensSection(context_, popover))}) {
    section->setVisible(section->refresh(style));
    column->addWidget(section);
  }
  popover->open();
}

}  // namespace vellora
