#pragma once

#include "editor/ui/EditorCommands.h"

class QWidget;

namespace vellora {

class IconButton;

/// A bar's button that gives a command and follows its state; owned by `parent`. A click leaves the focus where it is;
/// Tab and the arrow keys reach it.
IconButton* makeCommandButton(EditorCommands& commands, EditorCommand command, QWidget* parent);

}  // namespace vellora
