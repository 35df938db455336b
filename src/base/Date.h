#pragma once

#include <QDateTime>
#include <QString>

namespace vellora {

/// A moment, kept as fractional seconds since 2001-01-01 00:00:00 UTC, the form dates are stored in.
struct Date {
  double secondsSinceReference = 0;

  static Date fromDateTime(const QDateTime& moment);
  /// The moment in the machine's time zone, truncated to milliseconds.
  QDateTime toDateTime() const;

  // The check takes the compiler's own comparison with 0 for a pointer.
  friend auto operator<=>(const Date&, const Date&) = default;  // NOLINT(modernize-use-nullptr)
};

/// Which part of a second a capture's name carries.
enum class NamePrecision { Seconds, Milliseconds };

/// "Vellora 2026-11-22 at 21.26.23.042": the stem of a saved capture; milliseconds are truncated, not rounded.
QString captureFileStem(Date capturedAt, NamePrecision precision);

}  // namespace vellora
