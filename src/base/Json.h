#pragma once

#include <optional>
#include <string_view>

#include <nlohmann/json.hpp>

#include <QByteArray>
#include <QString>

#include "base/Color.h"
#include "base/Date.h"
#include "base/Geometry.h"
#include "base/Result.h"

namespace vellora {

/// JSON with keys in the order they were written.
using Json = nlohmann::ordered_json;

/// The stored forms of the shared values: a point is [x, y], a size [width, height], a rectangle [[x, y], [width,
/// height]], a colour an object with the keys red, green, blue, alpha, a date seconds since 2001-01-01 00:00:00 UTC.
namespace json {

/// Documents nested deeper than this are refused.
inline constexpr int maximumDepth = 64;
/// Objects with more members than this are refused.
inline constexpr int maximumMembers = 4096;
/// Documents with more values than this are refused: one of two bytes takes up to a hundred in memory.
inline constexpr int maximumValues = 6'000'000;

enum class Error { Malformed, TooDeep, TooWide };

/// Parses outside text. Never throws.
Result<Json, Error> parse(const QByteArray& text);

/// Compact UTF-8 without a byte-order mark; text that is not UTF-8 is replaced, never thrown at.
QByteArray serialize(const Json& value);

Json fromPoint(Point point);
Json fromSize(Size size);
Json fromRect(const Rect& rect);
Json fromColor(const ColorComponents& color);
Json fromDate(Date date);
Json fromString(const QString& text);

/// Each reader gives nothing when the value is missing, has another type or holds a number that is not finite.
std::optional<double> number(const Json& value);
std::optional<std::int64_t> integer(const Json& value);
std::optional<bool> boolean(const Json& value);
std::optional<QString> string(const Json& value);
std::optional<Point> point(const Json& value);
std::optional<Size> size(const Json& value);
std::optional<Rect> rect(const Json& value);
std::optional<ColorComponents> color(const Json& value);
std::optional<Date> date(const Json& value);

/// The member `key` of an object, or nullptr when `value` is no object, the key is missing, or its value is null.
const Json* member(const Json& value, std::string_view key);

}  // namespace json
}  // namespace vellora
