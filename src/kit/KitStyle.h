#pragma once

class QLabel;
class QStyle;

namespace vellora {

/// The style of the two standard windows the kit keeps: pop-up menus and tool tips. It belongs to the application
/// object.
QStyle* kitStyle();

/// Gives a tool tip's label the kit's look, before it is sized.
void styleToolTip(QLabel& tip);

}  // namespace vellora
