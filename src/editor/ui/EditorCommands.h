#pragma once

#include <array>
#include <functional>
#include <vector>

#include <QAction>
#include <QObject>

#include "editor/Tool.h"

class QWidget;

namespace vellora {

/// Everything a person can ask of an editor window.
enum class EditorCommand {
  SelectTool,
  ArrowTool,
  RectangleTool,
  EllipseTool,
  LineTool,
  PenTool,
  TextTool,
  CounterTool,
  BlurTool,
  MagnifierTool,
  Crop,
  Thinner,
  Thicker,
  ToggleSketch,
  ToggleFill,
  NextBlurStyle,
  PickColor,
  Undo,
  Redo,
  Cut,
  Copy,
  Paste,
  Duplicate,
  Delete,
  SelectAll,
  BringForward,
  SendBackward,
  BringToFront,
  SendToBack,
  AlignLeft,
  AlignCenter,
  AlignRight,
  AlignTop,
  AlignMiddle,
  AlignBottom,
  DistributeHorizontally,
  DistributeVertically,
  ResetCrop,
  AddCapture,
  AddPicture,
  Backdrop,
  CopyPicture,
  Save,
  SaveAs,
  Print,
  Compress,
  Pin,
  Close,
  ZoomIn,
  ZoomOut,
  ZoomToFit,
  ActualSize,
  NextPart,
  More,
  Shortcuts,
};

inline constexpr int editorCommandCount = static_cast<int>(EditorCommand::Shortcuts) + 1;

/// How commands are grouped where they are listed.
enum class EditorCommandGroup { Tools, Style, Edit, Arrange, Picture, View };

/// The commands of one editor window as actions with their names, icons and keys: buttons, menus and the list of keys
/// all show the same ones. Belongs to the window.
class EditorCommands final : public QObject {
  Q_OBJECT

 public:
  /// The keys work while `window` is active.
  explicit EditorCommands(QWidget& window);

  QAction& operator[](EditorCommand command) const { return *actions_[static_cast<std::size_t>(command)]; }
  /// What to do when a command is given.
  void on(EditorCommand command, std::function<void()> run);
  /// The commands of a group that are offered here, in the order they are listed.
  std::vector<EditorCommand> group(EditorCommandGroup group) const;
  /// The key of a command for people, "Ctrl+S"; empty for none.
  QString keyText(EditorCommand command) const;

 private:
  std::array<QAction*, editorCommandCount> actions_{};  // owned by this as children
};

/// The command that takes a tool.
EditorCommand commandOf(Tool tool);
/// The name of a group.
QString groupTitle(EditorCommandGroup group);
/// The name of an icon that shows a command; empty for none.
QString iconName(EditorCommand command);

}  // namespace vellora
