#include "editor/SessionDocument.h"

#include <algorithm>
#include <cmath>

#include "base/Log.h"
#include "editor/AnnotationRecord.h"
#include "editor/BackdropRecord.h"

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
  if (!ok || *scale < sessionLimits::leastScale || *scale > sessionLimits::mostScale) return std::nullopt;
  if (std::abs(origin->x) > sessionLimits::coordinate || std::abs(origin->y) > sessionLimits::coordinate) {
    return std::nullopt;
  }
  PieceRecord piece{*file, *scale, *origin, *pointSize, std::nullopt};
  if (const Json* visible = json::member(object, "visibleRect")) {
    piece.visibleRect = json::rect(*visible);
    if (!piece.visibleRect) return std::nullopt;
  }
  return piece;
}

Result<DocumentLayers, SessionDocumentError> layersOf(const Json& annotations, const Json& backdrop) {
  DocumentLayers layers;
  auto settings = decodeBackdrop(backdrop);
  if (!settings || !annotations.is_array() || annotations.size() > sessionLimits::annotations) {
    return failure(SessionDocumentError::Malformed);
  }
  layers.backdrop = std::move(*settings);
  for (const Json& record : annotations) {
    const Json* kind = json::member(record, "kind");
    const auto number = kind ? json::integer(*kind) : std::nullopt;
    if (!number) return failure(SessionDocumentError::Malformed);
    if (*number < 0 || *number >= Annotation::kindCount) return failure(SessionDocumentError::UnknownKind);
    auto annotation = decodeAnnotation(record);
    if (!annotation) return failure(SessionDocumentError::Malformed);
    layers.annotations.push_back(makeAnnotation(std::move(*annotation)));
  }
  return layers;
}

}  // namespace

Result<DocumentLayers, SessionDocumentError> decodeDocumentLayers(const QByteArray& text) {
  const auto parsed = json::parse(text);
  const Json* annotations = parsed ? json::member(*parsed, "annotations") : nullptr;
  if (!annotations) return failure(SessionDocumentError::Malformed);
  const Json* backdrop = json::member(*parsed, "backdrop");
  return layersOf(*annotations, backdrop ? *backdrop : Json::object());
}

QByteArray encode(const SessionDocument& document) {
  Json pieces = Json::array();
  for (const PieceRecord& piece : document.pieces) pieces.push_back(encode(piece));
  Json annotations = Json::array();
  for (const AnnotationPtr& annotation : document.annotations) annotations.push_back(encodeAnnotation(*annotation));
  return json::serialize(Json{{"version", document.version},
                              {"capturedAt", json::fromDate(document.capturedAt)},
                              {"savedAt", json::fromDate(document.savedAt)},
                              {"pixelWidth", document.pixelWidth},
                              {"pixelHeight", document.pixelHeight},
                              {"backdrop", encodeBackdrop(document.backdrop)},
                              {"pieces", pieces},
                              {"annotations", std::move(annotations)}});
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
      pieces->size() > sessionLimits::pieces || *pixelWidth < 0 || *pixelWidth > sessionLimits::edge ||
      *pixelHeight < 0 || *pixelHeight > sessionLimits::edge) {
    return failure(SessionDocumentError::Malformed);
  }
  SessionDocument document;
  document.version = static_cast<int>(*version);
  document.capturedAt = *capturedAt;
  document.savedAt = *savedAt;
  document.pixelWidth = *pixelWidth;
  document.pixelHeight = *pixelHeight;
  for (const Json& record : *pieces) {
    auto piece = decodePiece(record);
    if (!piece) return failure(SessionDocumentError::Malformed);
    document.pieces.push_back(std::move(*piece));
  }
  auto layers = layersOf(*annotations, *backdrop);
  if (!layers) return failure(layers.error());
  document.annotations = std::move(layers->annotations);
  document.backdrop = std::move(layers->backdrop);
  if (document.pieces.empty()) return failure(SessionDocumentError::NoPieces);
  return document;
}

namespace {

double within(double value, double least, double most) {
  return std::isfinite(value) ? std::clamp(value, least, most) : std::clamp(0.0, least, most);
}

std::int64_t wholePixels(double length) {
  return std::llround(within(length, 0, static_cast<double>(sessionLimits::edge)));
}

PieceRecord recordOf(const CapturePiece& piece, const QString& file) {
  constexpr double far = sessionLimits::coordinate;
  PieceRecord record{file,
                     within(piece.scale, sessionLimits::leastScale, sessionLimits::mostScale),
                     {within(piece.origin.x, -far, far), within(piece.origin.y, -far, far)},
                     piece.pointSize,
                     {}};
  if (piece.isCropped()) record.visibleRect = piece.visibleRect;
  return record;
}

}  // namespace

SessionDocument makeSessionDocument(const ImageDocument& document, const std::vector<QString>& files, Date capturedAt,
                                    Date savedAt) {
  SessionDocument session;
  session.capturedAt = capturedAt;
  session.savedAt = savedAt;
  session.backdrop = document.backdrop;
  session.annotations = document.annotations;
  if (session.annotations.size() > sessionLimits::annotations) {
    log::warning(QStringLiteral("a document has more annotations than can be stored; the last ones are left out"));
    session.annotations.resize(sessionLimits::annotations);
  }
  for (std::size_t i = 0; i < std::min(document.pieces.size(), sessionLimits::pieces); ++i) {
    session.pieces.push_back(recordOf(document.pieces[i], files.at(i)));
  }
  const Rect all = document.contentRect();
  session.pixelWidth = wholePixels(all.size.width * document.outputScale());
  session.pixelHeight = wholePixels(all.size.height * document.outputScale());
  return session;
}

std::optional<CapturePiece> makePiece(const PieceRecord& record, const Bitmap& image) {
  CapturePiece piece = makePiece(image, record.scale);
  piece.origin = record.origin;
  if (record.visibleRect) {
    const Rect& wanted = *record.visibleRect;
    const double left = std::clamp(wanted.minX(), 0.0, piece.sourceSize.width);
    const double top = std::clamp(wanted.minY(), 0.0, piece.sourceSize.height);
    const double right = std::clamp(wanted.maxX(), left, piece.sourceSize.width);
    const double bottom = std::clamp(wanted.maxY(), top, piece.sourceSize.height);
    piece.visibleRect = {{left, top}, {right - left, bottom - top}};
    if (piece.visibleRect.isEmpty()) return std::nullopt;
  }
  piece.pointSize = piece.visibleRect.size;
  return piece;
}

}  // namespace vellora
