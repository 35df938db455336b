#include "editor/ui/KindSections.h"

#include <QHBoxLayout>

#include "editor/EditorSettings.h"
#include "editor/ui/ColorSection.h"
#include "editor/ui/EditorCommands.h"
#include "kit/Button.h"
#include "kit/ColorSwatch.h"
#include "kit/SegmentedControl.h"
#include "kit/Slider.h"
#include "kit/TextLabel.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

using Kind = Annotation::Kind;

constexpr int sliderWidth = 84;
constexpr int switchIcon = 18;
constexpr double strengthStep = 0.01;
constexpr double zoomStep = 0.25;
const std::string strengthKey = "blurStrength";
const std::string fillKey = "eraseFillColor";
const std::string zoomKey = "magnification";

QHBoxLayout* rowOf(QWidget& section, int spacing) {
  auto* row = new QHBoxLayout(&section);
  row->setContentsMargins({});
  row->setSpacing(spacing);
  return row;
}

IconButton* makeSwitch(const QString& iconName, const QString& title, const QString& key, QWidget* parent) {
  auto* button = new IconButton(iconName, title, key, parent);
  button->setCheckable(true);
  button->setIconSide(switchIcon);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

bool any(const StyleState& style, std::initializer_list<Kind> kinds) {
  for (const Kind kind : kinds) {
    if (style.kinds.contains(kind)) return true;
  }
  return false;
}

}  // namespace

SwitchSection::SwitchSection(StyleContext& styleContext, QWidget* parent) : StyleSection(styleContext, parent) {
  auto* row = rowOf(*this, 0);
  const QString sketchKey = context().commands.keyText(EditorCommand::ToggleSketch);
  const QString fillShortcut = context().commands.keyText(EditorCommand::ToggleFill);
  //% "Hand-drawn"
  sketch_ = makeSwitch(QStringLiteral("style.sketch"), qtTrId("editor.sketchTooltip"), sketchKey, this);
  //% "Filled"
  fill_ = makeSwitch(QStringLiteral("style.fill"), qtTrId("editor.fillTooltip"), fillShortcut, this);
  //% "Text on a filled box"
  textGround_ = makeSwitch(QStringLiteral("text.background"), qtTrId("editor.textStyleTooltip"), fillShortcut, this);
  //% "Handwriting"
  handwriting_ = makeSwitch(QStringLiteral("text.handwritten"), qtTrId("editor.textFontTooltip"), sketchKey, this);
  for (IconButton* button : {sketch_, fill_, textGround_, handwriting_}) row->addWidget(button);
  connect(sketch_, &IconButton::clicked, this, [this](bool on) { model().setSketch(on); });
  connect(fill_, &IconButton::clicked, this, [this](bool on) { model().setShapeFill(on); });
  connect(textGround_, &IconButton::clicked, this, [this](bool on) { model().setTextBackground(on); });
  connect(handwriting_, &IconButton::clicked, this, [this](bool on) { model().setTextHandwritten(on); });
}

bool SwitchSection::refresh(const StyleState& style) {
  const auto show = [](IconButton* button, bool applies, const std::optional<bool>& on) {
    button->setVisible(applies);
    button->setChecked(on.value_or(false));
  };
  const bool sketches = any(style, {Kind::Arrow, Kind::Box, Kind::Ellipse});
  const bool fills = any(style, {Kind::Box, Kind::Ellipse});
  const bool texts = any(style, {Kind::Text});
  show(sketch_, sketches, style.sketch);
  show(fill_, fills, style.shapeFill);
  show(textGround_, texts, style.textBackground);
  show(handwriting_, texts, style.textHandwritten);
  return sketches || fills || texts;
}

BlurSection::BlurSection(StyleContext& styleContext, QWidget* parent) : StyleSection(styleContext, parent) {
  auto* row = rowOf(*this, tokens::space2);
  //% "Hides what is below it for good."
  const QString hides = qtTrId("editor.blurStyle.hides");
  ways_ = new SegmentedControl(
      {//% "Mosaic"
       {QStringLiteral("tool.blur"), qtTrId("editor.blurStyle.mosaic"), hides},
       //% "Paint Over"
       {QStringLiteral("blur.erase"), qtTrId("editor.blurStyle.erase"), hides},
       //% "Blur"
       {QStringLiteral("blur.gaussian"), qtTrId("editor.blurStyle.gaussian"),
        //% "Decorates only: what is below can often be made readable again. Hide secrets with the other two."
        qtTrId("editor.blurStyle.gaussian.warning")}},
      this);
  //% "How it is hidden"
  ways_->setAccessibleName(qtTrId("editor.blurStyleTooltip"));
  connect(ways_, &SegmentedControl::chosen, this,
          [this](int index) { model().setBlurStyle(static_cast<BlurStyle>(index)); });
  row->addWidget(ways_);
  strength_ = new Slider(this);
  strength_->setScale(0, 1, strengthStep);
  strength_->setDefaultNumber(EditorSettings::defaultBlurStrength);
  strength_->setFixedWidth(sliderWidth);
  strength_->setFocusPolicy(Qt::TabFocus);
  connect(strength_, &Slider::numberChanged, this,
          [this](double strength) { model().setBlurStrength(strength, strengthKey); });
  connect(strength_, &Slider::editingFinished, this, [this] { model().endCoalescing(); });
  row->addWidget(strength_);
  //% "Color it is painted over with"
  const QString fillTitle = qtTrId("editor.blurFillColor");
  fill_ = new ColorSwatch({}, fillTitle, this);
  connect(fill_, &ColorSwatch::clicked, this, &BlurSection::openFillColor);
  row->addWidget(fill_);
  //% "Take the color from around it"
  automatic_ = makeSwitch(QStringLiteral("eyedropper"), qtTrId("editor.blurFillColor.automatic"), {}, this);
  connect(automatic_, &IconButton::clicked, this, [this](bool on) {
    model().setEraseFillColor(on ? std::nullopt : std::optional(toComponents(fill_->color())));
  });
  row->addWidget(automatic_);
}

