#include "base/Date.h"

#include <cmath>

#include <QTimeZone>

namespace vellora {
namespace {

constexpr qint64 referenceEpochMilliseconds = 978307200000;  // 2001-01-01 00:00:00 UTC after 1970

}  // namespace

Date Date::fromDateTime(const QDateTime& moment) {
  return {static_cast<double>(moment.toMSecsSinceEpoch() - referenceEpochMilliseconds) / 1000.0};
}

QDateTime Date::toDateTime() const {
  // A hair is added before truncating, so that a whole millisecond survives its way through a double.
  const double milliseconds = std::floor(secondsSinceReference * 1000.0 + 1e-3);
  constexpr double limit = 8.0e15;  // beyond any calendar, and safely inside qint64
  const double bounded = std::isfinite(milliseconds) ? std::clamp(milliseconds, -limit, limit) : 0.0;
  return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(bounded) + referenceEpochMilliseconds);
}

QString captureFileStem(Date capturedAt, NamePrecision precision) {
  const QString format = precision == NamePrecision::Milliseconds ? QStringLiteral("yyyy-MM-dd 'at' HH.mm.ss.zzz")
                                                                  : QStringLiteral("yyyy-MM-dd 'at' HH.mm.ss");
  return QStringLiteral("Vellora ") + capturedAt.toDateTime().toString(format);
}

}  // namespace vellora
