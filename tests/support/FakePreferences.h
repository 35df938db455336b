#pragma once

#include <map>

#include "platform/FileNames.h"
#include "platform/PreferenceStore.h"

namespace vellora::test {

/// Preferences in memory.
class FakePreferences final : public PreferenceStore {
 public:
  FakePreferences() = default;
  FakePreferences(std::initializer_list<std::pair<const QString, QVariant>> initial) : values(initial) {}

  bool contains(const QString& key) const override { return values.contains(key); }
  QVariant value(const QString& key) const override {
    const auto it = values.find(key);
    return it == values.end() ? QVariant() : it->second;
  }
  void setValue(const QString& key, const QVariant& value) override { values[key] = value; }
  void remove(const QString& key) override { values.erase(key); }
  QStringList keys() const override {
    QStringList result;
    for (const auto& [key, value] : values) result << key;
    return result;
  }

  std::map<QString, QVariant> values;
};

/// Other programs' preferences by suite name.
class FakeSuites final : public PreferenceSuites {
 public:
  std::unique_ptr<PreferenceStore> open(const QString& suite) override {
    const auto it = suites.find(suite);
    return it == suites.end() ? nullptr : std::make_unique<FakePreferences>(it->second);
  }
  std::map<QString, FakePreferences> suites;
};

/// Well-known folders wherever the test wants them.
class FakeFileNames final : public FileNames {
 public:
  explicit FakeFileNames(QString root) : root_(std::move(root)) {}
  QString home() const override { return root_; }
  QString desktop() const override { return hasDesktop ? root_ + QStringLiteral("/Desktop") : QString(); }
  QString movies() const override { return root_ + QStringLiteral("/Videos"); }
  QString applicationSupport() const override { return root_ + QStringLiteral("/share"); }
  bool hasDesktop = true;

 private:
  QString root_;
};

}  // namespace vellora::test
