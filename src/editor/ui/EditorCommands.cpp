#include "editor/ui/EditorCommands.h"

#include <QWidget>

#include "kit/Icons.h"

namespace vellora {
namespace {

using Command = EditorCommand;
using Group = EditorCommandGroup;

struct Entry {
  Command command;
  Group group;
  const char* title;
  const char* icon;
  const char* keys;  ///< alternatives separated by spaces; the first is the one shown
};

constexpr Entry entries[] = {
    //% "Select"
    {Command::SelectTool, Group::Tools, QT_TRID_NOOP("tool.select"), "tool.select", "V"},
    //% "Arrow"
    {Command::ArrowTool, Group::Tools, QT_TRID_NOOP("tool.arrow"), "tool.arrow", "A"},
    //% "Rectangle"
    {Command::RectangleTool, Group::Tools, QT_TRID_NOOP("tool.rectangle"), "tool.rectangle", "R"},
    //% "Ellipse"
    {Command::EllipseTool, Group::Tools, QT_TRID_NOOP("tool.ellipse"), "tool.ellipse", "E"},
    //% "Line"
    {Command::LineTool, Group::Tools, QT_TRID_NOOP("tool.line"), "tool.line", "L"},
    //% "Pen"
    {Command::PenTool, Group::Tools, QT_TRID_NOOP("tool.pen"), "tool.pen", "P"},
    //% "Text"
    {Command::TextTool, Group::Tools, QT_TRID_NOOP("tool.text"), "tool.text", "T"},
    //% "Counter"
    {Command::CounterTool, Group::Tools, QT_TRID_NOOP("tool.counter"), "tool.counter", "N"},
    //% "Pixelate"
    {Command::BlurTool, Group::Tools, QT_TRID_NOOP("tool.pixelate"), "tool.blur", "B"},
    //% "Magnifier"
    {Command::MagnifierTool, Group::Tools, QT_TRID_NOOP("tool.magnifier"), "tool.magnifier", "M"},
    //% "Crop"
    {Command::Crop, Group::Tools, QT_TRID_NOOP("editor.crop"), "tool.crop", "C"},
    //% "Thinner"
    {Command::Thinner, Group::Style, QT_TRID_NOOP("editor.thinner"), "", "["},
    //% "Thicker"
    {Command::Thicker, Group::Style, QT_TRID_NOOP("editor.thicker"), "", "]"},
    //% "Hand-Drawn"
    {Command::ToggleSketch, Group::Style, QT_TRID_NOOP("editor.sketch"), "style.sketch", "S"},
    //% "Fill"
    {Command::ToggleFill, Group::Style, QT_TRID_NOOP("editor.fill"), "style.fill", "F"},
    //% "Next Way to Pixelate"
    {Command::NextBlurStyle, Group::Style, QT_TRID_NOOP("editor.nextBlurStyle"), "", "Shift+B"},
    //% "Pick Color from Screen"
    {Command::PickColor, Group::Style, QT_TRID_NOOP("editor.pickColor"), "eyedropper", "I"},
    //% "Undo"
    {Command::Undo, Group::Edit, QT_TRID_NOOP("editor.undo"), "edit.undo", "Ctrl+Z"},
    //% "Redo"
    {Command::Redo, Group::Edit, QT_TRID_NOOP("editor.redo"), "edit.redo", "Ctrl+Shift+Z Ctrl+Y"},
    //% "Cut"
    {Command::Cut, Group::Edit, QT_TRID_NOOP("editor.cut"), "edit.cut", "Ctrl+X"},
    //% "Copy"
    {Command::Copy, Group::Edit, QT_TRID_NOOP("editor.copy"), "copy", "Ctrl+C Ctrl+Ins"},
    //% "Paste"
    {Command::Paste, Group::Edit, QT_TRID_NOOP("editor.paste"), "clipboard", "Ctrl+V Shift+Ins"},
    //% "Duplicate"
    {Command::Duplicate, Group::Edit, QT_TRID_NOOP("editor.duplicate"), "edit.duplicate", "Ctrl+D"},
    //% "Delete"
    {Command::Delete, Group::Edit, QT_TRID_NOOP("editor.delete"), "trash", "Del Backspace"},
    //% "Select All"
    {Command::SelectAll, Group::Edit, QT_TRID_NOOP("editor.selectAll"), "", "Ctrl+A"},
    //% "Bring Forward"
    {Command::BringForward, Group::Arrange, QT_TRID_NOOP("editor.bringForward"), "", "Ctrl+]"},
    //% "Send Backward"
    {Command::SendBackward, Group::Arrange, QT_TRID_NOOP("editor.sendBackward"), "", "Ctrl+["},
    //% "Bring to Front"
    {Command::BringToFront, Group::Arrange, QT_TRID_NOOP("editor.bringToFront"), "arrange.front",
     "Ctrl+Shift+] Ctrl+}"},
    //% "Send to Back"
    {Command::SendToBack, Group::Arrange, QT_TRID_NOOP("editor.sendToBack"), "arrange.back", "Ctrl+Shift+[ Ctrl+{"},
    //% "Align Left Edges"
    {Command::AlignLeft, Group::Arrange, QT_TRID_NOOP("editor.alignLeft"), "arrange.left", "Ctrl+Alt+Left"},
    //% "Align Centers Horizontally"
    {Command::AlignCenter, Group::Arrange, QT_TRID_NOOP("editor.alignCenter"), "arrange.center.horizontal",
     "Ctrl+Alt+H"},
    //% "Align Right Edges"
    {Command::AlignRight, Group::Arrange, QT_TRID_NOOP("editor.alignRight"), "arrange.right", "Ctrl+Alt+Right"},
    //% "Align Top Edges"
    {Command::AlignTop, Group::Arrange, QT_TRID_NOOP("editor.alignTop"), "arrange.top", "Ctrl+Alt+Up"},
    //% "Align Centers Vertically"
    {Command::AlignMiddle, Group::Arrange, QT_TRID_NOOP("editor.alignMiddle"), "arrange.center.vertical", "Ctrl+Alt+V"},
    //% "Align Bottom Edges"
    {Command::AlignBottom, Group::Arrange, QT_TRID_NOOP("editor.alignBottom"), "arrange.bottom", "Ctrl+Alt+Down"},
    //% "Distribute Horizontally"
    {Command::DistributeHorizontally, Group::Arrange, QT_TRID_NOOP("editor.distributeHorizontally"),
     "arrange.distribute.horizontal", "Ctrl+Alt+Shift+H"},
    //% "Distribute Vertically"
    {Command::DistributeVertically, Group::Arrange, QT_TRID_NOOP("editor.distributeVertically"),
     "arrange.distribute.vertical", "Ctrl+Alt+Shift+V"},
    //% "Reset Crop"
    {Command::ResetCrop, Group::Arrange, QT_TRID_NOOP("editor.resetCrop"), "reset", "Shift+C"},
    //% "Add Capture"
    {Command::AddCapture, Group::Picture, QT_TRID_NOOP("editor.addCapture"), "capture.area", "Ctrl+N"},
    //% "Add Picture…"
    {Command::AddPicture, Group::Picture, QT_TRID_NOOP("editor.addPicture"), "piece.add", "Ctrl+O"},
    //% "Backdrop"
    {Command::Backdrop, Group::Picture, QT_TRID_NOOP("editor.backdrop"), "backdrop", "G"},
    //% "Copy Picture"
    {Command::CopyPicture, Group::Picture, QT_TRID_NOOP("editor.copyPicture"), "copy", "Ctrl+Shift+C"},
    //% "Save"
    {Command::Save, Group::Picture, QT_TRID_NOOP("editor.save"), "save", "Ctrl+S"},
    //% "Save As…"
    {Command::SaveAs, Group::Picture, QT_TRID_NOOP("editor.saveAs"), "save.as", "Ctrl+Shift+S"},
    //% "Print…"
    {Command::Print, Group::Picture, QT_TRID_NOOP("editor.print"), "print", "Ctrl+P"},
    //% "Compress…"
    {Command::Compress, Group::Picture, QT_TRID_NOOP("editor.compress"), "compress", ""},
    //% "Pin to Screen"
    {Command::Pin, Group::Picture, QT_TRID_NOOP("editor.pin"), "pin", "Ctrl+T"},
    //% "Close"
    {Command::Close, Group::Picture, QT_TRID_NOOP("editor.close"), "close", "Ctrl+W"},
    //% "Zoom In"
    {Command::ZoomIn, Group::View, QT_TRID_NOOP("editor.zoomIn"), "", "Ctrl++ Ctrl+="},
    //% "Zoom Out"
    {Command::ZoomOut, Group::View, QT_TRID_NOOP("editor.zoomOut"), "", "Ctrl+-"},
    //% "Fit to Window"
    {Command::ZoomToFit, Group::View, QT_TRID_NOOP("editor.zoomToFit"), "", "Ctrl+0"},
    //% "Actual Size"
    {Command::ActualSize, Group::View, QT_TRID_NOOP("editor.actualSize"), "", "Ctrl+1"},
    //% "Next Part of the Window"
    {Command::NextPart, Group::View, QT_TRID_NOOP("editor.nextPart"), "", "F6"},
    //% "More"
    {Command::More, Group::View, QT_TRID_NOOP("editor.more"), "capture.more", "F10"},
    //% "Keyboard Shortcuts"
    {Command::Shortcuts, Group::View, QT_TRID_NOOP("editor.shortcuts"), "keyboard", "? F1"},
};
static_assert(std::size(entries) == editorCommandCount);

const Entry& entryOf(Command command) {
  return entries[static_cast<std::size_t>(command)];
}

QList<QKeySequence> keysOf(const Entry& entry) {
  QList<QKeySequence> keys;
  for (const QString& text : QString::fromLatin1(entry.keys).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    keys << QKeySequence(text);
  }
  return keys;
}

}  // namespace

EditorCommands::EditorCommands(QWidget& window) : QObject(&window) {
  for (const Entry& entry : entries) {
    auto* action = new QAction(this);
    action->setText(qtTrId(entry.title));
    action->setShortcuts(keysOf(entry));
    action->setAutoRepeat(entry.command == Command::Undo || entry.command == Command::Redo ||
                          entry.command == Command::Thinner || entry.command == Command::Thicker ||
                          entry.command == Command::ZoomIn || entry.command == Command::ZoomOut);
    if (*entry.icon != '\0') action->setIcon(icon(QLatin1StringView(entry.icon)));
    actions_[static_cast<std::size_t>(entry.command)] = action;
    window.addAction(action);
  }
}

void EditorCommands::on(EditorCommand command, std::function<void()> run) {
  connect(&(*this)[command], &QAction::triggered, this, [run = std::move(run)] { run(); });
}

std::vector<EditorCommand> EditorCommands::group(EditorCommandGroup group) const {
  std::vector<EditorCommand> commands;
  for (const Entry& entry : entries) {
    if (entry.group == group && (*this)[entry.command].isVisible()) commands.push_back(entry.command);
  }
  return commands;
}

QString EditorCommands::keyText(EditorCommand command) const {
  return (*this)[command].shortcut().toString(QKeySequence::NativeText);
}

EditorCommand commandOf(Tool tool) {
  switch (tool) {
    case Tool::Select:
      return Command::SelectTool;
    case Tool::Arrow:
      return Command::ArrowTool;
    case Tool::Box:
      return Command::RectangleTool;
    case Tool::Ellipse:
      return Command::EllipseTool;
    case Tool::Line:
      return Command::LineTool;
    case Tool::Text:
      return Command::TextTool;
    case Tool::Blur:
      return Command::BlurTool;
    case Tool::Counter:
      return Command::CounterTool;
    case Tool::Magnifier:
      return Command::MagnifierTool;
    case Tool::Pen:
      return Command::PenTool;
  }
  return Command::SelectTool;
}

QString groupTitle(EditorCommandGroup group) {
  switch (group) {
    case Group::Tools:
      //% "Tools"
      return qtTrId("editor.group.tools");
    case Group::Style:
      //% "Style"
      return qtTrId("editor.group.style");
    case Group::Edit:
      //% "Edit"
      return qtTrId("editor.group.edit");
    case Group::Arrange:
      //% "Arrange"
      return qtTrId("editor.group.arrange");
    case Group::Picture:
      //% "Picture"
      return qtTrId("editor.group.picture");
    case Group::View:
      //% "View"
      return qtTrId("editor.group.view");
  }
  return {};
}

QString iconName(EditorCommand command) {
  return QLatin1StringView(entryOf(command).icon);
}

}  // namespace vellora
