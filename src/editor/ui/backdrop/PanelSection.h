#pragma once

#include <QWidget>

class QVBoxLayout;

namespace vellora {

/// A part of the panel: a quiet heading and what belongs to it, with a line above.
class PanelSection : public QWidget {
  Q_OBJECT

 public:
  explicit PanelSection(const QString& title, QWidget* parent = nullptr);

  /// Below the last thing, with a little more room when `apart`.
  void add(QWidget* widget, bool apart = false);
  /// A smaller heading inside the section.
  void addCaption(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QVBoxLayout* column_;
};

/// The width of the bar that scrolls the sections.
inline constexpr int panelScrollBarWidth = 10;

}  // namespace vellora
