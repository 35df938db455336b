#include "platform/linux/desktop/PreferenceFormat.h"

#include <cmath>

#include <QMetaType>
#include <QStringList>

#include "base/Json.h"

namespace vellora::preferenceFormat {
namespace {

constexpr char dataKey[] = "data";
constexpr char mapKey[] = "map";
constexpr char encodedKeyExtras[] = "/ +:@";

std::optional<Json> toJson(const QVariant& value);

std::optional<Json> toJsonArray(const QVariantList& list) {
  Json array = Json::array();
  for (const QVariant& item : list) {
    auto encoded = toJson(item);
    if (!encoded) return std::nullopt;
    array.push_back(std::move(*encoded));
  }
  return array;
}

std::optional<Json> toJson(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::Bool:
      return Json(value.toBool());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
      return Json(static_cast<std::int64_t>(value.toLongLong()));
    case QMetaType::Double:
    case QMetaType::Float:
      if (!std::isfinite(value.toDouble())) return std::nullopt;
      return Json(value.toDouble());
    case QMetaType::QString:
      return json::fromString(value.toString());
    case QMetaType::QByteArray:
      return Json{{dataKey, value.toByteArray().toBase64().toStdString()}};
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
      return toJsonArray(value.toList());
    case QMetaType::QVariantMap: {
      Json table = Json::object();
      const QVariantMap map = value.toMap();
      for (auto it = map.begin(); it != map.end(); ++it) {
        auto encoded = toJson(it.value());
        if (!encoded) return std::nullopt;
        table[it.key().toStdString()] = std::move(*encoded);
      }
      return Json{{mapKey, std::move(table)}};
    }
    default:
      return std::nullopt;
  }
}

std::optional<QVariant> fromJson(const Json& value);

std::optional<QVariant> fromJsonObject(const Json& object) {
  if (object.size() != 1) return std::nullopt;
  if (const Json* data = json::member(object, dataKey)) {
    const auto text = json::string(*data);
    if (!text) return std::nullopt;
    const auto bytes = QByteArray::fromBase64Encoding(text->toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
    if (!bytes) return std::nullopt;
    return QVariant(*bytes);
  }
  const Json* table = json::member(object, mapKey);
  if (!table || !table->is_object()) return std::nullopt;
  QVariantMap map;
  for (const auto& [key, item] : table->items()) {
    const auto decoded = fromJson(item);
    if (!decoded) return std::nullopt;
    map.insert(QString::fromStdString(key), *decoded);
  }
  return QVariant(map);
}

std::optional<QVariant> fromJson(const Json& value) {
  if (value.is_boolean()) return QVariant(value.get<bool>());
  if (value.is_number_float()) return QVariant(value.get<double>());
  if (value.is_number()) {
    const auto whole = json::integer(value);
    if (!whole) return std::nullopt;
    return QVariant(static_cast<qlonglong>(*whole));
  }
  if (value.is_string()) return QVariant(*json::string(value));
  if (value.is_object()) return fromJsonObject(value);
  if (!value.is_array()) return std::nullopt;
  QVariantList list;
  for (const Json& item : value) {
    const auto decoded = fromJson(item);
    if (!decoded) return std::nullopt;
    list.append(*decoded);
  }
  return QVariant(list);
}

}  // namespace

std::optional<QByteArray> encodeValue(const QVariant& value) {
  const auto encoded = toJson(value);
  if (!encoded) return std::nullopt;
  return json::serialize(*encoded);
}

std::optional<QVariant> decodeValue(const QByteArray& text) {
  const auto parsed = json::parse(text);
  if (!parsed) return std::nullopt;
  return fromJson(*parsed);
}

QMap<QString, QVariant> decode(const QByteArray& text) {
  QMap<QString, QVariant> values;
  int lineNumber = 0;
  for (QByteArray line : text.split('\n')) {
    ++lineNumber;
    line = line.trimmed();
    if (line.isEmpty()) continue;
    const qsizetype separator = line.indexOf('=');
    const QString key =
        separator > 0 ? QString::fromUtf8(QByteArray::fromPercentEncoding(line.left(separator).trimmed())) : QString();
    auto value =
        key.isEmpty() || key.startsWith(unreadableLineMark) ? std::nullopt : decodeValue(line.mid(separator + 1));
    if (value) {
      values.insert(key, *value);
    } else {
      values.insert(unreadableLineMark + QString::number(lineNumber), line);
    }
  }
  return values;
}

QByteArray encode(const QMap<QString, QVariant>& values) {
  QByteArray text;
  for (auto it = values.begin(); it != values.end(); ++it) {
    if (it.key().startsWith(unreadableLineMark)) {
      text += it.value().toByteArray() + '\n';
    } else if (const auto value = encodeValue(it.value())) {
      text += it.key().toUtf8().toPercentEncoding(encodedKeyExtras) + '=' + *value + '\n';
    }
  }
  return text;
}

bool readFile(QIODevice& device, QSettings::SettingsMap& values) {
  const QByteArray text = device.read(maximumFileBytes + 1);
  if (text.size() > maximumFileBytes) return false;
  values = decode(text);
  return true;
}

bool writeFile(QIODevice& device, const QSettings::SettingsMap& values) {
  const QByteArray text = encode(values);
  return device.write(text) == text.size();
}

QSettings::Format settingsFormat() {
  static const QSettings::Format format =
      QSettings::registerFormat(QStringLiteral("conf"), readFile, writeFile, Qt::CaseSensitive);
  return format;
}

}  // namespace vellora::preferenceFormat
