#pragma once

#include <memory>

#include <QString>

namespace vellora {

/// Bubbles of the desktop's notification service (org.freedesktop.Notifications), one at a time: a new one takes the
/// place of the last. Main thread; returns at once, and a desktop without the service shows nothing.
class DesktopNotifier {
 public:
  DesktopNotifier();
  ~DesktopNotifier();
  DesktopNotifier(const DesktopNotifier&) = delete;
  DesktopNotifier& operator=(const DesktopNotifier&) = delete;

  /// Plain texts; `body` may be empty. False when there is no session bus to tell.
  bool notify(const QString& summary, const QString& body);

 private:
  struct Link;
  std::unique_ptr<Link> link_;
};

}  // namespace vellora
