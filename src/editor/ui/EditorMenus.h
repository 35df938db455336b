#pragma once

#include <QPoint>

class QMenu;
class QWidget;

namespace vellora {

class CanvasModel;
class CanvasView;
class EditorCommands;

/// The menus of an editor, made when they are opened; each belongs to `parent` and deletes itself once closed.
QMenu* makeMoreMenu(EditorCommands& commands, QWidget* parent);
/// For what is selected, else for the picture.
QMenu* makeContextMenu(EditorCommands& commands, const CanvasModel& model, QWidget* parent);
QMenu* makeZoomMenu(EditorCommands& commands, CanvasView& canvas, QWidget* parent);

/// Opens a menu with its top-right (or -left) corner below the button, or above where there is no room.
void openAt(QMenu* menu, const QWidget& button);

}  // namespace vellora
