#include "editor/ui/pins/PinMenu.h"

#include <array>
#include <cmath>

#include <QMenu>

#include "editor/ui/pins/PinWindow.h"
#include "editor/ui/pins/PinWindowController.h"
#include "kit/Icons.h"
#include "kit/Menu.h"

namespace vellora {
namespace {

constexpr std::array offeredScales{0.25, 0.5, 1.0, 1.5, 2.0, 3.0};
constexpr std::array offeredOpacities{1.0, 0.8, 0.6, 0.4, 0.2};

QString percent(double value) {
  return qtTrId("pin.percent").arg(std::lround(value * 100));
}

QAction* add(QMenu& menu, PinWindowController& pin, const QString& iconName, const QString& text,
             const QString& shortcut, void (PinWindowController::*command)()) {
  auto* const action = menu.addAction(shortcut.isEmpty() ? text : text + u'\t' + shortcut);
  if (!iconName.isEmpty()) action->setIcon(icon(iconName));
  QObject::connect(action, &QAction::triggered, &pin, command);
  return action;
}

void addToggle(QMenu& menu, PinWindowController& pin, const QString& text, bool on, bool possible,
               void (PinWindowController::*command)()) {
  QAction* const action = add(menu, pin, {}, text, {}, command);
  action->setCheckable(true);
  action->setChecked(on && possible);
  action->setEnabled(possible);
}

/// A submenu of percentages of which one is the present one.
template <class Values, class Command>
QMenu* addPercentages(QMenu& menu, PinWindowController& pin, const QString& title, const Values& values, double present,
                      Command command) {
  QMenu* const submenu = menu.addMenu(title);
  for (const double value : values) {
    QAction* const action = submenu->addAction(percent(value));
    action->setCheckable(true);
    action->setChecked(std::abs(value - present) < 0.005);
    QObject::connect(action, &QAction::triggered, &pin, [&pin, value, command] { (pin.*command)(value); });
  }
  return submenu;
}

}  // namespace

std::unique_ptr<QMenu> makePinMenu(PinWindowController& pin) {
  const PinModel& model = pin.model();
  const bool blended = pin.window().isBlended();
  auto menu = std::make_unique<QMenu>(&pin.window());
  add(*menu, pin, QStringLiteral("copy"), qtTrId("pin.copy"), QStringLiteral("Ctrl+C"), &PinWindowController::copy);
  //% "Save"
  add(*menu, pin, QStringLiteral("save"), qtTrId("pin.save"), QStringLiteral("Ctrl+S"), &PinWindowController::save);
  add(*menu, pin, QStringLiteral("editor"), qtTrId("pin.edit"), QStringLiteral("E"), &PinWindowController::edit);
  menu->addSeparator();
  QMenu* const zoom =
      addPercentages(*menu, pin, qtTrId("pin.zoom"), offeredScales, model.scale(), &PinWindowController::setScale);
  const auto bounds = model.scaleBounds();
  for (std::size_t i = 0; i < offeredScales.size(); ++i) {
    zoom->actions()[static_cast<int>(i)]->setEnabled(offeredScales[i] >= bounds.lower &&
                                                     offeredScales[i] <= bounds.upper);
  }
  //% "Opacity"
  addPercentages(*menu, pin, qtTrId("pin.opacity"), offeredOpacities, model.opacity(), &PinWindowController::setOpacity)
      ->setEnabled(blended);
  //% "Shadow"
  addToggle(*menu, pin, qtTrId("pin.shadow"), model.style().shadow, true, &PinWindowController::toggleShadow);
  //% "Rounded Corners"
  addToggle(*menu, pin, qtTrId("pin.roundedCorners"), model.style().roundedCorners, blended,
            &PinWindowController::toggleRoundedCorners);
  //% "Let Clicks Through"
  addToggle(*menu, pin, qtTrId("pin.clickThrough"), model.isClickThrough(), true,
            &PinWindowController::toggleClickThrough);
  menu->addSeparator();
  add(*menu, pin, QStringLiteral("close"), qtTrId("pin.close"), QStringLiteral("Esc"), &PinWindowController::close);
  //% "Close All Pins"
  const QString closeAll = qtTrId("pin.closeAll");
  add(*menu, pin, {}, closeAll, {}, &PinWindowController::closeAll);
  styleMenu(*menu);
  return menu;
}

}  // namespace vellora
