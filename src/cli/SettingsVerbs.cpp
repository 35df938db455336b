#include <algorithm>

#include "cli/DesktopProgram.h"
#include "cli/Terminal.h"
#include "cli/Verbs.h"
#include "platform/linux/desktop/InstanceClient.h"
#include "platform/linux/desktop/QSettingsPreferences.h"
#include "preferences/AppLanguage.h"
#include "preferences/HotKeySettings.h"
#include "preferences/PreferenceKeys.h"

namespace vellora::cli {
namespace {

const PreferenceDescription* describe(const std::string& key) {
  const auto& all = describedPreferences();
  const auto found = std::ranges::find(all, QString::fromStdString(key), &PreferenceDescription::key);
  if (found != all.end()) return &*found;
  printError(
      QStringLiteral("there is no setting '%1'; 'vellora settings list' names them").arg(QString::fromStdString(key)));
  return nullptr;
}

Json settingJson(const PreferenceDescription& description, const PreferenceStore& preferences) {
  const QVariant value = preferences.value(description.key);
  return {{"key", description.key.toStdString()},
          {"value", textFromValue(description, value).toStdString()},
          {"default", description.defaultText.toStdString()},
          {"isDefault", !value.isValid()},
          {"meaning", description.meaning.toStdString()}};
}

/// Stores a value the way its own part of the program would.
bool store(PreferenceStore& preferences, const PreferenceDescription& description, const QVariant& value) {
  NotificationCenter notices;
  if (description.key == preferenceKey::appLanguage) {
    Localization(preferences, notices, {}).apply(appLanguageFromCode(value.toString()).value_or(AppLanguage::System));
    return true;
  }
  if (description.type == PreferenceDescription::Type::HotKey) {
    const auto binding = decodeHotKeyBinding(value.toByteArray());
    const auto owner = HotKeySettings(preferences, notices).actionBound(binding->keyCode, binding->carbonModifiers);
    if (owner && hotKeyPreferenceKey(*owner) != description.key) {
      printError(QStringLiteral("%1 is already the hot key of %2")
                     .arg(writtenShortcut(*binding), hotKeyPreferenceKey(*owner)));
      return false;
    }
  }
  preferences.setValue(description.key, value);
  return true;
}

bool save(QSettingsPreferences& preferences) {
  if (preferences.flush()) return true;
  printError(QStringLiteral("the settings cannot be written to %1").arg(preferences.filePath()));
  return false;
}

}  // namespace

int showSettings() {
  InstanceClient instance;
  if (instance.openSettings()) return Done;
  return becomeDesktopProgram({QStringLiteral("--settings")});
}

int listSettings(const Invocation& invocation) {
  const auto preferences = QSettingsPreferences::openOwn();
  Json list = Json::array();
  for (const PreferenceDescription& description : describedPreferences()) {
    list.push_back(settingJson(description, *preferences));
    if (!invocation.json) {
      printLine(QStringLiteral("%1\t%2\t%3")
                    .arg(description.key, textFromValue(description, preferences->value(description.key)),
                         description.meaning));
    }
  }
  if (invocation.json) printJson({{"settings", list}});
  return Done;
}

int getSetting(const Invocation& invocation) {
  const auto* description = describe(invocation.arguments[0]);
  if (!description) return WrongUsage;
  const auto preferences = QSettingsPreferences::openOwn();
  if (invocation.json) {
    printJson(settingJson(*description, *preferences));
  } else {
    printLine(textFromValue(*description, preferences->value(description->key)));
  }
  return Done;
}

int setSetting(const Invocation& invocation) {
  const auto* description = describe(invocation.arguments[0]);
  if (!description) return WrongUsage;
  PreferenceTextError error;
  const auto value = valueFromText(*description, QString::fromStdString(invocation.arguments[1]), &error);
  if (!value) {
    printError(error.message);
    return WrongUsage;
  }
  const auto preferences = QSettingsPreferences::openOwn();
  if (!store(*preferences, *description, *value) || !save(*preferences)) return Failed;
  if (invocation.json) printJson(settingJson(*description, *preferences));
  return Done;
}

int resetSetting(const Invocation& invocation) {
  const auto* description = describe(invocation.arguments[0]);
  if (!description) return WrongUsage;
  const auto preferences = QSettingsPreferences::openOwn();
  if (description->key == preferenceKey::appLanguage) {
    store(*preferences, *description, QStringLiteral("system"));
  } else {
    preferences->remove(description->key);
  }
  if (!save(*preferences)) return Failed;
  if (invocation.json) printJson(settingJson(*description, *preferences));
  return Done;
}

}  // namespace vellora::cli
