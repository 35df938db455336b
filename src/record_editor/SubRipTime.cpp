#include "record_editor/SubRipTime.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <QRegularExpression>

namespace vellora {
namespace {

/// Later times are written as this one, so that every step below is exact. Milliseconds.
constexpr double latest = 1e13;

/// The time whose four fields begin at group `first`.
double seconds(const QRegularExpressionMatch& match, int first) {
  const double whole = match.captured(first).toDouble() * 3600 + match.captured(first + 1).toDouble() * 60 +
                       match.captured(first + 2).toDouble();
  const double fraction = match.captured(first + 3).leftJustified(3, u'0').toDouble();
  // From whole milliseconds, so that a time read is the very number that was written.
  return (whole * 1000 + fraction) / 1000;
}

}  // namespace

QString SubRipTime::format(double seconds) {
  const auto total = std::isfinite(seconds) && seconds > 0 ? std::llround(std::min(seconds * 1000, latest)) : 0;
  const auto field = [](std::int64_t number, int digits) {
    return QString::number(number).rightJustified(digits, u'0');
  };
  return field(total / 3'600'000, 2) + u':' + field(total / 60'000 % 60, 2) + u':' + field(total / 1000 % 60, 2) +
         u',' + field(total % 1000, 3);
}

std::optional<SubRipTime::Range> SubRipTime::firstRange(const QString& text) {
  static const QRegularExpression form(
      QStringLiteral("(\\d{1,9}):(\\d{1,2}):(\\d{1,2})[,.](\\d{1,3})\\s*-->\\s*"
                     "(\\d{1,9}):(\\d{1,2}):(\\d{1,2})[,.](\\d{1,3})"));
  const auto match = form.match(text);
  if (!match.hasMatch()) return std::nullopt;
  return Range{seconds(match, 1), seconds(match, 5), match.capturedStart(), match.capturedLength()};
}

}  // namespace vellora
