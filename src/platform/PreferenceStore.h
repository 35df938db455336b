#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace vellora {

/// One flat table of values by key that outlives the process. Readers get nothing when the key is absent or its value
/// has another type; nothing is rewritten on reading. Main thread.
class PreferenceStore {
 public:
  virtual ~PreferenceStore() = default;

  virtual bool contains(const QString& key) const = 0;
  /// The value as stored: boolean, integer (qlonglong), double, QString, QByteArray or QVariantList / QStringList.
  virtual QVariant value(const QString& key) const = 0;
  virtual void setValue(const QString& key, const QVariant& value) = 0;
  virtual void remove(const QString& key) = 0;
  virtual QStringList keys() const = 0;

  std::optional<qint64> integer(const QString& key) const;
  std::optional<bool> boolean(const QString& key) const;
  std::optional<QString> string(const QString& key) const;
  std::optional<QByteArray> data(const QString& key) const;
};

/// Opens other programs' tables by their suite name ("dev.orlo.brisk").
class PreferenceSuites {
 public:
  virtual ~PreferenceSuites() = default;
  /// Nothing when there is no such suite.
  virtual std::unique_ptr<PreferenceStore> open(const QString& suite) = 0;
};

}  // namespace vellora
