#include "app/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

#include "base/Log.h"

namespace vellora {
namespace {

constexpr char folder[] = ":/translations";

void load(QTranslator& translator, const QString& code) {
  if (!translator.load(QStringLiteral("vellora_") + code, QString::fromLatin1(folder))) {
    log::warning(QStringLiteral("there are no texts for the language %1").arg(code));
    return;
  }
  QCoreApplication::installTranslator(&translator);
}

}  // namespace

void Translations::use(const QString& code) {
  const QString english = QStringLiteral("en");
  if (english_.isEmpty()) load(english_, english);
  QCoreApplication::removeTranslator(&toolkit_);
  QString toolkitCode = code;
  toolkitCode.replace(QStringLiteral("zh-Hans"), QStringLiteral("zh_CN"));
  toolkitCode.replace(QStringLiteral("zh-Hant"), QStringLiteral("zh_TW"));
  if (toolkit_.load(QStringLiteral("qtbase_") + toolkitCode, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&toolkit_);
  }
  QCoreApplication::removeTranslator(&chosen_);
  if (code != english) load(chosen_, code);
  QLocale::setDefault(QLocale(code));
}

QString localized(const char* key, const QStringList& arguments) {
  QString text = qtTrId(key);
  for (const QString& argument : arguments) text = text.arg(argument);
  return text;
}

}  // namespace vellora
