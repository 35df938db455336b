#include "preferences/PreferenceKeys.h"

#include <QFileInfo>

#include "preferences/AfterCaptureActions.h"
#include "preferences/AppLanguage.h"
#include "preferences/ClipboardMode.h"
#include "preferences/HotKeySettings.h"

namespace vellora {
namespace {

using Type = PreferenceDescription::Type;

/// "editor", "copy", "save", "pin": the words for the after-capture actions.
constexpr std::pair<AfterCaptureAction, const char*> actionWords[] = {{AfterCaptureAction::ShowEditor, "editor"},
                                                                      {AfterCaptureAction::Copy, "copy"},
                                                                      {AfterCaptureAction::Save, "save"},
                                                                      {AfterCaptureAction::Pin, "pin"}};

QList<PreferenceDescription> makeDescriptions() {
  QStringList modes;
  for (const ClipboardMode mode : allClipboardModes) modes << storedString(mode);
  QStringList languages{QStringLiteral("system")};
  for (const AppLanguage language : allAppLanguages) {
    if (language != AppLanguage::System) languages << languageCode(language);
  }
  QList<PreferenceDescription> result{
      {preferenceKey::afterCaptureActions,
       Type::Actions,
       QStringLiteral("editor"),
       QStringLiteral("what happens after a capture: editor, copy, save, pin, joined by commas"),
       {}},
      {preferenceKey::clipboardMode, Type::Choice, storedString(ClipboardMode::FileAndImage),
       QStringLiteral("what a copy puts on the clipboard"), modes},
      {preferenceKey::saveDirectory,
       Type::Folder,
       QStringLiteral("the desktop folder"),
       QStringLiteral("the folder of automatic saves"),
       {}},
      {preferenceKey::appLanguage, Type::Choice, QStringLiteral("system"), QStringLiteral("the interface language"),
       languages},
  };
  for (const HotKeyAction action : allHotKeyActions) {
    const auto binding = defaultBinding(action);
    result.append({hotKeyPreferenceKey(action),
                   Type::HotKey,
                   binding ? writtenShortcut(*binding) : QStringLiteral("none"),
                   QStringLiteral("hot key of the %1 capture")
                       .arg(identifier(action) == u"ocr" ? QStringLiteral("text") : identifier(action)),
                   {}});
  }
  return result;
}

std::optional<QVariant> refuse(PreferenceTextError* error, const QString& message) {
  if (error) error->message = message;
  return std::nullopt;
}

std::optional<QVariant> actionsFromText(const QString& text, PreferenceTextError* error) {
  qint64 bits = 0;
  for (const QString& part : text.split(u',')) {
    const QString word = part.trimmed().toLower();
    qint64 bit = 0;
    for (const auto& [action, name] : actionWords) {
      if (word == QLatin1StringView(name)) bit = static_cast<qint64>(action);
    }
    if (bit == 0) {
      return refuse(error,
                    QStringLiteral("'%1' is no action; use editor, copy, save and pin, joined by commas").arg(word));
    }
    bits |= bit;
  }
  if (AfterCaptureActions::fromRaw(bits).raw() != bits) {
    return refuse(error, QStringLiteral("editor and pin cannot be used together"));
  }
  return QVariant(bits);
}

}  // namespace

const QList<PreferenceDescription>& describedPreferences() {
  static const QList<PreferenceDescription> descriptions = makeDescriptions();
  return descriptions;
}

std::optional<QVariant> valueFromText(const PreferenceDescription& description, const QString& text,
                                      PreferenceTextError* error) {
  switch (description.type) {
    case Type::Actions:
      return actionsFromText(text, error);
    case Type::Folder: {
      const QFileInfo folder(text);
      if (!folder.isDir()) return refuse(error, QStringLiteral("there is no folder '%1'").arg(text));
      return QVariant(folder.absoluteFilePath());
    }
    case Type::Choice:
      if (description.choices.contains(text)) return QVariant(text);
      return refuse(error, QStringLiteral("use one of: %1").arg(description.choices.join(QStringLiteral(", "))));
    case Type::HotKey: {
      const auto binding = parseWrittenShortcut(text);
      if (binding) return QVariant(encode(*binding));
      return refuse(error, QStringLiteral("'%1' is no hot key; write it like alt+1 or ctrl+shift+f5").arg(text));
    }
  }
  return std::nullopt;
}

QString textFromValue(const PreferenceDescription& description, const QVariant& value) {
  if (!value.isValid()) return description.defaultText;
  if (description.type == Type::HotKey) {
    const auto binding = decodeHotKeyBinding(value.toByteArray());
    return binding ? writtenShortcut(*binding) : description.defaultText;
  }
  if (description.type == Type::Actions) {
    QStringList words;
    const auto actions = AfterCaptureActions::fromRaw(value.toLongLong());
    for (const auto& [action, name] : actionWords) {
      if (actions.contains(action)) words << QString::fromLatin1(name);
    }
    return words.join(u',');
  }
  return value.toString();
}

}  // namespace vellora
