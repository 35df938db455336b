#include "cli/Values.h"

#include <cmath>

#include <QStringList>

namespace vellora::cli {

std::optional<std::int64_t> parseInteger(const std::string& text) {
  bool ok = false;
  const qint64 value = QString::fromStdString(text).trimmed().toLongLong(&ok, 0);
  if (!ok) return std::nullopt;
  return value;
}

std::optional<PixelRect> parseRegion(const std::string& text) {
  const QStringList parts = QString::fromStdString(text).split(u',');
  if (parts.size() != 4) return std::nullopt;
  constexpr std::int64_t limit = 1 << 20;
  int numbers[4];
  for (qsizetype i = 0; i < 4; ++i) {
    const auto number = parseInteger(parts[i].toStdString());
    if (!number || std::abs(*number) > limit) return std::nullopt;
    numbers[i] = static_cast<int>(*number);
  }
  const PixelRect rect{numbers[0], numbers[1], numbers[2], numbers[3]};
  if (rect.isEmpty()) return std::nullopt;
  return rect;
}

std::optional<WindowId> parseWindow(const std::string& text) {
  const auto id = parseInteger(text);
  if (!id || *id < 0 || *id > UINT32_MAX) return std::nullopt;
  return static_cast<WindowId>(*id);
}

}  // namespace vellora::cli
