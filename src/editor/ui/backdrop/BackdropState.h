#pragma once

#include <functional>

#include <QObject>

#include "editor/BackdropSettings.h"

namespace vellora {

/// The backdrop a panel shows, as its sections share it. Sections change it by hand of the person and show it again
/// whenever it changed.
class BackdropState final : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  const BackdropSettings& settings() const { return settings_; }
  /// Shows other settings; tells nobody outside.
  void show(const BackdropSettings& settings);
  /// The person changed something. Whatever it was, the backdrop is on from then. Changes under one non-empty
  /// `coalescingKey` that follow each other belong together until finish().
  void change(const QString& coalescingKey, const std::function<void(BackdropSettings&)>& edit);
  /// The same for the switch itself and for what replaces everything.
  void replace(const BackdropSettings& settings, const QString& coalescingKey = {});
  void finish() { emit finished(); }

 signals:
  void shown();
  void changed(const vellora::BackdropSettings& settings, const QString& coalescingKey);
  void finished();

 private:
  BackdropSettings settings_;
};

}  // namespace vellora
