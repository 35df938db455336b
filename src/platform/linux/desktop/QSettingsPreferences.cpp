#include "platform/linux/desktop/QSettingsPreferences.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QRegularExpression>
#include <QSet>
#include <QSettings>
#include <QStandardPaths>

#include "base/Log.h"
#include "platform/linux/desktop/PreferenceFormat.h"

namespace vellora {
namespace {

QString configFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

void moveAsideWhenTooLarge(const QString& path) {
  if (QFileInfo(path).size() <= preferenceFormat::maximumFileBytes) return;
  const QString refused = path + QStringLiteral(".refused");
  QFile::remove(refused);
  const bool moved = QFile::rename(path, refused);
  log::error(QStringLiteral("preference file refused, too large: %1%2")
                 .arg(path, moved ? QString() : QStringLiteral(" (still there)")));
}

bool isPreference(const QString& key) {
  return !key.isEmpty() && !key.startsWith(preferenceFormat::unreadableLineMark);
}

}  // namespace

struct QSettingsPreferences::Table {
  explicit Table(const QString& path) : settings(path, preferenceFormat::settingsFormat()) {}
  QSettings settings;

  QVariantMap snapshot() const {
    QVariantMap values;
    for (const QString& key : settings.allKeys()) {
      if (isPreference(key)) values.insert(key, settings.value(key));
    }
    return values;
  }
};

/// Watches the folder, because every write replaces the file, and the file, because editors may write into it.
class QSettingsPreferences::Watch {
 public:
  Watch(Table& table, std::function<void(const QStringList&)> changed)
      : table_(table), changed_(std::move(changed)), known_(table.snapshot()) {
    const QFileInfo file(table_.settings.fileName());
    QDir().mkpath(file.absolutePath());
    watcher_.addPath(file.absolutePath());
    watchFile();
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &watcher_, [this] { look(); });
    QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &watcher_, [this] { look(); });
  }

  void ownChange(const QString& key) {
    const QVariant now = table_.settings.value(key);
    if (now.isValid()) {
      known_.insert(key, now);
    } else {
      known_.remove(key);
    }
  }

 private:
  void watchFile() {
    const QString path = table_.settings.fileName();
    if (QFileInfo::exists(path) && !watcher_.files().contains(path)) watcher_.addPath(path);
  }

  void look() {
    watchFile();
    moveAsideWhenTooLarge(table_.settings.fileName());
    table_.settings.sync();
    QVariantMap now = table_.snapshot();
    if (now == known_) return;
    QStringList keys;
    for (auto it = now.cbegin(); it != now.cend(); ++it) {
      const auto before = known_.constFind(it.key());
      if (before == known_.cend() || *before != it.value()) keys.append(it.key());
    }
    for (auto it = known_.cbegin(); it != known_.cend(); ++it) {
      if (!now.contains(it.key())) keys.append(it.key());
    }
    known_ = std::move(now);
    const auto changed = changed_;  // the handler may set another one
    changed(keys);
  }

  Table& table_;
  std::function<void(const QStringList&)> changed_;
  QVariantMap known_;
  QFileSystemWatcher watcher_;
};

std::unique_ptr<QSettingsPreferences> QSettingsPreferences::openOwn() {
  return std::make_unique<QSettingsPreferences>(configFolder() + QStringLiteral("/vellora/dev.orlo.vellora.conf"));
}

QSettingsPreferences::QSettingsPreferences(const QString& filePath) {
  moveAsideWhenTooLarge(filePath);
  table_ = std::make_unique<Table>(filePath);
}

QSettingsPreferences::~QSettingsPreferences() = default;

bool QSettingsPreferences::contains(const QString& key) const {
  return isPreference(key) && table_->settings.contains(key);
}

QVariant QSettingsPreferences::value(const QString& key) const {
  return isPreference(key) ? table_->settings.value(key) : QVariant();
}

void QSettingsPreferences::setValue(const QString& key, const QVariant& value) {
  const auto encoded = preferenceFormat::encodeValue(value);
  // What is read back from the file must have the type it has now, so it takes the file's form at once.
  const auto stored = encoded ? preferenceFormat::decodeValue(*encoded) : std::nullopt;
  if (!isPreference(key) || !stored) {
    log::error(QStringLiteral("preference cannot be stored: %1").arg(key));
    return;
  }
  table_->settings.setValue(key, *stored);
  if (watch_) watch_->ownChange(key);
}

void QSettingsPreferences::remove(const QString& key) {
  if (!isPreference(key)) return;
  table_->settings.remove(key);
  if (watch_) watch_->ownChange(key);
}

QStringList QSettingsPreferences::keys() const {
  return table_->snapshot().keys();
}

QString QSettingsPreferences::filePath() const {
  return table_->settings.fileName();
}

bool QSettingsPreferences::flush() {
  table_->settings.sync();
  return table_->settings.status() != QSettings::AccessError;
}

void QSettingsPreferences::setChangeHandler(std::function<void(const QStringList&)> changed) {
  watch_.reset();
  if (changed) watch_ = std::make_unique<Watch>(*table_, std::move(changed));
}

std::unique_ptr<PreferenceStore> QSettingsSuites::open(const QString& suite) {
  static const QRegularExpression validName(QStringLiteral("\\A[A-Za-z0-9_-][A-Za-z0-9._-]{0,199}\\z"));
  if (!validName.match(suite).hasMatch()) return nullptr;
  const QString folder = configFolder();
  for (const QString& path :
       {QStringLiteral("%1/%2.conf").arg(folder, suite), QStringLiteral("%1/%2/%2.conf").arg(folder, suite)}) {
    if (QFileInfo(path).isFile()) return std::make_unique<QSettingsPreferences>(path);
  }
  return nullptr;
}

}  // namespace vellora
