#include "app/settings/GeneralPage.h"

#include <QApplication>
#include <QFileDialog>
#include <QHBoxLayout>

#include "app/settings/SettingsTexts.h"
#include "kit/Button.h"
#include "kit/MenuButton.h"
#include "kit/SettingsGroup.h"
#include "kit/SettingsRow.h"
#include "kit/Switch.h"
#include "kit/Theme.h"
#include "kit/Toast.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

QString iconOf(AfterCaptureAction action) {
  switch (action) {
    case AfterCaptureAction::ShowEditor:
      return QStringLiteral("editor");
    case AfterCaptureAction::Copy:
      return QStringLiteral("copy");
    case AfterCaptureAction::Save:
      return QStringLiteral("save");
    case AfterCaptureAction::Pin:
      return QStringLiteral("pin");
  }
  return {};
}

void chooseWithDialog(QWidget* parent, const QString& title, const QString& start,
                      std::function<void(const QString&)> chosen) {
  auto* const dialog = new QFileDialog(parent, title, start);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  followTheme(*dialog);  // the desktop's own dialog, where there is one, takes no notice
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  QObject::connect(dialog, &QFileDialog::fileSelected, parent, std::move(chosen));
  dialog->open();
}

}  // namespace

GeneralPage::GeneralPage(GeneralSettingsModel& model, FolderChooser chooser, QWidget* parent)
    : RetranslatablePage(parent), model_(model), chooser_(chooser ? std::move(chooser) : chooseWithDialog) {
  addActions();
  addClipboard();
  addFolder();
  addLanguage();
  retranslate();
  model_.setChangeHandler([this] { refresh(); });
}

GeneralPage::~GeneralPage() {
  model_.setChangeHandler({});
}

void GeneralPage::addActions() {
  actions_ = addGroup();
  for (std::size_t i = 0; i < actionRows_.size(); ++i) {
    const AfterCaptureAction action = AfterCaptureActions::all[i];
    auto* const control = new Switch;
    auto* const row = new SettingsRow(control);
    row->setIconName(iconOf(action));
    connect(control, &Switch::toggleRequested, this, [this, action](bool on) { toggle(action, on); });
    actions_->addRow(row);
    actionRows_[i] = {row, control};
  }
}

void GeneralPage::addClipboard() {
  clipboard_ = addGroup();
  clipboardMode_ = new MenuButton;
  clipboardRow_ = new SettingsRow(clipboardMode_);
  clipboardRow_->setIconName(QStringLiteral("clipboard"));
  connect(clipboardMode_, &MenuButton::chosen, this,
          [this](const QVariant& value) { model_.setClipboardMode(static_cast<ClipboardMode>(value.toInt())); });
  clipboard_->addRow(clipboardRow_);
}

void GeneralPage::addFolder() {
  saving_ = addGroup();
  resetFolder_ = new Button(Button::Role::Quiet);
  choose_ = new SecondaryButton;
  auto* const buttons = new QWidget;
  auto* const row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(tokens::space1);
  row->addWidget(resetFolder_);
  row->addWidget(choose_);
  folderRow_ = new SettingsRow(buttons);
  folderRow_->setIconName(QStringLiteral("folder"));
  connect(choose_, &QPushButton::clicked, this, &GeneralPage::chooseFolder);
  connect(resetFolder_, &QPushButton::clicked, this, [this] {
    choose_->setFocus(Qt::OtherFocusReason);  // the button goes away
    model_.resetDirectory();
  });
  saving_->addRow(folderRow_);
}

void GeneralPage::addLanguage() {
  languageGroup_ = addGroup();
  language_ = new MenuButton;
  languageRow_ = new SettingsRow(language_);
  languageRow_->setIconName(QStringLiteral("globe"));
  connect(language_, &MenuButton::chosen, this, [this](const QVariant& value) {
    model_.setLanguage(static_cast<AppLanguage>(value.toInt()));
    refresh();
  });
  languageGroup_->addRow(languageRow_);
}

void GeneralPage::retranslate() {
  //% "General"
  setTitle(qtTrId("settings.general.title"));
  //% "After a capture"
  actions_->setTitle(qtTrId("settings.general.afterCapture"));
  for (std::size_t i = 0; i < actionRows_.size(); ++i) {
    actionRows_[i].row->setTitle(settingsText::label(AfterCaptureActions::all[i]));
    actionRows_[i].row->setHelp(settingsText::help(AfterCaptureActions::all[i]));
  }
  //% "Clipboard"
  clipboard_->setTitle(qtTrId("settings.clipboard.title"));
  //% "Copy captures as"
  clipboardRow_->setTitle(qtTrId("settings.clipboard.copyAs"));
  //% "Some programs paste files, others paste pictures. With both, each takes the one it understands."
  clipboard_->setInfo(qtTrId("settings.clipboard.info"));
  QList<MenuButton::Choice> modes;
  for (const ClipboardMode mode : allClipboardModes) {
    modes.append({static_cast<int>(mode), settingsText::label(mode)});
  }
  clipboardMode_->setChoices(modes);
  //% "Saving"
  saving_->setTitle(qtTrId("settings.general.saving"));
  //% "Folder for captures"
  folderRow_->setTitle(qtTrId("settings.general.saveFolder"));
  //% "Choose…"
  choose_->setText(qtTrId("settings.general.choose"));
  //% "Choose a folder for captures"
  choose_->setToolTip(qtTrId("settings.general.chooseTitle"));
  //% "Use Desktop Folder"
  resetFolder_->setText(qtTrId("settings.general.resetDesktop"));
  //% "Save captures to the Desktop folder again"
  resetFolder_->setToolTip(qtTrId("settings.general.resetDesktopHelp"));
  //% "Language"
  languageGroup_->setTitle(qtTrId("settings.general.language"));
  //% "Language of the interface"
  languageRow_->setTitle(qtTrId("settings.general.interfaceLanguage"));
  QList<MenuButton::Choice> languages;
  for (const AppLanguage language : allAppLanguages) {
    //% "System language"
    const QString system = qtTrId("settings.general.systemLanguage");
    languages.append({static_cast<int>(language), language == AppLanguage::System ? system : nativeName(language)});
  }
  language_->setChoices(languages);
  refresh();
}

void GeneralPage::refresh() {
  for (std::size_t i = 0; i < actionRows_.size(); ++i) {
    actionRows_[i].toggle->setChecked(model_.isOn(AfterCaptureActions::all[i]));
  }
  clipboardMode_->setCurrent(static_cast<int>(model_.clipboardMode()));
  folderRow_->setHelp(model_.saveDirectoryText());
  resetFolder_->setVisible(model_.hasChosenDirectory());
  language_->setCurrent(static_cast<int>(model_.language()));
}

void GeneralPage::toggle(AfterCaptureAction action, bool on) {
  if (model_.setOn(action, on)) return;
  const QWidget* const key = QApplication::activeWindow();
  //% "At least one action has to stay on."
  Toast::show(QString(), qtTrId("settings.general.keepOneAction"), ToastKind::Info,
              key != nullptr ? key->screen() : nullptr);
}

void GeneralPage::chooseFolder() {
  chooser_(this, qtTrId("settings.general.chooseTitle"), model_.saveDirectory(),
           [this](const QString& path) { model_.chooseDirectory(path); });
}

}  // namespace vellora
