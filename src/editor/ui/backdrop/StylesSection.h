#pragma once

#include <functional>

#include "editor/ui/backdrop/PanelSection.h"

class QGridLayout;

namespace vellora {

class BackdropState;
class BackdropStyles;
class Button;

/// The person's saved backdrops: a click applies one; its menu renames, renews and deletes it.
class StylesSection final : public PanelSection {
  Q_OBJECT

 public:
  StylesSection(BackdropState& state, BackdropStyles& styles, QWidget* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void rebuild();
  void refresh();
  void openMenu(QWidget& tile, const QPoint& place);
  /// Asks for a name beside `owner`.
  void askName(QWidget* owner, const QString& title, const QString& name, std::function<void(const QString&)> named);
  void remove(std::size_t index);
  std::size_t indexOf(const QObject* tile) const;

  BackdropState& state_;
  BackdropStyles& styles_;
  QWidget* shelf_;  // the children are owned by Qt
  QGridLayout* grid_;
  QList<QWidget*> tiles_;
  Button* save_;
};

}  // namespace vellora
