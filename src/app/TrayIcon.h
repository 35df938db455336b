#pragma once

#include <functional>
#include <optional>

#include <QSystemTrayIcon>

namespace vellora {

/// The icon in the desktop's tray. Where there is no tray yet it appears by itself once there is one.
class TrayIcon final {
 public:
  explicit TrayIcon(QMenu* menu);

  static bool isTrayAvailable() { return QSystemTrayIcon::isSystemTrayAvailable(); }

  void show();
  void setToolTip(const QString& text) { icon_.setToolTip(text); }
  /// Shows the seconds a countdown has left in place of the mark; nothing brings the mark back.
  void setCountdown(std::optional<int> remaining);
  /// Marks the icon while something is recorded.
  void setRecording(bool isRecording);

 private:
  void showMark();

  bool isRecording_ = false;
  QSystemTrayIcon icon_;
};

}  // namespace vellora
