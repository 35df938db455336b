#include "editor/canvas/AnnotationClip.h"

#include <algorithm>

#include "editor/AnnotationRecord.h"

namespace vellora {
namespace {

constexpr int currentVersion = 1;
constexpr char versionKey[] = "version";
constexpr char annotationsKey[] = "annotations";

}  // namespace

QByteArray encodeClip(std::span<const AnnotationPtr> annotations) {
  Json records = Json::array();
  for (const AnnotationPtr& annotation : annotations) records.push_back(encodeAnnotation(*annotation));
  return json::serialize(Json{{versionKey, currentVersion}, {annotationsKey, std::move(records)}});
}

std::optional<std::vector<AnnotationPtr>> decodeClip(const QByteArray& bytes) {
  if (bytes.size() > clipLimits::bytes) return std::nullopt;
  const auto parsed = json::parse(bytes);
  if (!parsed) return std::nullopt;
  const Json* version = json::member(*parsed, versionKey);
  const Json* records = json::member(*parsed, annotationsKey);
  if (version == nullptr || json::integer(*version) != currentVersion) return std::nullopt;
  if (records == nullptr || !records->is_array() || records->empty()) return std::nullopt;
  if (records->size() > clipLimits::annotations) return std::nullopt;
  std::vector<AnnotationPtr> annotations;
  for (const Json& record : *records) {
    auto annotation = decodeAnnotation(record);
    if (!annotation) return std::nullopt;
    annotations.push_back(makeAnnotation(std::move(*annotation)));
  }
  return annotations;
}

bool coversLike(const ImageDocument& document, std::span<const AnnotationPtr> annotations) {
  return std::ranges::any_of(annotations, [&](const AnnotationPtr& one) {
    return std::ranges::any_of(document.annotations, [&](const AnnotationPtr& other) {
      return one->kind == other->kind && one->p1 == other->p1 && one->p2 == other->p2;
    });
  });
}

}  // namespace vellora
