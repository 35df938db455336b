#pragma once

#include "kit/SettingsPage.h"

namespace vellora {

/// A page that can put its texts in again after the language changed.
class RetranslatablePage : public SettingsPage {
  Q_OBJECT

 public:
  using SettingsPage::SettingsPage;
  virtual void retranslate() = 0;
  /// Reads the values anew, which another program may have changed meanwhile.
  virtual void refresh() {}
};

}  // namespace vellora
