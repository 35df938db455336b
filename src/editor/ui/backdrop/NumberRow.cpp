#include "editor/ui/backdrop/NumberRow.h"

#include <cmath>

#include <QGridLayout>
#include <QLocale>

#include "editor/ui/backdrop/BackdropState.h"
#include "kit/Slider.h"
#include "kit/TextLabel.h"
#include "kit/Tokens.h"

namespace vellora {

NumberRow::NumberRow(BackdropState& state, const Number& number, QWidget* parent)
    : QWidget(parent),
      state_(state),
      number_(number),
      value_(new TextLabel(TextLabel::Role::Secondary, {}, this)),
      slider_(new Slider(this)) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(0);
  auto* title = new TextLabel(TextLabel::Role::Body, number.title, this);
  grid->addWidget(title, 0, 0);
  value_->setFont(tabularFont(secondaryFont()));
  value_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  grid->addWidget(value_, 0, 1);
  // The knob's room stands out, so that the track lines up with the texts.
  grid->addWidget(slider_, 1, 0, 1, 2);
  BackdropSettings defaults;
  slider_->setScale(number.minimum, number.maximum, number.step);
  slider_->setDefaultNumber(number.field(defaults));
  slider_->setAccessibleName(number.title);
  connect(slider_, &Slider::numberChanged, this, [this](double chosen) {
    state_.change(number_.key, [&](BackdropSettings& settings) { number_.field(settings) = chosen; });
  });
  connect(slider_, &Slider::editingFinished, &state_, &BackdropState::finish);
  connect(&state_, &BackdropState::shown, this, &NumberRow::refresh);
  refresh();
}

void NumberRow::refresh() {
  BackdropSettings settings = state_.settings();
  const double number = number_.field(settings);
  slider_->setNumber(number);
  const bool percent = number_.unit == QLatin1String("%");
  const double shown = percent ? number * 100 : number;
  const int digits = std::abs(shown - std::round(shown)) < 0.05 ? 0 : 1;
  const QString text = locale().toString(shown, 'f', digits);
  value_->setText(number_.unit.isEmpty()                           ? text
                  : percent || number_.unit == QStringLiteral("°") ? text + number_.unit
                                                                   : QStringLiteral("%1 %2").arg(text, number_.unit));
  slider_->setToolTip(QStringLiteral("%1: %2").arg(number_.title, value_->text()));
}

}  // namespace vellora
