#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>

#include <QString>
#include <QStringList>

#include "base/RunLoop.h"
#include "platform/EventTap.h"

namespace vellora {

/// Who keeps what keys were pressed. Main thread.
class KeyboardRecorder {
 public:
  virtual ~KeyboardRecorder() = default;
  /// These keys are down since `hostTime`; none: all are up, and what was shown stays for `linger` seconds.
  virtual void recordKeyboard(const QStringList& keys, double hostTime, double linger) = 0;
};

/// Listens to the keyboard during one recording and hands on the labels of what is held. Records nothing while a field
/// for passwords has the keyboard. Main thread.
class KeyboardRecordingCapture {
 public:
  /// Seconds a combination stays shown after its keys are up.
  static constexpr double linger = 0.85;
  /// Seconds between looks at who has the keyboard.
  static constexpr double secureInputInterval = 0.1;

  KeyboardRecordingCapture(EventTap& tap, RunLoop& runLoop) : tap_(tap), runLoop_(runLoop) {}

  /// False when the desktop lets nobody listen. A second start replaces the first. `recorder` must live until stop().
  bool start(KeyboardRecorder& recorder);
  void stop();

  /// The label of a key; nothing for one that is not shown.
  static std::optional<QString> keyLabel(const KeyEvent& event);
  /// "⌃", "⌥", "⇧", "⌘" of a mask of eventFlag values, in this order.
  static QStringList modifierLabels(std::uint32_t flags);

 private:
  void receive(const KeyEvent& event);
  void watchSecureInput();
  void record(const QStringList& keys, double hostTime, double lingering);

  EventTap& tap_;
  RunLoop& runLoop_;
  KeyboardRecorder* recorder_ = nullptr;
  std::unique_ptr<EventTap::Listening> listening_;
  std::map<std::uint16_t, QString> held_;
  bool isSecure_ = false;
  TimerHandle secureInputTimer_;
};

}  // namespace vellora
