#pragma once

#include <QWidget>

class QVBoxLayout;

namespace vellora {

/// A part of the panel: a quiet heading and what belongs to it, with a line above.
class PanelSection : public QWidget {
  Q_OBJECT

 public:
  explicit PanelSection(const QString& title, QWidget* parent = nullptr);

  void add(QWidget* widget);
  /// A smaller heading inside the section.
  void addCaption(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QVBoxLayout* column_;
};

/// What tiles and pads leave around themselves for their rings; it stands out into the margin.
inline constexpr int tileOverhang = 4;
/// The width of the bar that scrolls the sections.
inline constexpr int scrollBarWidth = 10;

}  // namespace vellora
