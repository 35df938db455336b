#pragma once

#include <functional>

#include <QColor>
#include <QWidget>

#include "base/Color.h"
#include "editor/canvas/CanvasModel.h"

namespace vellora {

class CustomColors;
class EditorCommands;

/// What the style controls work on; belongs to the window and outlives them.
struct StyleContext {
  CanvasModel& model;
  CustomColors& customColors;
  EditorCommands& commands;
  /// Lets the person pick a colour from the screen.
  std::function<void(std::function<void(ColorComponents)>)> pickColor;
  /// Shows the style anew everywhere: the custom colours changed.
  std::function<void()> refresh;
};

/// A few controls of the style that belong together. The same ones stand in the bar and in the popovers a narrow bar
/// folds them into.
class StyleSection : public QWidget {
  Q_OBJECT

 public:
  StyleSection(StyleContext& context, QWidget* parent) : QWidget(parent), context_(context) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  }

  /// Shows a style; false when it has nothing to do with what is selected.
  virtual bool refresh(const StyleState& style) = 0;

 protected:
  StyleContext& context() const { return context_; }
  CanvasModel& model() const { return context_.model; }

 private:
  StyleContext& context_;
};

inline QColor toQColor(const ColorComponents& color) {
  return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                          static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

inline ColorComponents toComponents(const QColor& color) {
  return {color.redF(), color.greenF(), color.blueF(), color.alphaF()};
}

/// Whether two colours are the same to the eye: equal as 8-bit colours.
inline bool isSameColor(const ColorComponents& a, const ColorComponents& b) {
  return toQColor(a).rgba() == toQColor(b).rgba();
}

}  // namespace vellora
