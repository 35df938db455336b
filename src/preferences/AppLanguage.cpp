#include "preferences/AppLanguage.h"

#include "preferences/PreferenceKeys.h"

namespace vellora {
namespace {

/// The shipped language a BCP 47 tag is best served by.
std::optional<AppLanguage> shippedLanguage(const QString& tag) {
  const QStringList parts = QString(tag).replace(u'_', u'-').split(u'-');
  const QString language = parts.first().toLower();
  if (language == u"zh") {
    for (const char* traditional : {"Hant", "TW", "HK", "MO"}) {
      if (parts.contains(QLatin1StringView(traditional), Qt::CaseInsensitive)) return AppLanguage::TraditionalChinese;
    }
    return AppLanguage::SimplifiedChinese;
  }
  return appLanguageFromCode(language);
}

}  // namespace

QString languageCode(AppLanguage language) {
  switch (language) {
    case AppLanguage::System:
      return {};
    case AppLanguage::English:
      return QStringLiteral("en");
    case AppLanguage::SimplifiedChinese:
      return QStringLiteral("zh-Hans");
    case AppLanguage::TraditionalChinese:
      return QStringLiteral("zh-Hant");
    case AppLanguage::German:
      return QStringLiteral("de");
    case AppLanguage::French:
      return QStringLiteral("fr");
    case AppLanguage::Spanish:
      return QStringLiteral("es");
    case AppLanguage::Japanese:
      return QStringLiteral("ja");
  }
  return {};
}

std::optional<AppLanguage> appLanguageFromCode(const QString& code) {
  for (const AppLanguage language : allAppLanguages) {
    if (language != AppLanguage::System && languageCode(language) == code) return language;
  }
  return std::nullopt;
}

QString nativeName(AppLanguage language) {
  switch (language) {
    case AppLanguage::System:
      return {};
    case AppLanguage::English:
      return QStringLiteral("English");
    case AppLanguage::SimplifiedChinese:
      return QStringLiteral("简体中文");
    case AppLanguage::TraditionalChinese:
      return QStringLiteral("繁體中文");
    case AppLanguage::German:
      return QStringLiteral("Deutsch");
    case AppLanguage::French:
      return QStringLiteral("Français");
    case AppLanguage::Spanish:
      return QStringLiteral("Español");
    case AppLanguage::Japanese:
      return QStringLiteral("日本語");
  }
  return {};
}

Localization::Localization(PreferenceStore& preferences, NotificationCenter& notices, QStringList systemLanguages)
    : preferences_(preferences), notices_(notices), systemLanguages_(std::move(systemLanguages)) {}

AppLanguage Localization::selection() const {
  const auto stored = preferences_.string(preferenceKey::appLanguage);
  if (!stored) return AppLanguage::System;
  return appLanguageFromCode(*stored).value_or(AppLanguage::System);
}

void Localization::apply(AppLanguage choice) {
  if (choice == selection()) return;
  if (choice == AppLanguage::System) {
    preferences_.remove(preferenceKey::appLanguage);
    preferences_.remove(preferenceKey::appleLanguages);
  } else {
    const QString code = languageCode(choice);
    preferences_.setValue(preferenceKey::appLanguage, code);
    preferences_.setValue(preferenceKey::appleLanguages, QStringList{code});
  }
  notices_.post(notice::languageChanged);
}

QString Localization::effectiveCode() const {
  const AppLanguage choice = selection();
  if (choice != AppLanguage::System) return languageCode(choice);
  for (const QString& tag : systemLanguages_) {
    if (const auto language = shippedLanguage(tag)) return languageCode(*language);
  }
  return languageCode(AppLanguage::English);
}

}  // namespace vellora
