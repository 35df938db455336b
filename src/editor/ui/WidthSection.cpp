#include "editor/ui/WidthSection.h"

#include <algorithm>
#include <cmath>

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "editor/ToolStyle.h"
#include "editor/ui/EditorCommands.h"
#include "kit/Paint.h"
#include "kit/Popover.h"
#include "kit/Slider.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr std::array presetWidths{1.0, 2.0, 3.0, 5.0, 8.0, 12.0};
constexpr std::array steps{1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 8.0, 10.0, 12.0, 14.0, 16.0, 18.0, 20.0};
constexpr double widthStep = 0.5;
constexpr int barSlider = 84;
constexpr int panelSlider = 180;
constexpr double thickestLine = 14;
const std::string coalescingKey = "lineWidth";

QString widthText(double width) {
  return QString::number(std::round(width * 10) / 10);
}

}  // namespace

/// Shows a width as a line, with its number or without.
class WidthButton final : public QAbstractButton {
 public:
  WidthButton(bool withNumber, QWidget* parent) : QAbstractButton(parent), withNumber_(withNumber) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    repaintOnThemeChange(*this);
  }

  void setWidth(std::optional<double> width) {
    width_ = width;
    update();
  }
  std::optional<double> lineWidth() const { return width_; }

  QSize sizeHint() const override { return {withNumber_ ? 60 : 32, tokens::minimumHit + 4}; }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const ThemeColors& palette = Theme::shared().palette();
    const QRectF edge = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (isChecked()) {
      fillRounded(painter, edge, tokens::controlRadius, palette.selection);
    } else if (isDown() || underMouse()) {
      fillRounded(painter, edge, tokens::controlRadius, isDown() ? palette.pressed : palette.hover);
    }
    const double sample = 20;
    const double left = withNumber_ ? edge.left() + 8 : edge.center().x() - sample / 2;
    if (width_) {
      const double thickness = std::clamp(*width_, 1.0, thickestLine);
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setPen(QPen(isChecked() ? palette.accent : palette.text, thickness, Qt::SolidLine, Qt::RoundCap));
      const double inset = thickness / 2;
      painter.drawLine(QPointF(left + inset, edge.center().y()), QPointF(left + sample - inset, edge.center().y()));
    }
    if (withNumber_) {
      painter.setFont(tabularFont(secondaryFont()));
      painter.setPen(palette.text);
      painter.drawText(QRectF(left + sample + 6, 0, edge.right() - left - sample - 6, height()),
                       Qt::AlignLeft | Qt::AlignVCenter, width_ ? widthText(*width_) : QStringLiteral("–"));
    }
    if (focus_.visible()) strokeRounded(painter, edge, tokens::controlRadius, palette.accent, tokens::focusRingWidth);
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
  bool withNumber_;
  std::optional<double> width_;
  KeyboardFocus focus_;
};

bool hasLineWidth(Annotation::Kind kind) {
  return kind != Annotation::Kind::Blur && kind != Annotation::Kind::Magnifier;
}

double nextLineWidth(double width, int direction) {
  if (direction > 0) {
    const auto above = std::ranges::find_if(steps, [width](double step) { return step > width; });
    return above == steps.end() ? maximumLineWidth : *above;
  }
  double below = minimumLineWidth;
  for (const double step : steps) {
    if (step < width) below = step;
  }
  return below;
}

WidthSection::WidthSection(StyleContext& styleContext, Form form, QWidget* parent)
    : StyleSection(styleContext, parent) {
  //% "Width"
  const QString name = qtTrId("editor.width");
  const QString keys = QStringLiteral("%1 (%2, %3)")
                           .arg(name, context().commands.keyText(EditorCommand::Thinner),
                                context().commands.keyText(EditorCommand::Thicker));
  QBoxLayout* row = form == Form::WithPresets ? static_cast<QBoxLayout*>(new QVBoxLayout(this)) : new QHBoxLayout(this);
  row->setContentsMargins({});
  row->setSpacing(tokens::space1);
  if (form != Form::Button) {
    slider_ = new Slider(this);
    slider_->setScale(minimumLineWidth, maximumLineWidth, widthStep);
    slider_->setDefaultNumber(ToolStyle{}.lineWidth);
    slider_->setFixedWidth(form == Form::Full ? barSlider : panelSlider);
    slider_->setFocusPolicy(Qt::TabFocus);
    slider_->setAccessibleName(name);
    slider_->setToolTip(keys);
    connect(slider_, &Slider::numberChanged, this, &WidthSection::choose);
    connect(slider_, &Slider::editingFinished, this, [this] { model().endCoalescing(); });
  }
  if (form == Form::WithPresets) {
    auto* head = new QHBoxLayout;
    value_ = new TextLabel(TextLabel::Role::Body, {}, this);
    value_->setFont(tabularFont());
    value_->setMinimumWidth(28);
    value_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    head->addWidget(slider_);
    head->addWidget(value_);
    row->addLayout(head);
    auto* presets = new QHBoxLayout;
    presets->setSpacing(tokens::space1);
    for (const double width : presetWidths) {
      auto* preset = new WidthButton(false, this);
      preset->setWidth(width);
      preset->setCheckable(true);
      //% "Width %1"
      preset->setAccessibleName(qtTrId("editor.width.preset").arg(widthText(width)));
      preset->setToolTip(preset->accessibleName());
      connect(preset, &WidthButton::clicked, this, [this, width] {
        choose(width);
        model().endCoalescing();
      });
      presets->addWidget(preset);
      presets_.append(preset);
    }
    row->addLayout(presets);
    return;
  }
  if (slider_ != nullptr) row->addWidget(slider_);
  button_ = new WidthButton(true, this);
  button_->setAccessibleName(name);
  button_->setToolTip(keys);
  connect(button_, &WidthButton::clicked, this, &WidthSection::openPanel);
  row->addWidget(button_);
}

void WidthSection::choose(double width) {
  model().setLineWidth(width, coalescingKey);
}

void WidthSection::openPanel() {
  auto* popover = new Popover(button_->accessibleName(), button_);
  auto* column = new QVBoxLayout(popover);
  column->setContentsMargins({});
  auto* section = new WidthSection(context(), Form::WithPresets, popover);
  section->refresh(model().style());
  column->addWidget(section);
  connect(section->slider_, &Slider::numberChanged, section, [section] { section->refresh(section->model().style()); });
  for (WidthButton* preset : section->presets_) connect(preset, &WidthButton::clicked, popover, &Popover::close);
  popover->open();
}

bool WidthSection::refresh(const StyleState& style) {
  const bool applies = std::ranges::any_of(style.kinds, hasLineWidth);
  if (slider_ != nullptr && style.lineWidth) slider_->setNumber(*style.lineWidth);
  if (button_ != nullptr) button_->setWidth(style.lineWidth);
  if (value_ != nullptr) value_->setText(style.lineWidth ? widthText(*style.lineWidth) : QStringLiteral("–"));
  for (WidthButton* preset : presets_) preset->setChecked(style.lineWidth == preset->lineWidth());
  return applies;
}

}  // namespace vellora
