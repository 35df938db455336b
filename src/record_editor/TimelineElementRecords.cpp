#include "record_editor/TimelineElementRecords.h"

#include <algorithm>
#include <cmath>

#include "base/JsonFields.h"
#include "editor/AnnotationRecord.h"
#include "record_editor/BundleFiles.h"

namespace vellora {
namespace {

constexpr qsizetype longestText = 100'000;
constexpr std::size_t mostAnnotations = 10'000;

Json withRange(const QUuid& id, double start, double end) {
  return Json{{"id", json::fromString(id.toString(QUuid::WithoutBraces))}, {"start", start}, {"end", end}};
}

QUuid identityOf(const Json& record) {
  const Json* stored = json::member(record, "id");
  const auto text = stored ? json::string(*stored) : std::nullopt;
  const QUuid id = text ? QUuid::fromString(*text) : QUuid();
  return id.isNull() ? QUuid::createUuid() : id;
}

std::optional<QString> text(const Json& value) {
  auto result = json::string(value);
  return result && result->size() <= longestText ? result : std::nullopt;
}

/// An element with its identity and range; nothing without a range.
template <class Element>
std::optional<Element> ranged(const Json& record) {
  Element element;
  json::FieldReader fields(record);
  fields.required(element.start, "start", json::number);
  fields.required(element.end, "end", json::number);
  if (!fields.ok() || !bundleFiles::isSourceRange(element.start, element.end)) return std::nullopt;
  if constexpr (requires { element.id; }) element.id = identityOf(record);
  return element;
}

}  // namespace

Json encodeElement(const TrimElement& trim) {
  Json record = withRange(trim.id, trim.start, trim.end);
  if (trim.note) record["note"] = json::fromString(*trim.note);
  return record;
}

template <>
std::optional<TrimElement> decodeElement(const Json& record) {
  auto trim = ranged<TrimElement>(record);
  if (!trim) return std::nullopt;
  json::FieldReader fields(record);
  fields.into(trim->note, "note", text);
  return fields.ok() ? trim : std::nullopt;
}

Json encodeElement(const ZoomElement& element) {
  const ZoomElement zoom = element.clamped();
  Json record = withRange(zoom.id, zoom.start, zoom.end);
  record["amount"] = zoom.amount;
  record["focusX"] = zoom.focusX;
  record["focusY"] = zoom.focusY;
  record["inDuration"] = zoom.inDuration;
  record["outDuration"] = zoom.outDuration;
  return record;
}

template <>
std::optional<ZoomElement> decodeElement(const Json& record) {
  auto zoom = ranged<ZoomElement>(record);
  if (!zoom) return std::nullopt;
  json::FieldReader fields(record);
  fields.required(zoom->amount, "amount", json::number);
  fields.required(zoom->focusX, "focusX", json::number);
  fields.required(zoom->focusY, "focusY", json::number);
  fields.required(zoom->inDuration, "inDuration", json::number);
  fields.required(zoom->outDuration, "outDuration", json::number);
  return fields.ok() ? std::optional(zoom->clamped()) : std::nullopt;
}

Json encodeElement(const SpeedElement& speed) {
  Json record = withRange(speed.id, speed.start, speed.end);
  record["rate"] = speed.rate;
  return record;
}

template <>
std::optional<SpeedElement> decodeElement(const Json& record) {
  auto speed = ranged<SpeedElement>(record);
  if (!speed) return std::nullopt;
  json::FieldReader fields(record);
  fields.required(speed->rate, "rate", json::number);
  if (!fields.ok() || speed->rate <= 0) return std::nullopt;
  speed->rate = std::clamp(speed->rate, SpeedElement::leastRate, SpeedElement::greatestRate);
  return speed;
}

Json encodeElement(const MaskElement& mask) {
  Json record = withRange(mask.id, mask.start, mask.end);
  Json annotations = Json::array();
  for (const Annotation& annotation : mask.annotations) annotations.push_back(encodeAnnotation(annotation));
  record["annotations"] = std::move(annotations);
  return record;
}

template <>
std::optional<MaskElement> decodeElement(const Json& record) {
  auto mask = ranged<MaskElement>(record);
  const Json* annotations = json::member(record, "annotations");
  if (!mask || !annotations || !annotations->is_array() || annotations->size() > mostAnnotations) return std::nullopt;
  for (const Json& value : *annotations) {
    auto annotation = decodeAnnotation(value);
    if (!annotation) return std::nullopt;
    mask->annotations.push_back(std::move(*annotation));
  }
  return mask;
}

Json encodeElement(const LayoutElement& layout) {
  Json record = withRange(layout.id, layout.start, layout.end);
  record["pose"] = encodePose(layout.pose);
  return record;
}

template <>
std::optional<LayoutElement> decodeElement(const Json& record) {
  auto layout = ranged<LayoutElement>(record);
  if (!layout) return std::nullopt;
  json::FieldReader fields(record);
  fields.required(layout->pose, "pose", decodePose);
  return fields.ok() ? layout : std::nullopt;
}

Json encodeElement(const CaptionElement& caption) {
  Json record = withRange(caption.id, caption.start, caption.end);
  record["text"] = json::fromString(caption.text);
  return record;
}

template <>
std::optional<CaptionElement> decodeElement(const Json& record) {
  auto caption = ranged<CaptionElement>(record);
  if (!caption) return std::nullopt;
  json::FieldReader fields(record);
  fields.required(caption->text, "text", text);
  return fields.ok() ? caption : std::nullopt;
}

Json encodeElement(const TextCard& card) {
  Json record{{"id", json::fromString(card.id.toString(QUuid::WithoutBraces))},
              {"anchor", card.anchor},
              {"text", json::fromString(card.text)}};
  if (std::isfinite(card.duration)) record["duration"] = card.duration;
  record["dark"] = card.dark;
  record["fontSize"] = card.fontSize;
  record["textWidth"] = card.textWidth;
  record["handwritten"] = card.handwritten;
  return record;
}

template <>
std::optional<TextCard> decodeElement(const Json& record) {
  TextCard card;
  json::FieldReader fields(record);
  fields.required(card.anchor, "anchor", json::number);
  fields.required(card.text, "text", text);
  fields.into(card.duration, "duration", json::number);
  fields.into(card.dark, "dark", json::boolean);
  fields.into(card.fontSize, "fontSize", json::number);
  fields.into(card.textWidth, "textWidth", json::number);
  fields.into(card.handwritten, "handwritten", json::boolean);
  if (!fields.ok() || !bundleFiles::isSourceTime(card.anchor)) return std::nullopt;
  card.id = identityOf(record);
  card.fontSize = std::clamp(card.fontSize, 8.0, 1000.0);
  card.textWidth = std::clamp(card.textWidth, 0.0, 1e5);
  return card;
}

Json encodeElement(const WordStamp& word) {
  return Json{{"text", json::fromString(word.text)}, {"start", word.start}, {"end", word.end}};
}

template <>
std::optional<WordStamp> decodeElement(const Json& record) {
  auto word = ranged<WordStamp>(record);
  if (!word) return std::nullopt;
  json::FieldReader fields(record);
  fields.required(word->text, "text", text);
  return fields.ok() ? word : std::nullopt;
}

}  // namespace vellora
