#pragma once

#include <functional>

#include <QList>

#include "app/settings/RetranslatablePage.h"

namespace vellora {

class LinkRow;
class SettingsRow;
class TextLabel;

/// What the program says about itself. Parts that are empty are left out.
struct AboutInfo {
  QString version;
  QString licence;  ///< the licence's name, as it is written in every language
  QString website;  ///< addresses
  QString issues;
  QString licencesFolder;  ///< where the licences of fonts, icons and libraries are installed
};

/// Logo, name, version, licence and links.
class AboutPage final : public RetranslatablePage {
  Q_OBJECT

 public:
  /// `open` hands an address or a folder to the desktop.
  AboutPage(AboutInfo info, std::function<void(const QString&)> open, QWidget* parent = nullptr);

  void retranslate() override;

 private:
  LinkRow* addLink(const QString& iconName, const QString& target);

  AboutInfo info_;
  std::function<void(const QString&)> open_;
  // The widgets are owned by the page through Qt.
  TextLabel* summary_ = nullptr;
  TextLabel* version_ = nullptr;
  SettingsGroup* group_ = nullptr;
  SettingsRow* licence_ = nullptr;
  LinkRow* website_ = nullptr;
  LinkRow* issues_ = nullptr;
  LinkRow* licences_ = nullptr;
};

}  // namespace vellora
