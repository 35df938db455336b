#pragma once

#include <optional>
#include <vector>

#include <QString>

#include "editor/CapturePiece.h"
#include "editor/SessionDocument.h"

/// One session's folder on disk. All calls block on the disk: they belong on the session store's queue.
namespace vellora::sessionFolder {

inline const QString documentName = QStringLiteral("session.json");
inline const QString thumbnailName = QStringLiteral("thumb.png");

/// "piece-0.png" for the first piece.
QString pieceFileName(std::size_t index);

struct Written {
  bool hasThumbnail = false;
};

/// Writes a whole session beside its place under a hidden name and moves it there in one step. Nothing is left behind
/// on failure; the log says why it failed.
std::optional<Written> write(const QString& directory, const SessionDocument& document,
                             const std::vector<CapturePiece>& pieces);

/// Reads and checks "session.json".
std::optional<SessionDocument> readDocument(const QString& directory);

/// Where a piece's picture is: the last component of its stored name, in the session's own folder; nothing when that is
/// no regular file of the folder (a link, a folder, missing).
std::optional<QString> piecePath(const QString& directory, const PieceRecord& piece);

/// Whether a folder of the root is one being written; `isAbandoned` when its writer has died.
bool isTemporary(const QString& name);
bool isAbandoned(const QString& path);

}  // namespace vellora::sessionFolder
