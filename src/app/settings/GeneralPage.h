#pragma once

#include <array>
#include <functional>

#include "app/settings/GeneralSettingsModel.h"
#include "app/settings/RetranslatablePage.h"

namespace vellora {

class Button;
class MenuButton;
class SettingsRow;
class Switch;

/// Lets the person pick a folder, beginning at `start`; calls back with its path, or not at all.
using FolderChooser = std::function<void(QWidget* parent, const QString& title, const QString& start,
                                         std::function<void(const QString&)> chosen)>;

/// What happens after a capture, the clipboard, the folder, the language.
class GeneralPage final : public RetranslatablePage {
  Q_OBJECT

 public:
  /// `chooser`: the desktop's own folder dialog when empty.
  explicit GeneralPage(GeneralSettingsModel& model, FolderChooser chooser = {}, QWidget* parent = nullptr);
  ~GeneralPage() override;

  void retranslate() override;
  void refresh() override;

 private:
  struct ActionRow {
    SettingsRow* row = nullptr;
    Switch* toggle = nullptr;
  };

  void addActions();
  void addClipboard();
  void addFolder();
  void addLanguage();
  void toggle(AfterCaptureAction action, bool on);
  void chooseFolder();

  GeneralSettingsModel& model_;
  FolderChooser chooser_;
  // The widgets are owned by the page through Qt.
  SettingsGroup* actions_ = nullptr;
  std::array<ActionRow, AfterCaptureActions::all.size()> actionRows_;
  SettingsGroup* clipboard_ = nullptr;
  SettingsRow* clipboardRow_ = nullptr;
  MenuButton* clipboardMode_ = nullptr;
  SettingsGroup* saving_ = nullptr;
  SettingsRow* folderRow_ = nullptr;
  Button* choose_ = nullptr;
  Button* resetFolder_ = nullptr;
  SettingsGroup* languageGroup_ = nullptr;
  SettingsRow* languageRow_ = nullptr;
  MenuButton* language_ = nullptr;
};

}  // namespace vellora
