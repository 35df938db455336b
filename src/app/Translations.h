#pragma once

#include <QString>
#include <QTranslator>

namespace vellora {

/// The texts of the interface, looked up by key through qtTrId. English lies beneath every other language. Main thread.
class Translations {
 public:
  /// Shows texts in the language of `code` ("de", "zh-Hans") from now on; an unknown one in English.
  void use(const QString& code);

 private:
  QTranslator toolkit_;  // of dialogs that are the toolkit's own
  QTranslator english_;
  QTranslator chosen_;
};

/// The texts of a key with its places filled, for messages that models name by key.
QString localized(const char* key, const QStringList& arguments = {});

}  // namespace vellora
