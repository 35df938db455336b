#pragma once

#include <span>

#include <QString>
#include <QVariant>

namespace vellora {

namespace preferenceKey {
inline const QString afterCaptureActions = QStringLiteral("afterCaptureActions");
inline const QString clipboardMode = QStringLiteral("clipboardMode");
inline const QString saveDirectory = QStringLiteral("saveDirectory");
inline const QString appLanguage = QStringLiteral("appLanguage");
inline const QString appleLanguages = QStringLiteral("AppleLanguages");
inline const QString hotKeyPrefix = QStringLiteral("hotkey.");
inline const QString didMigrate = QStringLiteral("didMigrateToVellora");
inline const QString toolStyles = QStringLiteral("toolStyles");
inline const QString customColors = QStringLiteral("customColors");
inline const QString backdropStyles = QStringLiteral("backdropStyles");
inline const QString backdropLastUsed = QStringLiteral("backdropLastUsed");
inline const QString eraseFillColor = QStringLiteral("vellora.eraseFillColor");
inline const QString blurStrength = QStringLiteral("vellora.blurStrength");
inline const QString blurStyleDefault = QStringLiteral("vellora.blurStyleDefault");
inline const QString blurEraseDefault = QStringLiteral("vellora.blurEraseDefault");
inline const QString magnifierMagnification = QStringLiteral("vellora.magnifierMagnification");
inline const QString magnifierShape = QStringLiteral("vellora.magnifierShape");
}  // namespace preferenceKey

/// A preference a person may set by name on the command line, with how its text is read.
struct PreferenceDescription {
  enum class Type { Actions, Folder, Choice, HotKey };
  QString key;
  Type type;
  QString defaultText;  ///< what applies while nothing is stored, for people
  QString meaning;      ///< one English line for the command line's list
  QStringList choices;  ///< for Type::Choice
};

/// Every documented preference, in the order of the settings window.
const QList<PreferenceDescription>& describedPreferences();

/// Why a text is not accepted for a preference, for people.
struct PreferenceTextError {
  QString message;
};

/// Turns a person's text into the value to store under `description.key`, or says what is wrong with it.
/// Folders must exist; hot keys are written like "alt+1" or "ctrl+shift+f5".
std::optional<QVariant> valueFromText(const PreferenceDescription& description, const QString& text,
                                      PreferenceTextError* error);

/// The value as a person would type it.
QString textFromValue(const PreferenceDescription& description, const QVariant& value);

}  // namespace vellora
