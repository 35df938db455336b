#include "platform/PreferenceStore.h"

#include <QMetaType>

namespace vellora {

std::optional<qint64> PreferenceStore::integer(const QString& key) const {
  const QVariant stored = value(key);
  switch (stored.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
      return stored.toLongLong();
    default:
      return std::nullopt;
  }
}

std::optional<bool> PreferenceStore::boolean(const QString& key) const {
  const QVariant stored = value(key);
  if (stored.typeId() != QMetaType::Bool) return std::nullopt;
  return stored.toBool();
}

std::optional<QString> PreferenceStore::string(const QString& key) const {
  const QVariant stored = value(key);
  if (stored.typeId() != QMetaType::QString) return std::nullopt;
  return stored.toString();
}

std::optional<QByteArray> PreferenceStore::data(const QString& key) const {
  const QVariant stored = value(key);
  if (stored.typeId() != QMetaType::QByteArray) return std::nullopt;
  return stored.toByteArray();
}

}  // namespace vellora
