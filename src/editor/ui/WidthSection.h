#pragma once

#include "editor/ui/StyleSection.h"

namespace vellora {

class Slider;
class TextLabel;
class WidthButton;

/// Chooses the line width: a slider, and a button that shows the width and opens presets.
class WidthSection final : public StyleSection {
  Q_OBJECT

 public:
  enum class Form {
    Button,      ///< shows the width and opens a panel with everything
    Full,        ///< slider and button
    WithPresets  ///< what the panel holds: slider and presets
  };
  WidthSection(StyleContext& context, Form form, QWidget* parent);

  bool refresh(const StyleState& style) override;

 private:
  void choose(double width);
  void openPanel();

  Slider* slider_ = nullptr;  // the children are owned by Qt; which there are depends on the form
  WidthButton* button_ = nullptr;
  TextLabel* value_ = nullptr;
  QList<WidthButton*> presets_;
};

/// Whether a kind has a line width, or letters that follow it.
bool hasLineWidth(Annotation::Kind kind);
/// The next preset above or below (`direction` 1 or -1) a width.
double nextLineWidth(double width, int direction);

}  // namespace vellora
