#include "editor/AnnotationRecord.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

/// Either way, for values without a natural limit.
constexpr double anyNumber = 1e9;

bool isPlace(Point point) {
  constexpr double limit = annotationLimits::coordinate;
  return std::abs(point.x) <= limit && std::abs(point.y) <= limit;
}

double within(double value, double least, double most) {
  return std::isfinite(value) ? std::clamp(value, least, most) : std::clamp(0.0, least, most);
}

Json storedPlace(Point point) {
  constexpr double limit = annotationLimits::coordinate;
  return json::fromPoint({within(point.x, -limit, limit), within(point.y, -limit, limit)});
}

Json storedColor(const ColorComponents& color) {
  return json::fromColor(
      {within(color.red, 0, 1), within(color.green, 0, 1), within(color.blue, 0, 1), within(color.alpha, 0, 1)});
}

Json storedText(const QString& text) {
  if (text.size() <= annotationLimits::textLength) return json::fromString(text);
  const bool isSplit = text[annotationLimits::textLength].isLowSurrogate();
  return json::fromString(text.first(annotationLimits::textLength - (isSplit ? 1 : 0)));
}

/// Every so-manieth element, so that no more are left than are read.
template <class T, class Store>
Json storedArray(const std::vector<T>& elements, Store store) {
  const std::size_t step =
      std::max<std::size_t>(1, (elements.size() + annotationLimits::penPoints - 1) / annotationLimits::penPoints);
  Json array = Json::array();
  for (std::size_t i = 0; i < elements.size(); i += step) array.push_back(store(elements[i]));
  return array;
}

/// Reads the members of one record. A required member that is missing, or any that cannot be read, makes it unreadable.
class RecordReader {
 public:
  explicit RecordReader(const Json& record) : record_(record), ok_(record.is_object()) {}

  bool isOk() const { return ok_; }

  template <class T>
  void required(const char* key, std::optional<T> (*read)(const Json&), T& target) {
    const Json* value = json::member(record_, key);
    take(value ? read(*value) : std::nullopt, target);
  }
  template <class T>
  void optional(const char* key, std::optional<T> (*read)(const Json&), std::optional<T>& target) {
    const Json* value = json::member(record_, key);
    if (!value) return;
    T read_value;
    take(read(*value), read_value);
    if (ok_) target = std::move(read_value);
  }
  /// A number within `least` and `most`.
  void number(const char* key, double least, double most, double& target) {
    double value = 0;
    required(key, json::number, value);
    if (!(value >= least && value <= most)) ok_ = false;
    target = value;
  }
  /// The raw value of an enumeration that has `count` values.
  template <class E>
  void enumeration(const char* key, std::int64_t count, E& target) {
    std::int64_t raw = -1;
    required(key, json::integer, raw);
    if (raw < 0 || raw >= count) {
      ok_ = false;
      return;
    }
    target = static_cast<E>(raw);
  }

 private:
  template <class T>
  void take(std::optional<T> value, T& target) {
    if (!value) {
      ok_ = false;
    } else {
      target = std::move(*value);
    }
  }

  const Json& record_;
  bool ok_;
};

std::optional<Point> place(const Json& value) {
  const auto point = json::point(value);
  return point && isPlace(*point) ? point : std::nullopt;
}

std::optional<QString> boundedText(const Json& value) {
  auto text = json::string(value);
  return text && text->size() <= annotationLimits::textLength ? std::move(text) : std::nullopt;
}

std::optional<int> counterNumber(const Json& value) {
  const auto number = json::integer(value);
  if (!number || *number < INT32_MIN || *number > INT32_MAX) return std::nullopt;
  return static_cast<int>(*number);
}

std::optional<std::uint64_t> unsignedInteger(const Json& value) {
  if (value.is_number_unsigned()) return value.get<std::uint64_t>();
  const auto number = json::integer(value);
  if (!number || *number < 0) return std::nullopt;
  return static_cast<std::uint64_t>(*number);
}

