#include "editor/ui/CommandButton.h"

#include "kit/Button.h"

namespace vellora {

namespace {
constexpr int barIconSide = 18;
}

IconButton* makeCommandButton(EditorCommands& commands, EditorCommand command, QWidget* parent) {
  QAction& action = commands[command];
  auto* button = new IconButton(iconName(command), action.text(), commands.keyText(command), parent);
  button->setIconSide(barIconSide);
  button->setFocusPolicy(Qt::TabFocus);
  const auto follow = [button, &action] {
    button->setEnabled(action.isEnabled());
    button->setCheckable(action.isCheckable());
    button->setChecked(action.isChecked());
  };
  follow();
  QObject::connect(&action, &QAction::changed, button, follow);
  QObject::connect(button, &IconButton::clicked, &action, [button, &action, follow] {
    action.trigger();
    follow();
  });
  return button;
}

}  // namespace vellora
