#include "kit/Menu.h"

#include <QMenu>

#include "kit/Compositing.h"
#include "kit/KitStyle.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {

void styleMenu(QMenu& menu) {
  menu.setStyle(kitStyle());
  menu.setFont(bodyFont());
  menu.setWindowFlag(Qt::FramelessWindowHint);
  menu.setWindowFlag(Qt::NoDropShadowWindowHint);
  menu.setAttribute(Qt::WA_TranslucentBackground, isComposited(menu.screen()));
  followTheme(menu);
  for (QMenu* const submenu : menu.findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) styleMenu(*submenu);
}

}  // namespace vellora
