#include "app/Translations.h"

#include <gtest/gtest.h>
#include <QHash>
#include <QLocale>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>

#include "preferences/AppLanguage.h"

namespace vellora {
namespace {

std::vector<QString> offeredCodes() {
  std::vector<QString> codes;
  for (const AppLanguage language : allAppLanguages) {
    if (language != AppLanguage::System) codes.push_back(languageCode(language));
  }
  return codes;
}

QString area() {
  return qtTrId("menu.captureArea");
}

/// The question for `count` recordings without its number.
QString questionFor(int count) {
  const QString text = qtTrId("alert.cleanupRecordings.title", count);
  EXPECT_TRUE(text.contains(QString::number(count))) << qPrintable(text);
  return QString(text).remove(QRegularExpression(QStringLiteral("\\d+")));
}

TEST(TranslationsTests, EveryOfferedLanguageIsBuiltIn) {
  for (const QString& code : offeredCodes()) {
    QTranslator translator;
    EXPECT_TRUE(translator.load(QStringLiteral(":/translations/vellora_%1.qm").arg(code))) << qPrintable(code);
    EXPECT_FALSE(translator.translate("", "menu.captureArea").isEmpty()) << qPrintable(code);
  }
}

TEST(TranslationsTests, TextsFollowTheLanguageWhileTheProgramRuns) {
  Translations translations;
  QHash<QString, QString> texts;
  for (const QString& code : offeredCodes()) {
    translations.use(code);
    texts.insert(code, area());
  }
  const auto all = texts.values();
  EXPECT_EQ(QSet<QString>(all.begin(), all.end()).size(), static_cast<qsizetype>(offeredCodes().size()));
  EXPECT_FALSE(all.contains(QStringLiteral("menu.captureArea")));

  for (const QString code : {"ja", "en", "zh-Hant", "zh-Hans", "en"}) {
    translations.use(code);
    EXPECT_EQ(area(), texts.value(code)) << qPrintable(code);
  }
  translations.use(QStringLiteral("de"));
  translations.use(QStringLiteral("tlh"));
  EXPECT_EQ(area(), texts.value(QStringLiteral("en")));
}

TEST(TranslationsTests, CountsTakeTheFormOfTheLanguage) {
  Translations translations;
  for (const QString& code : offeredCodes()) {
    translations.use(code);
    const bool countsOne = code != QLatin1String("ja") && !code.startsWith(QLatin1String("zh"));
    EXPECT_EQ(questionFor(1) != questionFor(3), countsOne) << qPrintable(code);
    EXPECT_EQ(questionFor(3), questionFor(21)) << qPrintable(code);
  }
  translations.use(QStringLiteral("fr"));
  EXPECT_EQ(questionFor(0), questionFor(1));
  translations.use(QStringLiteral("en"));
  EXPECT_EQ(questionFor(0), questionFor(3));
}

TEST(TranslationsTests, DatesAndNumbersFollowTheLanguageToo) {
  Translations translations;
  for (const QString& code : offeredCodes()) {
    translations.use(code);
    EXPECT_TRUE(QLocale().bcp47Name().startsWith(code.left(2))) << qPrintable(QLocale().bcp47Name());
  }
  translations.use(QStringLiteral("zh-Hant"));
  EXPECT_EQ(QLocale().script(), QLocale::TraditionalHanScript);
}

// A file dialog finds the patterns of a filter between plain parentheses only.
TEST(TranslationsTests, FileFiltersKeepTheirPatterns) {
  Translations translations;
  for (const QString& code : offeredCodes()) {
    translations.use(code);
    EXPECT_TRUE(qtTrId("load.file.filter").arg(QStringLiteral("*.png")).endsWith(QLatin1String(" (*.png)")))
        << qPrintable(code);
  }
}

}  // namespace
}  // namespace vellora
