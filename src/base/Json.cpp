#include "base/Json.h"

#include <array>
#include <cmath>

#include <QStringDecoder>

namespace vellora::json {
namespace {

/// Checked before parsing, so that no hostile nesting or width reaches the parser at all: ordered objects look a key up
/// among all those before it, which takes the square of their number.
std::optional<Error> limitBroken(const QByteArray& text) {
  std::array<int, maximumDepth + 1> members{};  // by depth, of the object open there
  std::size_t depth = 0;
  int values = 0;
  bool inString = false;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (inString) {
      if (c == '\\') ++i;
      if (c == '"') inString = false;
      continue;
    }
    if (c == '"') inString = true;
    if (c == '{' || c == '[') {
      if (++depth > maximumDepth) return Error::TooDeep;
      members[depth] = 0;
    }
    if ((c == '}' || c == ']') && depth > 0) --depth;
    if ((c == ',' || c == '{' || c == '[') && ++values > maximumValues) return Error::TooWide;
    if (c == ':' && ++members[depth] > maximumMembers) return Error::TooWide;
  }
  return std::nullopt;
}

std::optional<std::pair<double, double>> pairOfNumbers(const Json& value) {
  if (!value.is_array() || value.size() != 2) return std::nullopt;
  const auto first = number(value[0]);
  const auto second = number(value[1]);
  if (!first || !second) return std::nullopt;
  return std::pair(*first, *second);
}

}  // namespace

Result<Json, Error> parse(const QByteArray& text) {
  if (const auto broken = limitBroken(text)) return failure(*broken);
  Json value = Json::parse(text.begin(), text.end(), nullptr, /*allow_exceptions=*/false);
  if (value.is_discarded()) return failure(Error::Malformed);
  return value;
}

QByteArray serialize(const Json& value) {
  return QByteArray::fromStdString(value.dump(-1, ' ', false, Json::error_handler_t::replace));
}

Json fromPoint(Point point) {
  return Json::array({point.x, point.y});
}
Json fromSize(Size size) {
  return Json::array({size.width, size.height});
}
Json fromRect(const Rect& rect) {
  return Json::array({fromPoint(rect.origin), fromSize(rect.size)});
}
Json fromColor(const ColorComponents& c) {
  return Json{{"red", c.red}, {"green", c.green}, {"blue", c.blue}, {"alpha", c.alpha}};
}
Json fromDate(Date date) {
  return Json(date.secondsSinceReference);
}
Json fromString(const QString& text) {
  return Json(text.toStdString());
}

std::optional<double> number(const Json& value) {
  if (!value.is_number()) return std::nullopt;
  const double result = value.get<double>();
  if (!std::isfinite(result)) return std::nullopt;
  return result;
}

std::optional<std::int64_t> integer(const Json& value) {
  if (value.is_number_unsigned()) {
    const auto result = value.get<std::uint64_t>();
    if (result > static_cast<std::uint64_t>(INT64_MAX)) return std::nullopt;
    return static_cast<std::int64_t>(result);
  }
  if (value.is_number_integer()) return value.get<std::int64_t>();
  // 3.0 is a whole number too: other writers store integers that way.
  const auto real = number(value);
  constexpr double exactLimit = 9007199254740992.0;
  if (real && std::trunc(*real) == *real && std::abs(*real) <= exactLimit) return static_cast<std::int64_t>(*real);
  return std::nullopt;
}

std::optional<bool> boolean(const Json& value) {
  if (!value.is_boolean()) return std::nullopt;
  return value.get<bool>();
}

std::optional<QString> string(const Json& value) {
  if (!value.is_string()) return std::nullopt;
  const auto& text = value.get_ref<const std::string&>();
  // Unlike QString::fromUtf8 this keeps a byte-order mark at the start: within a document it is a character.
  using Flag = QStringDecoder::Flag;
  QStringDecoder decoder(QStringDecoder::Utf8, Flag::ConvertInitialBom | Flag::Stateless);
  return decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
}

std::optional<Point> point(const Json& value) {
  const auto pair = pairOfNumbers(value);
  if (!pair) return std::nullopt;
  return Point{pair->first, pair->second};
}

std::optional<Size> size(const Json& value) {
  const auto pair = pairOfNumbers(value);
  if (!pair) return std::nullopt;
  return Size{pair->first, pair->second};
}

std::optional<Rect> rect(const Json& value) {
  if (!value.is_array() || value.size() != 2) return std::nullopt;
  const auto origin = point(value[0]);
  const auto extent = size(value[1]);
  if (!origin || !extent) return std::nullopt;
  return Rect{*origin, *extent};
}

std::optional<ColorComponents> color(const Json& value) {
  ColorComponents result;
  const std::pair<const char*, double*> parts[] = {
      {"red", &result.red}, {"green", &result.green}, {"blue", &result.blue}, {"alpha", &result.alpha}};
  for (const auto& [key, target] : parts) {
    const Json* part = member(value, key);
    const auto component = part ? number(*part) : std::nullopt;
    if (!component || *component < 0 || *component > 1) return std::nullopt;
    *target = *component;
  }
  return result;
}

std::optional<Date> date(const Json& value) {
  const auto seconds = number(value);
  if (!seconds) return std::nullopt;
  return Date{*seconds};
}

const Json* member(const Json& value, std::string_view key) {
  if (!value.is_object()) return nullptr;
  const auto it = value.find(std::string(key));
  if (it == value.end() || it->is_null()) return nullptr;
  return &*it;
}

}  // namespace vellora::json
