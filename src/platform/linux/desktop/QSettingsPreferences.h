#pragma once

#include <functional>
#include <memory>

#include <QString>

#include "platform/PreferenceStore.h"

namespace vellora {

/// The preferences of one suite in one file (PreferenceFormat.h). Several processes may use it at once: each writes
/// only the keys it changed, under a lock, and the file is replaced in one step. Writes reach the disk when the event
/// loop next runs, with `flush`, or when the store goes. Main thread.
class QSettingsPreferences final : public PreferenceStore {
 public:
  /// The program's own table: "vellora/dev.orlo.vellora.conf" in the XDG config folder, made with the first write.
  static std::unique_ptr<QSettingsPreferences> openOwn();

  /// The table in `filePath`. A file too large to be ours is moved aside under the name with ".refused" added.
  explicit QSettingsPreferences(const QString& filePath);
  ~QSettingsPreferences() override;

  bool contains(const QString& key) const override;
  QVariant value(const QString& key) const override;
  /// A value that cannot be stored (see encodeValue) is logged and changes nothing.
  void setValue(const QString& key, const QVariant& value) override;
  void remove(const QString& key) override;
  QStringList keys() const override;

  QString filePath() const;

  /// Writes what is waiting and reads what other processes wrote; false when the file cannot be written.
  bool flush();

  /// `changed` receives the keys another process set, changed or removed, each time that happens.
  void setChangeHandler(std::function<void(const QStringList& keys)> changed);

 private:
  class Watch;
  struct Table;
  std::unique_ptr<Table> table_;
  std::unique_ptr<Watch> watch_;
};

/// Suites as "NAME.conf" or "NAME/NAME.conf" in the XDG config folder.
class QSettingsSuites final : public PreferenceSuites {
 public:
  std::unique_ptr<PreferenceStore> open(const QString& suite) override;
};

}  // namespace vellora
