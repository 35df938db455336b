#pragma once

#include <optional>
#include <vector>

#include "editor/ui/StyleSection.h"

namespace vellora {

class ColorSwatch;

/// The palette's swatches, the person's own colours and a place to add one.
class ColorSection final : public StyleSection {
  Q_OBJECT

 public:
  ColorSection(StyleContext& context, QWidget* parent);

  bool refresh(const StyleState& style) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void addSwatch(const ColorComponents& color, const QString& title, const QString& key);
  void layOutCustomColors();
  void addCustomColor();
  void openPicker(std::size_t customIndex, QWidget* owner);
  void openMenu(std::size_t customIndex, const QPoint& at);

  std::vector<ColorSwatch*> palette_;  // the children are owned by Qt
  std::vector<ColorSwatch*> custom_;
  ColorSwatch* add_ = nullptr;
  std::optional<ColorComponents> current_;
};

/// Opens a colour chooser at `owner`. `changed` is called with every movement, `settled` when a run of them is over;
/// with the eyedropper the chooser closes and a colour may follow later.
void openColorPopover(StyleContext& context, QWidget* owner, const ColorComponents& color,
                      std::function<void(const ColorComponents&)> changed, std::function<void()> settled,
                      std::function<void()> removed = nullptr);

/// Whether a kind is drawn in the chosen colour.
bool hasColor(Annotation::Kind kind);

}  // namespace vellora
