#include "app/StatusMenu.h"

#include <QKeySequence>
#include <QPixmap>

#include "kit/Icons.h"
#include "kit/Menu.h"

namespace vellora {
namespace {

using Kind = MenuEntry::Kind;

constexpr int thumbnailWidth = 48;  // points; the picture holds twice as many pixels

/// Whether an action can be made to show `entry` without being replaced.
bool fits(const QAction& action, const MenuEntry& entry) {
  return action.isSeparator() == (entry.kind == Kind::Separator) &&
         (action.menu() != nullptr) == (entry.kind == Kind::Submenu);
}

QAction* addAction(QMenu& menu, const MenuEntry& entry) {
  switch (entry.kind) {
    case Kind::Separator:
      return menu.addSeparator();
    case Kind::Submenu: {
      QMenu* child = menu.addMenu(QString());
      styleMenu(*child);
      return child->menuAction();
    }
    case Kind::Item:
      return menu.addAction(QString());
  }
  return nullptr;
}

QIcon iconOf(const MenuEntry& entry) {
  if (!entry.thumbnailFile.isEmpty()) {
    QPixmap thumbnail(entry.thumbnailFile);
    if (!thumbnail.isNull()) {
      thumbnail.setDevicePixelRatio(thumbnail.width() / static_cast<qreal>(thumbnailWidth));
      return QIcon(thumbnail);
    }
  }
  return entry.iconName.isEmpty() ? QIcon() : icon(entry.iconName);
}

}  // namespace

StatusMenu::StatusMenu(StateReader state, Handler handler) : state_(std::move(state)), handler_(std::move(handler)) {
  styleMenu(menu_);
  QObject::connect(&menu_, &QMenu::aboutToShow, &menu_, [this] { refresh(); });
  refresh();
}

void StatusMenu::refresh() {
  render(menu_, statusMenu(state_()));
}

void StatusMenu::render(QMenu& menu, const std::vector<MenuEntry>& entries) {
  const auto existing = menu.actions();
  std::size_t kept = 0;
  while (kept < entries.size() && kept < static_cast<std::size_t>(existing.size()) &&
         fits(*existing[static_cast<qsizetype>(kept)], entries[kept])) {
    ++kept;
  }
  for (auto i = static_cast<qsizetype>(kept); i < existing.size(); ++i) {
    QMenu* child = existing[i]->menu();
    menu.removeAction(existing[i]);
    if (child) {
      child->deleteLater();
    } else {
      existing[i]->deleteLater();
    }
  }
  for (std::size_t i = kept; i < entries.size(); ++i) addAction(menu, entries[i]);
  const auto actions = menu.actions();
  for (std::size_t i = 0; i < entries.size(); ++i) renderAction(*actions[static_cast<qsizetype>(i)], entries[i]);
}

void StatusMenu::renderAction(QAction& action, const MenuEntry& entry) {
  action.setVisible(entry.isVisible);
  if (entry.kind == Kind::Separator) return;
  action.setText(entry.titleKey.isEmpty() ? QString(entry.title).replace(u'&', QStringLiteral("&&"))
                                          : qtTrId(entry.titleKey.toLatin1().constData()));
  action.setIcon(iconOf(entry));
  action.setIconVisibleInMenu(true);
  action.setEnabled(entry.isEnabled);
  if (entry.kind == Kind::Submenu) {
    render(*action.menu(), entry.children);
    return;
  }
  action.setShortcut(QKeySequence::fromString(entry.shortcut, QKeySequence::PortableText));
  QObject::disconnect(&action, &QAction::triggered, nullptr, nullptr);
  QObject::connect(&action, &QAction::triggered, &menu_,
                   [this, command = entry.command, index = entry.index] { handler_(command, index); });
}

}  // namespace vellora
