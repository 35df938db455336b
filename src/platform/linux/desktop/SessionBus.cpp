#include "platform/linux/desktop/SessionBus.h"

#include <sys/stat.h>

#include <QByteArray>

namespace vellora::sessionBus {
namespace {

constexpr char addressVariable[] = "DBUS_SESSION_BUS_ADDRESS";

}  // namespace

bool isReachable() {
  const QByteArray address = qgetenv(addressVariable);
  if (!address.isEmpty()) return !address.startsWith("disabled:") && !address.startsWith("autolaunch:");
  const QByteArray runtimeFolder = qgetenv("XDG_RUNTIME_DIR");
  if (runtimeFolder.isEmpty()) return false;
  struct stat info {};
  return ::stat((runtimeFolder + "/bus").constData(), &info) == 0 && S_ISSOCK(info.st_mode);
}

void forbidAutolaunch() {
  if (!isReachable()) qputenv(addressVariable, "disabled:");
}

}  // namespace vellora::sessionBus
