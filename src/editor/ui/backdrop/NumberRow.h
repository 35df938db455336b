#pragma once

#include <functional>

#include <QWidget>

namespace vellora {

class BackdropState;
class Slider;
class TextLabel;
struct BackdropSettings;

/// One number of the backdrop: its name, its value and a slider.
class NumberRow final : public QWidget {
  Q_OBJECT

 public:
  struct Number {
    QString title;
    QString key;  ///< of a run of changes
    double minimum = 0;
    double maximum = 1;
    double step = 0.01;
    QString unit;  ///< after the number; for "%" parts of one are shown in hundredths
    double& (*field)(BackdropSettings& settings);
  };

  NumberRow(BackdropState& state, const Number& number, QWidget* parent = nullptr);

  Slider& slider() { return *slider_; }

 private:
  void refresh();

  BackdropState& state_;
  Number number_;
  TextLabel* value_;  // the children are owned by Qt
  Slider* slider_;
};

}  // namespace vellora
