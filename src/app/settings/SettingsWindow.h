#pragma once

#include <array>

#include <QWidget>

#include "app/settings/AboutPage.h"
#include "app/settings/GeneralPage.h"
#include "app/settings/ShortcutsModel.h"
#include "base/NotificationCenter.h"

class QStackedWidget;

namespace vellora {

class PageButton;

/// What the settings window works on; everything outlives it.
struct SettingsContext {
  Settings& settings;
  Localization& localization;
  HotKeySettings& hotKeys;
  NotificationCenter& notices;
  const FileNames& fileNames;
  HotKeyAccess hotKeyAccess;
  AboutInfo about;
  std::function<void(const QString&)> open;  ///< hands an address or a folder to the desktop
  FolderChooser folderChooser = {};          ///< the desktop's dialog when empty
};

/// The pages, in the order of the sidebar.
enum class SettingsPageId { General, Shortcuts, About };
inline constexpr std::array allSettingsPages{SettingsPageId::General, SettingsPageId::Shortcuts, SettingsPageId::About};

/// "general", "shortcuts", "about".
QString identifier(SettingsPageId page);

/// The settings window: pages left, their contents right. A page is made when it is first shown. Ctrl+W and Escape
/// close, Ctrl+Tab and Ctrl+Shift+Tab go through the pages. Show it with present(). Main thread.
class SettingsWindow final : public QWidget {
  Q_OBJECT

 public:
  explicit SettingsWindow(SettingsContext context, QWidget* parent = nullptr);
  ~SettingsWindow() override;

  void showPage(SettingsPageId id);
  SettingsPageId currentPage() const { return current_; }
  /// The page's widget, made now if it was not shown yet.
  RetranslatablePage* page(SettingsPageId id);

  /// Shows the window, or brings it to the front.
  void present();

  /// Reads all values anew; the window does it by itself when it becomes the active one.
  void refresh();

 signals:
  /// The window was closed; its owner may destroy it later, from the event loop.
  void closed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void retranslate();
  void step(int by);

  SettingsContext context_;
  GeneralSettingsModel general_;
  ShortcutsModel shortcuts_;
  SettingsPageId current_ = SettingsPageId::General;
  // The widgets are owned by the window through Qt.
  QWidget* sidebar_ = nullptr;
  QStackedWidget* stack_ = nullptr;
  std::array<PageButton*, allSettingsPages.size()> buttons_{};
  std::array<RetranslatablePage*, allSettingsPages.size()> pages_{};
  NotificationCenter::Subscription languageChanged_;
};

}  // namespace vellora
