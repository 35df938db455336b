#include "kit/TimeText.h"

#include <algorithm>
#include <cmath>

namespace vellora {

QString elapsedText(double seconds) {
  const auto whole = static_cast<long long>(std::max(0.0, std::floor(seconds + 1e-9)));
  const auto two = [](long long number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
  const QString tail = two(whole / 60 % 60) + QLatin1Char(':') + two(whole % 60);
  return whole < 3600 ? tail : QStringLiteral("%1:%2").arg(whole / 3600).arg(tail);
}

}  // namespace vellora
