#pragma once

#include <functional>
#include <memory>

#include <QMenu>

#include "app/StatusMenuModel.h"

namespace vellora {

/// The menu of the tray icon: shows what statusMenu() gives and passes on what is chosen. It asks for the state anew
/// each time it is about to show, and keeps its own lines over that, so that a desktop that mirrors the menu sees few
/// changes.
class StatusMenu final {
 public:
  using StateReader = std::function<MenuState()>;
  using Handler = std::function<void(Command, int index)>;

  StatusMenu(StateReader state, Handler handler);

  QMenu* menu() { return &menu_; }

  /// Reads the state and shows it; also after a change of language or hot keys.
  void refresh();

 private:
  void render(QMenu& menu, const std::vector<MenuEntry>& entries);
  void renderAction(QAction& action, const MenuEntry& entry);

  StateReader state_;
  Handler handler_;
  QMenu menu_;
};

}  // namespace vellora
