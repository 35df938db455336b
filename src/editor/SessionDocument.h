#pragma once

#include <optional>
#include <vector>

#include <QString>

#include "base/Date.h"
#include "base/Result.h"
#include "editor/ImageDocument.h"

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

/// The content of a session folder's "session.json": one capture with everything that was done to it.
struct SessionDocument {
  static constexpr int currentVersion = 1;

  int version = currentVersion;
  Date capturedAt;
  Date savedAt;
  std::int64_t pixelWidth = 0;  ///< of the union of all pieces
  std::int64_t pixelHeight = 0;
  BackdropSettings backdrop;
  std::vector<PieceRecord> pieces;         ///< in canvas order
  std::vector<AnnotationPtr> annotations;  ///< in z-order, first drawn first
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
inline constexpr std::size_t decodedBytes = std::size_t{2} << 30;  ///< of all pictures of one session
inline constexpr std::size_t annotations = 10'000;
inline constexpr std::int64_t edge = 1 << 20;  ///< of the whole canvas in pixels
inline constexpr double coordinate = 1e7;      ///< of pieces, in points, either way
inline constexpr double leastScale = 0.01;     ///< pixels per point
inline constexpr double mostScale = 64;
}  // namespace sessionLimits

QByteArray encode(const SessionDocument& document);
Result<SessionDocument, SessionDocumentError> decodeSessionDocument(const QByteArray& text);

/// What a document draws over its pieces.
struct DocumentLayers {
  std::vector<AnnotationPtr> annotations;  ///< in z-order
  BackdropSettings backdrop;
};

/// Reads the layers of a stored session, or of an object that holds nothing but "annotations" and, if wanted,
/// "backdrop".
Result<DocumentLayers, SessionDocumentError> decodeDocumentLayers(const QByteArray& text);

/// The stored form of a document, its pieces under the given file names, in order. What lies beyond the limits of
/// reading is brought inside or left out, so that whatever is written can be read again.
SessionDocument makeSessionDocument(const ImageDocument& document, const std::vector<QString>& files, Date capturedAt,
                                    Date savedAt);

/// A piece as its record says, over the picture that was stored. Nothing when the record shows no part of it.
std::optional<CapturePiece> makePiece(const PieceRecord& record, const Bitmap& image);

}  // namespace vellora
