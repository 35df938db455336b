#pragma once

#include <array>

#include "app/settings/RetranslatablePage.h"
#include "app/settings/ShortcutsModel.h"

namespace vellora {

class IconButton;
class SettingsRow;
class ShortcutRecorder;

/// One row per action that can have a global shortcut.
class ShortcutsPage final : public RetranslatablePage {
  Q_OBJECT

 public:
  explicit ShortcutsPage(ShortcutsModel& model, QWidget* parent = nullptr);
  ~ShortcutsPage() override;

  void retranslate() override;
  void refresh() override;

  ShortcutRecorder* recorder(HotKeyAction action) const;
  SettingsRow* row(HotKeyAction action) const;

 private:
  struct Entry {
    SettingsRow* row = nullptr;
    ShortcutRecorder* recorder = nullptr;
    IconButton* reset = nullptr;
    QString conflict;  // of the combination pressed last, while recording
  };

  void addEntry(std::size_t index);
  void refreshNotice(std::size_t index);

  ShortcutsModel& model_;
  // The widgets are owned by the page through Qt.
  SettingsGroup* group_ = nullptr;
  std::array<Entry, allHotKeyActions.size()> entries_;
};

}  // namespace vellora
