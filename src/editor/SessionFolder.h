#pragma once

#include <functional>
#include <optional>
#include <vector>

#include <QString>

#include "editor/ImageDocument.h"
#include "editor/SessionDocument.h"

/// One session's folder on disk. All calls block on the disk: they belong on the session store's queue.
namespace vellora::sessionFolder {

inline const QString documentName = QStringLiteral("session.json");
inline const QString thumbnailName = QStringLiteral("thumb.png");

/// "piece-0.png" for the first piece.
QString pieceFileName(std::size_t index);

/// Decodes a picture file; nothing when it is no picture. Called on several threads at once.
using PictureReader = std::function<std::optional<Bitmap>(const QString& path)>;
/// Draws a document at a scale, in pixels per point; nothing when it cannot be drawn.
using DocumentRenderer = std::function<std::optional<Bitmap>(const ImageDocument& document, double scale)>;

struct Written {
  bool hasThumbnail = false;
};

/// Writes a whole session beside its place under a hidden name and moves it there in one step. Nothing is left behind
/// on failure; the log says why it failed. Where `pieceFiles` names a file for a piece (empty for none) that already
/// holds its picture, it becomes the session's too instead of being encoded and written again. Without a `renderer` the
/// thumbnail shows what is visible of the pieces, and there is none where that would show what a redaction hides.
std::optional<Written> write(const QString& directory, const ImageDocument& document, Date capturedAt, Date savedAt,
                             const std::vector<QString>& pieceFiles, const DocumentRenderer& renderer);

/// Encodes the piece's picture, once whoever asks, and writes it.
bool writePiece(const QString& path, const CapturePiece& piece);

/// Reads and checks "session.json".
std::optional<SessionDocument> readDocument(const QString& directory);

/// A whole session in memory.
struct Loaded {
  ImageDocument document;
  Date capturedAt;
  Date savedAt;
  std::vector<QString> pieceFiles;  ///< absolute, by piece
};
/// Nothing when the document or one of its pictures cannot be read, or all of them together would take more memory than
/// `sessionLimits::decodedBytes`.
std::optional<Loaded> load(const QString& directory, const PictureReader& reader);

/// Where a piece's picture is: the last component of its stored name, in the session's own folder; nothing when that is
/// no regular file of the folder (a link, a folder, missing).
std::optional<QString> piecePath(const QString& directory, const PieceRecord& piece);

/// Whether there is a regular file that is no link to somewhere else.
bool isOwnFile(const QString& path);

/// The hidden name beside `directory` under which it is written before it is moved there.
QString temporaryFor(const QString& directory);
/// Deletes a session's folder, first what makes it a session: a kill in the middle leaves nothing that looks like one.
void remove(const QString& directory);

/// Whether a folder of the root is one being written; `isAbandoned` when its writer has died.
bool isTemporary(const QString& name);
bool isAbandoned(const QString& path);

}  // namespace vellora::sessionFolder
