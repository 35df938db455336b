#pragma once

class QMenu;

namespace vellora {

/// Gives a pop-up menu and its submenus the kit's look: call it once, after making the menu. Checked actions that are
/// not in icon menus show a check mark in the icon's place.
void styleMenu(QMenu& menu);

}  // namespace vellora
