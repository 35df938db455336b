#pragma once

#include <array>
#include <optional>

#include <QString>
#include <QStringList>

#include "base/NotificationCenter.h"
#include "platform/PreferenceStore.h"

namespace vellora {

/// The person's choice of interface language. System: no choice, follow the desktop.
enum class AppLanguage {
  System,
  English,
  SimplifiedChinese,
  TraditionalChinese,
  German,
  French,
  Spanish,
  Japanese,
};

inline constexpr std::array allAppLanguages{
    AppLanguage::System, AppLanguage::English, AppLanguage::SimplifiedChinese, AppLanguage::TraditionalChinese,
    AppLanguage::German, AppLanguage::French,  AppLanguage::Spanish,           AppLanguage::Japanese};

/// "en", "zh-Hans", "zh-Hant", "de", "fr", "es", "ja"; empty for System.
QString languageCode(AppLanguage language);
std::optional<AppLanguage> appLanguageFromCode(const QString& code);
/// The language's name in itself ("Deutsch"); empty for System.
QString nativeName(AppLanguage language);

/// The stored choice of language and what follows from it. Main thread.
class Localization {
 public:
  /// `systemLanguages`: the desktop's languages in order of preference, as BCP 47 tags ("de-AT", "zh-TW").
  Localization(PreferenceStore& preferences, NotificationCenter& notices, QStringList systemLanguages);

  AppLanguage selection() const;
  /// Stores the choice and posts notice::languageChanged; nothing happens when it is the current one.
  void apply(AppLanguage choice);

  /// The code of the language texts are shown in: the choice, else the first of the desktop's languages that is
  /// shipped, else English.
  QString effectiveCode() const;

 private:
  PreferenceStore& preferences_;
  NotificationCenter& notices_;
  QStringList systemLanguages_;
};

}  // namespace vellora
