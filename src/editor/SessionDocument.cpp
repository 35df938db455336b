#include "editor/SessionDocument.h"

namespace vellora {
namespace {

Json encode(const PieceRecord& piece) {
  Json object{{"file", piece.file.toStdString()},
              {"scale", piece.scale},
              {"origin", json::fromPoint(piece.origin)},
              {"pointSize", json::fromSize(piece.pointSize)}};
  if (piece.visibleRect) object["visibleRect"] = json::fromRect(*piece.visibleRect);
  return object;
}

/// Reads a required member; `ok` turns false when it is missing or unreadable.
template <class Reader>
auto required(const Json& object, const char* key, Reader reader, bool& ok) {
  const Json* value = json::member(object, key);
  auto result = value ? reader(*value) : decltype(reader(*value))();
  if (!result) ok = false;
  return result;
}

std::optional<PieceRecord> decodePiece(const Json& object) {
  bool ok = true;
  const auto file = required(object, "file", json::string, ok);
  const auto scale = required(object, "scale", json::number, ok);
  const auto origin = required(object, "origin", json::point, ok);
  const auto pointSize = required(object, "pointSize", json::size, ok);
  if (!ok || *scale <= 0) return std::nullopt;
  PieceRecord piece{*file, *scale, *origin, *pointSize, std::nullopt};
  if (const Json* visible = json::member(object, "visibleRect")) {
    piece.visibleRect = json::rect(*visible);
    if (!piece.visibleRect) return std::nullopt;
  }
  return piece;
}

}  // namespace

QByteArray encode(const SessionDocument& document) {
  Json pieces = Json::array();
  for (const PieceRecord& piece : document.pieces) pieces.push_back(encode(piece));
  return json::serialize(Json{{"version", document.version},
                              {"capturedAt", json::fromDate(document.capturedAt)},
                              {"savedAt", json::fromDate(document.savedAt)},
                              {"pixelWidth", document.pixelWidth},
                              {"pixelHeight", document.pixelHeight},
                              {"backdrop", document.backdrop},
                              {"pieces", pieces},
                              {"annotations", document.annotations}});
}

Result<SessionDocument, SessionDocumentError> decodeSessionDocument(const QByteArray& text) {
  const auto parsed = json::parse(text);
  if (!parsed || !parsed->is_object()) return failure(SessionDocumentError::Malformed);
  const Json& object = *parsed;
  bool ok = true;
  const auto version = required(object, "version", json::integer, ok);
  const auto capturedAt = required(object, "capturedAt", json::date, ok);
  const auto savedAt = required(object, "savedAt", json::date, ok);
  const auto pixelWidth = required(object, "pixelWidth", json::integer, ok);
  const auto pixelHeight = required(object, "pixelHeight", json::integer, ok);
  const Json* backdrop = json::member(object, "backdrop");
  const Json* pieces = json::member(object, "pieces");
  const Json* annotations = json::member(object, "annotations");
  if (!ok || !backdrop || !backdrop->is_object() || !pieces || !pieces->is_array() || !annotations ||
      !annotations->is_array() || pieces->size() > sessionLimits::pieces || *pixelWidth < 0 ||
      *pixelWidth > sessionLimits::edge || *pixelHeight < 0 || *pixelHeight > sessionLimits::edge) {
    return failure(SessionDocumentError::Malformed);
  }
  SessionDocument document;
  document.version = static_cast<int>(*version);
  document.capturedAt = *capturedAt;
  document.savedAt = *savedAt;
  document.pixelWidth = *pixelWidth;
  document.pixelHeight = *pixelHeight;
  document.backdrop = *backdrop;
  for (const Json& record : *pieces) {
    auto piece = decodePiece(record);
    if (!piece) return failure(SessionDocumentError::Malformed);
    document.pieces.push_back(std::move(*piece));
  }
  for (const Json& record : *annotations) {
    const Json* kind = json::member(record, "kind");
    const auto number = kind ? json::integer(*kind) : std::nullopt;
    if (!number) return failure(SessionDocumentError::Malformed);
    if (*number < 0 || *number >= annotationKindCount) return failure(SessionDocumentError::UnknownKind);
  }
  document.annotations = *annotations;
  if (document.pieces.empty()) return failure(SessionDocumentError::NoPieces);
  return document;
}

Json defaultBackdropRecord() {
  constexpr double gray = 0.851;
  return Json{{"enabled", false},
              {"background", Json{{"kind", "solid"}, {"color", json::fromColor({gray, gray, gray, 1})}}},
              {"aspect", 0},
              {"insetFraction", 0.06},
              {"shadow", 0.32},
              {"innerRadius", 10.0},
              {"tiltX", 0.0},
              {"tiltY", 0.0},
              {"rotation", 0.0},
              {"edgeBlurDirection", 0},
              {"edgeBlurStrength", 0.0},
              {"noiseIntensity", 0.0},
              {"glowIntensity", 0.0},
              {"glowCenter", json::fromPoint({0.5, 0.85})},
              {"contentScale", 1.0},
              {"contentOffset", json::fromPoint({0, 0})}};
}

}  // namespace vellora
