#pragma once

#include <QWidget>

#include "editor/BackdropSettings.h"
#include "editor/ui/backdrop/ColorPopover.h"

class QScrollArea;

namespace vellora {

class BackdropState;
class BackdropStyles;
class IconButton;
class Switch;

/// The panel beside the canvas in which a document's backdrop is made. It shows settings and tells what the person
/// makes of them; whoever owns it applies them and shows the result again. Scrolls when it is too high.
class BackdropPanel final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int panelWidth = 280;

  /// `styles` outlives the panel.
  explicit BackdropPanel(BackdropStyles& styles, QWidget* parent = nullptr);
  ~BackdropPanel() override;

  /// Shows `settings`; emits nothing.
  void setSettings(const BackdropSettings& settings);
  /// How the eyedropper takes a colour of the screen.
  void setColorSampler(ColorSampler sampler) { sampler_ = std::move(sampler); }

  QSize sizeHint() const override { return {panelWidth, 640}; }
  QSize minimumSizeHint() const override { return {panelWidth, 200}; }

 signals:
  /// The person changed something. Changes that follow each other with the same non-empty key are one step, until
  /// editingFinished().
  void changed(const vellora::BackdropSettings& settings, const QString& coalescingKey);
  void editingFinished();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QWidget* makeHeader();
  QWidget* makeLayoutSection();
  QWidget* makeFrameSection();
  QWidget* makePlacementSection();
  QWidget* makeEffectsSection();

  BackdropStyles& styles_;
  ColorSampler sampler_;
  BackdropState* state_;  // the children are owned by Qt
  QScrollArea* scroll_;
};

}  // namespace vellora
