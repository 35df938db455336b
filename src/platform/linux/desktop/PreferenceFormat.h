#pragma once

#include <optional>

#include <QByteArray>
#include <QIODevice>
#include <QMap>
#include <QSettings>
#include <QString>
#include <QVariant>

/// The text form of a preference file: one line per key, `key=value`, the key percent-encoded, the value as JSON, so
/// that a boolean, a whole number, a fraction and a text stay what they were. Bytes are {"data":"<base64>"}, tables
/// {"map":{…}}. A line that cannot be read costs only its own key and is written back as it was.
namespace vellora::preferenceFormat {

/// Larger files are refused.
inline constexpr qint64 maximumFileBytes = qint64{8} << 20;

/// Keys that begin with this character stand for lines that could not be read; they are no preferences.
inline constexpr QChar unreadableLineMark = u'#';

/// Nothing when JSON cannot hold the value (a number that is not finite, an object of a class).
std::optional<QByteArray> encodeValue(const QVariant& value);

/// Nothing for text that is not JSON or has a form encodeValue never writes.
std::optional<QVariant> decodeValue(const QByteArray& text);

/// Reads every line of `text`.
QMap<QString, QVariant> decode(const QByteArray& text);
QByteArray encode(const QMap<QString, QVariant>& values);

/// The two ends QSettings calls, and the format they are registered as.
bool readFile(QIODevice& device, QSettings::SettingsMap& values);
bool writeFile(QIODevice& device, const QSettings::SettingsMap& values);
QSettings::Format settingsFormat();

}  // namespace vellora::preferenceFormat
