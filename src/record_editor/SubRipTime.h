#pragma once

#include <optional>

#include <QString>

namespace vellora {

/// Times as SubRip files write them, "HH:MM:SS,mmm", in seconds.
class SubRipTime {
 public:
  /// Rounded to the nearest millisecond; negative and infinite times are 0. Hours may have more than two digits.
  static QString format(double seconds);

  /// A time range found in a text.
  struct Range {
    double start = 0;
    double end = 0;  ///< may lie before the start
    qsizetype position = 0;
    qsizetype length = 0;
  };
  /// The first "time --> time" in `text`. A comma or a dot stands before the milliseconds, which count as a decimal
  /// fraction: ".5" is 500 ms.
  static std::optional<Range> firstRange(const QString& text);
};

}  // namespace vellora
