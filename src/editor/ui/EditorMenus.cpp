#include "editor/ui/EditorMenus.h"

#include <array>
#include <cmath>

#include <QMenu>
#include <QScreen>

#include "editor/canvas/CanvasModel.h"
#include "editor/ui/EditorCommands.h"
#include "editor/ui/canvas/CanvasView.h"
#include "kit/Menu.h"

namespace vellora {
namespace {

using Command = EditorCommand;

constexpr std::array zoomSteps{0.25, 0.5, 0.75, 1.0, 1.5, 2.0, 4.0, 8.0};

QMenu* newMenu(QWidget* parent) {
  auto* menu = new QMenu(parent);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  return menu;
}

void add(QMenu& menu, EditorCommands& commands, std::initializer_list<Command> list) {
  for (const Command command : list) menu.addAction(&commands[command]);
}

void addArrange(QMenu& menu, EditorCommands& commands) {
  auto* order = menu.addMenu(commands[Command::BringToFront].icon(),
                             //% "Order"
                             qtTrId("editor.menu.order"));
  add(*order, commands, {Command::BringToFront, Command::BringForward, Command::SendBackward, Command::SendToBack});
  order->setEnabled(commands[Command::BringToFront].isEnabled());
  auto* align = menu.addMenu(commands[Command::AlignLeft].icon(),
                             //% "Align"
                             qtTrId("editor.menu.align"));
  add(*align, commands, {Command::AlignLeft, Command::AlignCenter, Command::AlignRight});
  align->addSeparator();
  add(*align, commands, {Command::AlignTop, Command::AlignMiddle, Command::AlignBottom});
  align->addSeparator();
  add(*align, commands, {Command::DistributeHorizontally, Command::DistributeVertically});
  align->setEnabled(commands[Command::AlignLeft].isEnabled());
}

}  // namespace

QMenu* makeMoreMenu(EditorCommands& commands, QWidget* parent) {
  QMenu* menu = newMenu(parent);
  add(*menu, commands, {Command::AddCapture, Command::AddPicture});
  menu->addSeparator();
  add(*menu, commands, {Command::Crop, Command::ResetCrop, Command::Backdrop});
  addArrange(*menu, commands);
  menu->addSeparator();
  add(*menu, commands,
      {Command::CopyPicture, Command::Save, Command::SaveAs, Command::Pin, Command::Print, Command::Compress});
  menu->addSeparator();
  add(*menu, commands, {Command::Shortcuts, Command::Close});
  styleMenu(*menu);
  return menu;
}

QMenu* makeContextMenu(EditorCommands& commands, const CanvasModel& model, QWidget* parent) {
  QMenu* menu = newMenu(parent);
  if (!model.selection().empty()) {
    add(*menu, commands, {Command::Cut, Command::Copy, Command::Paste, Command::Duplicate, Command::Delete});
    menu->addSeparator();
    addArrange(*menu, commands);
  } else {
    add(*menu, commands, {Command::CopyPicture, Command::Paste, Command::SelectAll});
    if (commands[Command::Delete].isEnabled()) add(*menu, commands, {Command::Delete});
    menu->addSeparator();
    add(*menu, commands, {Command::Crop, Command::ResetCrop, Command::AddCapture, Command::AddPicture});
    menu->addSeparator();
    add(*menu, commands, {Command::ZoomToFit, Command::ActualSize});
  }
  styleMenu(*menu);
  return menu;
}

QMenu* makeZoomMenu(EditorCommands& commands, CanvasView& canvas, QWidget* parent) {
  QMenu* menu = newMenu(parent);
  for (const double step : zoomSteps) {
    QAction* action = menu->addAction(qtTrId("editor.zoomPercent").arg(std::lround(step * 100)));
    action->setCheckable(true);
    action->setChecked(std::abs(canvas.zoom() - step) < 0.001);
    QObject::connect(action, &QAction::triggered, &canvas,
                     [&canvas, step] { canvas.setZoom(step, QRectF(canvas.rect()).center()); });
  }
  menu->addSeparator();
  add(*menu, commands, {Command::ZoomIn, Command::ZoomOut, Command::ZoomToFit, Command::ActualSize});
  styleMenu(*menu);
  return menu;
}

void openAt(QMenu* menu, const QWidget& button) {
  const QSize size = menu->sizeHint();
  const QRect anchor(button.mapToGlobal(QPoint(0, 0)), button.size());
  const int x = anchor.right() + 1 - size.width();
  const bool below = anchor.bottom() + size.height() < button.screen()->availableGeometry().bottom();
  menu->popup({x, below ? anchor.bottom() + 1 : anchor.top() - size.height()});
}

}  // namespace vellora
