#pragma once

#include <functional>

#include <QWidget>

#include "app/StatusMenuModel.h"

class QVBoxLayout;

namespace vellora {

/// A small window with the commands of the menu, for desktops without a tray and for whoever starts the program again.
/// Escape and Ctrl+W close it.
class LauncherWindow final : public QWidget {
  Q_OBJECT

 public:
  using StateReader = std::function<MenuState()>;
  using Handler = std::function<void(Command, int index)>;

  LauncherWindow(StateReader state, Handler handler);

  /// Shows it in front, with the state of this moment.
  void present();
  /// Reads the state anew.
  void refresh();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void addEntry(const MenuEntry& entry);
  void perform(Command command, int index);

  StateReader state_;
  Handler handler_;
  QVBoxLayout* rows_;  // owned by the layout
};

}  // namespace vellora
