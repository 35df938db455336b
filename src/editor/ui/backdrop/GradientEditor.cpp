#include "editor/ui/backdrop/GradientEditor.h"

#include <algorithm>
#include <cmath>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLocale>

#include "editor/ui/backdrop/BackdropState.h"
#include "editor/ui/backdrop/GradientBar.h"
#include "editor/ui/backdrop/PanelSection.h"
#include "kit/Button.h"
#include "kit/ColorSwatch.h"
#include "kit/Slider.h"
#include "kit/TextLabel.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr std::size_t fewestStops = 2;

ColorComponents between(const ColorComponents& from, const ColorComponents& to, double part) {
  const auto mix = [part](double a, double b) { return a + (b - a) * part; };
  return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue), mix(from.alpha, to.alpha)};
}

ColorComponents colorAt(const std::vector<GradientStop>& stops, double position) {
  const auto next = std::ranges::upper_bound(stops, position, {}, &GradientStop::position);
  if (next == stops.begin()) return stops.front().color;
  if (next == stops.end()) return stops.back().color;
  const GradientStop& before = *(next - 1);
  const double span = next->position - before.position;
  return between(before.color, next->color, span > 0 ? (position - before.position) / span : 0);
}

}  // namespace

GradientEditor::GradientEditor(BackdropState& state, const ColorSampler& sampler, QWidget* parent)
    : QWidget(parent),
      state_(state),
      sampler_(sampler),
      bar_(new GradientBar(this)),
      //% "Color of the stop"
      color_(new ColorSwatch(Qt::black, qtTrId("backdrop.gradient.color"), this)),
      //% "Add a color"
      add_(new IconButton(QStringLiteral("add"), qtTrId("backdrop.gradient.add"), QStringLiteral("Ins"), this)),
      //% "Remove the color"
      remove_(new IconButton(QStringLiteral("trash"), qtTrId("backdrop.gradient.remove"), QStringLiteral("Del"), this)),
      angle_(new Slider(this)),
      angleValue_(new TextLabel(TextLabel::Role::Secondary, {}, this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(tokens::space1);
  column->addWidget(bar_);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(0);
  //% "Turn the gradient round"
  auto* turn = new IconButton(QStringLiteral("backdrop.reverse"), qtTrId("backdrop.gradient.reverse"), {}, this);
  for (IconButton* button : {add_, remove_, turn}) button->setIconSide(16);
  buttons->addWidget(color_);
  buttons->addStretch(1);
  for (IconButton* button : {turn, remove_, add_}) buttons->addWidget(button);
  column->addLayout(buttons);
  auto* row = new QHBoxLayout;
  //% "Angle"
  const QString angleTitle = qtTrId("backdrop.gradient.angle");
  row->addWidget(new TextLabel(TextLabel::Role::Body, angleTitle, this));
  row->addStretch(1);
  angleValue_->setFont(tabularFont(secondaryFont()));
  row->addWidget(angleValue_);
  column->addLayout(row);
  column->addWidget(angle_);
  angle_->setScale(0, 359, 1);
  angle_->setDefaultNumber(BackdropBackground::Gradient().angle);
  angle_->setAccessibleName(angleTitle);

  connect(bar_, &GradientBar::chosenChanged, this, &GradientEditor::refresh);
  connect(bar_, &GradientBar::moved, this, [this](double position) {
    std::size_t chosen = bar_->chosen();
    change(QStringLiteral("backdrop.gradient.stop"), [&](BackdropBackground::Gradient& edited) {
      GradientStop moved = edited.stops[chosen];
      moved.position = position;
      edited.stops.erase(edited.stops.begin() + static_cast<std::ptrdiff_t>(chosen));
      // Among stops at one place it keeps to the side it comes from.
      const auto place = position < gradient()->stops[chosen].position
                             ? std::ranges::upper_bound(edited.stops, position, {}, &GradientStop::position)
                             : std::ranges::lower_bound(edited.stops, position, {}, &GradientStop::position);
      chosen = static_cast<std::size_t>(place - edited.stops.begin());
      edited.stops.insert(place, moved);
    });
    bar_->setChosen(chosen);
  });
  connect(bar_, &GradientBar::addRequested, this, &GradientEditor::addStopAt);
  connect(bar_, &GradientBar::removeRequested, this, &GradientEditor::removeStop);
  connect(bar_, &GradientBar::colorRequested, this, &GradientEditor::chooseColor);
  connect(bar_, &GradientBar::editingFinished, &state_, &BackdropState::finish);
  connect(color_, &QAbstractButton::clicked, this, &GradientEditor::chooseColor);
  connect(add_, &QAbstractButton::clicked, this, &GradientEditor::addStop);
  connect(remove_, &QAbstractButton::clicked, this, &GradientEditor::removeStop);
  connect(turn, &QAbstractButton::clicked, this, &GradientEditor::reverse);
  connect(angle_, &Slider::numberChanged, this, [this](double angle) {
    change(QStringLiteral("backdrop.gradient.angle"),
           [angle](BackdropBackground::Gradient& edited) { edited.angle = angle; });
  });
  connect(angle_, &Slider::editingFinished, &state_, &BackdropState::finish);
  connect(&state_, &BackdropState::shown, this, &GradientEditor::refresh);
  refresh();
}

const BackdropBackground::Gradient* GradientEditor::gradient() const {
  return std::get_if<BackdropBackground::Gradient>(&state_.settings().background.value);
}

void GradientEditor::refresh() {
  const auto* shown = gradient();
  setVisible(shown != nullptr && !shown->stops.empty());
  if (shown == nullptr || shown->stops.empty()) return;
  bar_->setStops(shown->stops);
  color_->setColor(toColor(shown->stops[bar_->chosen()].color));
  add_->setEnabled(shown->stops.size() < backdropLimits::gradientStops);
  remove_->setEnabled(shown->stops.size() > fewestStops);
  angle_->setNumber(shown->angle);
  angleValue_->setText(locale().toString(std::lround(shown->angle)) + QStringLiteral("°"));
}

void GradientEditor::change(const QString& key, const std::function<void(BackdropBackground::Gradient&)>& edit) {
  if (gradient() == nullptr || gradient()->stops.empty()) return;
  state_.change(key, [&](BackdropSettings& settings) {
    edit(std::get<BackdropBackground::Gradient>(settings.background.value));
  });
}

void GradientEditor::addStop() {
  const auto& stops = gradient()->stops;
  // Into the widest gap.
  double best = 0.5;
  double widest = 0;
  for (std::size_t i = 1; i < stops.size(); ++i) {
    const double gap = stops[i].position - stops[i - 1].position;
    if (gap <= widest) continue;
    widest = gap;
    best = (stops[i].position + stops[i - 1].position) / 2;
  }
  addStopAt(best);
}

void GradientEditor::addStopAt(double position) {
  if (gradient()->stops.size() >= backdropLimits::gradientStops) return;
  std::size_t added = 0;
  change({}, [&](BackdropBackground::Gradient& edited) {
    const GradientStop stop{position, colorAt(edited.stops, position)};
    const auto place = std::ranges::upper_bound(edited.stops, position, {}, &GradientStop::position);
    added = static_cast<std::size_t>(place - edited.stops.begin());
    edited.stops.insert(place, stop);
  });
  bar_->setChosen(added);
}

void GradientEditor::removeStop() {
  if (gradient()->stops.size() <= fewestStops) return;
  const auto chosen = static_cast<std::ptrdiff_t>(bar_->chosen());
  change({}, [&](BackdropBackground::Gradient& edited) { edited.stops.erase(edited.stops.begin() + chosen); });
}

void GradientEditor::reverse() {
  change({}, [](BackdropBackground::Gradient& edited) {
    std::ranges::reverse(edited.stops);
    for (GradientStop& stop : edited.stops) stop.position = 1 - stop.position;
  });
}

void GradientEditor::chooseColor() {
  const std::size_t chosen = bar_->chosen();
  openColorChooser(
      color_, color_->accessibleName(), gradient()->stops[chosen].color, sampler_,
      [this, chosen](const ColorComponents& color) {
        change(QStringLiteral("backdrop.gradient.color"), [&](BackdropBackground::Gradient& edited) {
          if (chosen < edited.stops.size()) edited.stops[chosen].color = color;
        });
      },
      [this] { state_.finish(); });
}

}  // namespace vellora