void BlurSection::openFillColor() {
  StyleContext& shared = context();
  const ColorComponents start = shared.model.style().eraseFillColor.value_or(ColorComponents{0, 0, 0, 1});
  openColorPopover(
      shared, fill_, start, [&shared](const ColorComponents& color) { shared.model.setEraseFillColor(color, fillKey); },
      [&shared] { shared.model.endCoalescing(); });
}

bool BlurSection::refresh(const StyleState& style) {
  ways_->setCurrent(style.blurStyle ? static_cast<int>(*style.blurStyle) : -1);
  const bool erases = style.blurStyle == BlurStyle::Erase;
  strength_->setVisible(!erases);
  //% "Softness"
  const QString softness = qtTrId("editor.blurStrength.gaussian");
  //% "Cell size"
  const QString cellSize = qtTrId("editor.blurStrength.pixel");
  const QString& strengthName = style.blurStyle == BlurStyle::Gaussian ? softness : cellSize;
  strength_->setAccessibleName(strengthName);
  strength_->setToolTip(strengthName);
  if (style.blurStrength) strength_->setNumber(*style.blurStrength);
  fill_->setVisible(erases);
  automatic_->setVisible(erases);
  automatic_->setChecked(!style.eraseFillColor);
  fill_->setColor(style.eraseFillColor ? toQColor(*style.eraseFillColor) : QColor(Qt::black));
  return any(style, {Kind::Blur});
}

LensSection::LensSection(StyleContext& styleContext, QWidget* parent) : StyleSection(styleContext, parent) {
  auto* row = rowOf(*this, tokens::space2);
  shape_ = new SegmentedControl(
      {//% "Round"
       {QStringLiteral("tool.ellipse"), qtTrId("editor.magnifierShape.circle"), {}},
       //% "Rounded rectangle"
       {QStringLiteral("tool.rectangle"), qtTrId("editor.magnifierShape.roundedRect"), {}}},
      this);
  //% "Shape of the lens"
  shape_->setAccessibleName(qtTrId("editor.magnifierShapeTooltip"));
  connect(shape_, &SegmentedControl::chosen, this,
          [this](int index) { model().setMagnifierShape(static_cast<MagnifierShape>(index)); });
  row->addWidget(shape_);
  zoom_ = new Slider(this);
  zoom_->setScale(EditorSettings::minimumMagnification, EditorSettings::maximumMagnification, zoomStep);
  zoom_->setDefaultNumber(EditorSettings::defaultMagnification);
  zoom_->setFixedWidth(sliderWidth);
  zoom_->setFocusPolicy(Qt::TabFocus);
  //% "Magnification"
  zoom_->setAccessibleName(qtTrId("editor.magnificationTooltip"));
  zoom_->setToolTip(zoom_->accessibleName());
  connect(zoom_, &Slider::numberChanged, this, [this](double zoom) { model().setMagnification(zoom, zoomKey); });
  connect(zoom_, &Slider::editingFinished, this, [this] { model().endCoalescing(); });
  row->addWidget(zoom_);
  value_ = new TextLabel(TextLabel::Role::Secondary, {}, this);
  value_->setWordWrap(false);
  value_->setFont(tabularFont(secondaryFont()));
  value_->setMinimumWidth(40);
  row->addWidget(value_);
}

bool LensSection::refresh(const StyleState& style) {
  shape_->setCurrent(style.magnifierShape ? static_cast<int>(*style.magnifierShape) : -1);
  if (style.magnification) zoom_->setNumber(*style.magnification);
  value_->setText(style.magnification ? QStringLiteral("%1 ×").arg(*style.magnification) : QStringLiteral("–"));
  return any(style, {Kind::Magnifier});
}

}  // namespace vellora
