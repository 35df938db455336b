#pragma once

#include "editor/ui/StyleSection.h"

namespace vellora {

class ColorSwatch;
class IconButton;
class SegmentedControl;
class Slider;
class TextLabel;

/// The switches of shapes and texts: hand-drawn, filled, on a ground of its own, in handwriting.
class SwitchSection final : public StyleSection {
  Q_OBJECT

 public:
  SwitchSection(StyleContext& context, QWidget* parent);
  bool refresh(const StyleState& style) override;

 private:
  IconButton* sketch_;  // the children are owned by Qt
  IconButton* fill_;
  IconButton* textGround_;
  IconButton* handwriting_;
};

/// How something is made unreadable: the way, its strength, and the colour it is painted over with.
class BlurSection final : public StyleSection {
  Q_OBJECT

 public:
  BlurSection(StyleContext& context, QWidget* parent);
  bool refresh(const StyleState& style) override;

 private:
  void openFillColor();

  SegmentedControl* ways_;  // the children are owned by Qt
  Slider* strength_;
  ColorSwatch* fill_;
  IconButton* automatic_;
};

/// The shape of a lens and how much it magnifies.
class LensSection final : public StyleSection {
  Q_OBJECT

 public:
  LensSection(StyleContext& context, QWidget* parent);
  bool refresh(const StyleState& style) override;

 private:
  SegmentedControl* shape_;  // the children are owned by Qt
  Slider* zoom_;
  TextLabel* value_;
};

}  // namespace vellora