template <class T, std::optional<T> (*read)(const Json&)>
std::optional<std::vector<T>> boundedArray(const Json& value) {
  if (!value.is_array() || value.size() > annotationLimits::penPoints) return std::nullopt;
  std::vector<T> result;
  result.reserve(value.size());
  for (const Json& element : value) {
    auto item = read(element);
    if (!item) return std::nullopt;
    result.push_back(std::move(*item));
  }
  return result;
}

}  // namespace

Json encodeAnnotation(const Annotation& annotation) {
  Json record{{"kind", static_cast<int>(annotation.kind)},
              {"p1", storedPlace(annotation.p1)},
              {"p2", storedPlace(annotation.p2)}};
  if (annotation.control) record["control"] = storedPlace(*annotation.control);
  record["color"] = storedColor(annotation.color);
  record["lineWidth"] = within(annotation.lineWidth, 0, annotationLimits::lineWidth);
  record["text"] = storedText(annotation.text);
  record["number"] = annotation.number;
  record["tailAngle"] = within(annotation.tailAngle, -anyNumber, anyNumber);
  record["textBackground"] = annotation.textBackground;
  record["textHandwritten"] = annotation.textHandwritten;
  record["textBoxWidth"] = within(annotation.textBoxWidth, 0, annotationLimits::coordinate);
  record["arrowSketch"] = annotation.sketch;
  if (annotation.shapeFill) record["shapeFill"] = *annotation.shapeFill;
  record["sketchSeed"] = annotation.sketchSeed;
  record["blurStyle"] = static_cast<int>(annotation.blurStyle);
  record["blurStrength"] = within(annotation.blurStrength, 0, anyNumber);
  if (annotation.eraseFillColor) record["eraseFillColor"] = storedColor(*annotation.eraseFillColor);
  record["magnification"] = within(annotation.magnification, 0, anyNumber);
  record["magnifierShape"] = static_cast<int>(annotation.magnifierShape);
  if (annotation.penPoints) record["penPoints"] = storedArray(*annotation.penPoints, storedPlace);
  if (annotation.penPressures) {
    record["penPressures"] =
        storedArray(*annotation.penPressures, [](double pressure) { return within(pressure, -anyNumber, anyNumber); });
  }
  return record;
}

std::optional<Annotation> decodeAnnotation(const Json& record) {
  Annotation result;
  RecordReader reader(record);
  reader.enumeration("kind", Annotation::kindCount, result.kind);
  reader.required("p1", place, result.p1);
  reader.required("p2", place, result.p2);
  reader.optional("control", place, result.control);
  reader.required("color", json::color, result.color);
  reader.number("lineWidth", 0, annotationLimits::lineWidth, result.lineWidth);
  reader.required("text", boundedText, result.text);
  reader.required("number", counterNumber, result.number);
  reader.number("tailAngle", -anyNumber, anyNumber, result.tailAngle);
  reader.required("textBackground", json::boolean, result.textBackground);
  reader.required("textHandwritten", json::boolean, result.textHandwritten);
  reader.number("textBoxWidth", 0, annotationLimits::coordinate, result.textBoxWidth);
  reader.required("arrowSketch", json::boolean, result.sketch);
  reader.optional("shapeFill", json::boolean, result.shapeFill);
  reader.required("sketchSeed", unsignedInteger, result.sketchSeed);
  reader.enumeration("blurStyle", 3, result.blurStyle);
  reader.number("blurStrength", 0, anyNumber, result.blurStrength);
  reader.optional("eraseFillColor", json::color, result.eraseFillColor);
  reader.number("magnification", 0, anyNumber, result.magnification);
  reader.enumeration("magnifierShape", 2, result.magnifierShape);
  reader.optional("penPoints", boundedArray<Point, place>, result.penPoints);
  reader.optional("penPressures", boundedArray<double, json::number>, result.penPressures);
  if (!reader.isOk()) return std::nullopt;
  result.id = newAnnotationId();
  return result;
}

}  // namespace vellora
