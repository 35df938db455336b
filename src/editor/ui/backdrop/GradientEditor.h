#pragma once

#include <functional>

#include <QWidget>

#include "editor/BackdropSettings.h"
#include "editor/ui/backdrop/ColorPopover.h"

namespace vellora {

class BackdropState;
class ColorSwatch;
class GradientBar;
class IconButton;
class Slider;
class TextLabel;

/// Edits the gradient of a backdrop: its stops and its angle.
class GradientEditor final : public QWidget {
  Q_OBJECT

 public:
  GradientEditor(BackdropState& state, const ColorSampler& sampler, QWidget* parent = nullptr);

 private:
  void refresh();
  const BackdropBackground::Gradient* gradient() const;
  void change(const QString& key, const std::function<void(BackdropBackground::Gradient&)>& edit);
  void addStop();
  void addStopAt(double position);
  void removeStop();
  void reverse();
  void chooseColor();

  BackdropState& state_;
  const ColorSampler& sampler_;
  GradientBar* bar_;  // the children are owned by Qt
  ColorSwatch* color_;
  IconButton* add_;
  IconButton* remove_;
  Slider* angle_;
  TextLabel* angleValue_;
};

}  // namespace vellora
