#include "kit/Compositing.h"

#include <QGuiApplication>

namespace vellora {
namespace {

std::function<bool(const QScreen*)>& probeSlot() {
  static std::function<bool(const QScreen*)> probe;
  return probe;
}

}  // namespace

bool isComposited(const QScreen* screen) {
  if (const auto& probe = probeSlot()) return probe(screen);
  return QGuiApplication::platformName() != QLatin1String("xcb");
}

void setCompositingProbe(std::function<bool(const QScreen*)> probe) {
  probeSlot() = std::move(probe);
}

}  // namespace vellora
