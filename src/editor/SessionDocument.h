#pragma once

#include <optional>
#include <vector>

#include <QString>

#include "base/Json.h"
#include "base/Result.h"

namespace vellora {

/// A piece as stored in "session.json".
struct PieceRecord {
  QString file;  ///< name of the piece's PNG in the session folder
  double scale = 1;
  Point origin;
  Size pointSize;
  std::optional<Rect> visibleRect;  ///< absent: the whole source
  friend bool operator==(const PieceRecord&, const PieceRecord&) = default;
};

/// The content of a session folder's "session.json": one capture with everything that was done to it. Annotations and
/// the backdrop are kept as the JSON they are stored as, so that a document goes through unchanged.
struct SessionDocument {
  static constexpr int currentVersion = 1;

  int version = currentVersion;
  Date capturedAt;
  Date savedAt;
  std::int64_t pixelWidth = 0;  ///< of the union of all pieces
  std::int64_t pixelHeight = 0;
  Json backdrop = Json::object();
  std::vector<PieceRecord> pieces;   ///< in canvas order
  Json annotations = Json::array();  ///< in z-order, first drawn first
};

enum class SessionDocumentError {
  Malformed,    ///< no JSON, or a key is missing or has another type
  UnknownKind,  ///< an annotation of a kind this version does not know
  NoPieces,
};

/// Upper bounds of what is read; larger documents are refused as malformed.
namespace sessionLimits {
inline constexpr qint64 documentBytes = 64 << 20;
inline constexpr std::size_t pieces = 256;
inline constexpr std::int64_t edge = 1 << 20;  ///< of the whole canvas in pixels
}  // namespace sessionLimits

QByteArray encode(const SessionDocument& document);
Result<SessionDocument, SessionDocumentError> decodeSessionDocument(const QByteArray& text);

/// The backdrop of a document that has none yet: off, with the values a person starts from when turning it on.
Json defaultBackdropRecord();

/// The number of annotation kinds; stored kinds run from 0 to one less.
inline constexpr int annotationKindCount = 9;

}  // namespace vellora
