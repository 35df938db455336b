#include "app/settings/ShortcutsPage.h"

#include <QHBoxLayout>

#include "app/settings/ShortcutRecorder.h"
#include "kit/Button.h"
#include "kit/SettingsGroup.h"
#include "kit/SettingsRow.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

QString iconOf(HotKeyAction action) {
  switch (action) {
    case HotKeyAction::FullScreen:
      return QStringLiteral("capture.fullscreen");
    case HotKeyAction::Area:
      return QStringLiteral("capture.area");
    case HotKeyAction::Window:
      return QStringLiteral("capture.window");
    case HotKeyAction::Scrolling:
      return QStringLiteral("capture.scrolling");
    case HotKeyAction::Element:
      return QStringLiteral("capture.element");
    case HotKeyAction::Text:
      return QStringLiteral("capture.text");
  }
  return {};
}

}  // namespace

ShortcutsPage::ShortcutsPage(ShortcutsModel& model, QWidget* parent) : RetranslatablePage(parent), model_(model) {
  group_ = addGroup();
  for (std::size_t i = 0; i < entries_.size(); ++i) addEntry(i);
  retranslate();
  model_.setChangeHandler([this] { refresh(); });
}

ShortcutsPage::~ShortcutsPage() {
  model_.setChangeHandler({});
  model_.stopRecording();
}

void ShortcutsPage::addEntry(std::size_t index) {
  Entry& entry = entries_[index];
  const HotKeyAction action = allHotKeyActions[index];
  entry.recorder = new ShortcutRecorder(model_, action, [this, index](const std::optional<QString>& message) {
    entries_[index].conflict = message.value_or(QString());
    refreshNotice(index);
  });
  entry.reset = new IconButton(QStringLiteral("reset"), QString());
  entry.reset->setIconSide(tokens::menuIcon);
  QSizePolicy keepsItsRoom = entry.reset->sizePolicy();
  keepsItsRoom.setRetainSizeWhenHidden(true);
  entry.reset->setSizePolicy(keepsItsRoom);
  connect(entry.reset, &QPushButton::clicked, this, [this, action, recorder = entry.recorder] {
    recorder->setFocus(Qt::OtherFocusReason);  // the button goes away
    model_.reset(action);
  });
  auto* const controls = new QWidget;
  auto* const line = new QHBoxLayout(controls);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(0);
  line->addWidget(entry.reset);
  line->addWidget(entry.recorder);
  entry.row = new SettingsRow(controls);
  entry.row->setIconName(iconOf(action));
  group_->addRow(entry.row);
}

void ShortcutsPage::retranslate() {
  //% "Shortcuts"
  setTitle(qtTrId("settings.shortcuts.title"));
  //% "Global shortcuts"
  group_->setTitle(qtTrId("settings.shortcuts.group"));
  //% "They work in every program. Click a shortcut and press the new combination: "
  //% "with Ctrl, Alt or Super, or a function key alone."
  group_->setInfo(qtTrId("settings.shortcuts.info"));
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const QString title = qtTrId(titleKey(allHotKeyActions[i]));
    entries_[i].row->setTitle(title);
    //% "Back to the default"
    entries_[i].reset->setTitle(qtTrId("shortcut.reset"));
    entries_[i].reset->setAccessibleDescription(title);
    entries_[i].recorder->setAccessibleName(title);
  }
  refresh();
}

void ShortcutsPage::refresh() {
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    entries_[i].recorder->refresh();
    entries_[i].reset->setVisible(model_.row(allHotKeyActions[i]).customised);
    refreshNotice(i);
  }
}

void ShortcutsPage::refreshNotice(std::size_t index) {
  const Entry& entry = entries_[index];
  const ShortcutsModel::Row row = model_.row(allHotKeyActions[index]);
  QString notice = entry.conflict;
  if (notice.isEmpty() && row.fault == ShortcutsModel::Fault::SharedWithAction) {
    notice =
        qtTrId("settings.shortcuts.conflict").arg(writtenShortcut(*row.binding), qtTrId(titleKey(*row.sharedWith)));
  } else if (notice.isEmpty() && row.fault == ShortcutsModel::Fault::HeldElsewhere) {
    //% "Another program holds %1. Choose another combination, or free it there."
    notice = qtTrId("settings.shortcuts.heldElsewhere").arg(writtenShortcut(*row.binding));
  }
  if (notice.isEmpty() && row.needsFn) {
    //% "If the F-keys of this keyboard do something else, hold Fn as well."
    entry.row->setHint(qtTrId("settings.shortcuts.fnHint"));
  } else {
    entry.row->setNotice(notice);
  }
  entry.recorder->setAccessibleDescription(notice);
}

ShortcutRecorder* ShortcutsPage::recorder(HotKeyAction action) const {
  return entries_[static_cast<std::size_t>(action)].recorder;
}

SettingsRow* ShortcutsPage::row(HotKeyAction action) const {
  return entries_[static_cast<std::size_t>(action)].row;
}

}  // namespace vellora
