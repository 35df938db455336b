#pragma once

#include <functional>
#include <optional>
#include <vector>

#include <QLocale>
#include <QString>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "base/SerialQueue.h"
#include "editor/ImageDocument.h"
#include "editor/OpenDocument.h"
#include "editor/SessionFolder.h"

namespace vellora {

/// The history: the ten most recent captures, each a folder with its pieces as PNG files, a thumbnail and
/// "session.json". A session folder appears under its name complete or not at all, and several processes may add to one
/// history. Documents that are open are kept in the folder "Recovery" beside it. Main thread; files are read and
/// written on the queue "dev.orlo.vellora.session-store".
class SessionStore {
 public:
  static constexpr std::size_t limit = 10;

  /// One line of the history.
  struct Item {
    QString directory;  ///< absolute; its last component is the session's id
    std::int64_t pixelWidth = 0;
    std::int64_t pixelHeight = 0;
    Date savedAt;
    bool hasThumbnail = false;  ///< whether thumbnailFile() can be read

    QString id() const;
    QString thumbnailFile() const;  ///< shown 48 × 30 points
    /// "1280 × 720 — 14:03:12"; an earlier day's line carries the day.
    QString label(const QLocale& locale, Date now) const;
  };

  /// What reopening hands back.
  struct Entry {
    ImageDocument document;
    Date capturedAt;
    std::unique_ptr<OpenDocument> open;  ///< what keeps the document while it is open
  };

  /// Called on the store's queue, the reader also on other threads beside it.
  using PictureReader = sessionFolder::PictureReader;
  using DocumentRenderer = sessionFolder::DocumentRenderer;

  /// "Vellora/Sessions" in the user's application support folder.
  static QString defaultDirectory(const QString& applicationSupport);

  /// Without a `renderer` thumbnails show the pieces without what was drawn on them.
  SessionStore(QString sessionsDirectory, RunLoop& runLoop, PictureReader reader, DocumentRenderer renderer = {});
  ~SessionStore();

  /// Newest first.
  const std::vector<Item>& items() const { return items_; }

  /// Reads the index anew: takes in what other processes added or removed, and deletes folders that hold no session.
  void loadIndex();

  /// Records a finished capture as the newest entry; does nothing without pieces.
  void push(const ImageDocument& document, Date capturedAt);

  /// Keeps a document while a window has it open.
  std::unique_ptr<OpenDocument> open(const ImageDocument& document, Date capturedAt);

  /// Brings documents into the history that were open in a program that was killed. `done` gets their number, on the
  /// main thread, and is not called when there are none.
  void recoverAbandoned(std::function<void(int count)> done);

  /// Takes an entry out of the history, on disk too, and delivers it on the main thread; nothing when there is no such
  /// entry or it cannot be read.
  void take(std::size_t index, std::function<void(std::optional<Entry>)> completion);

  /// Forgets and deletes every listed session.
  void clear();

  /// Waits until every write and deletion asked for so far has landed. The one wait of termination.
  void waitForPendingWrites() { ioQueue_.drain(); }

 private:
  friend class OpenDocument;

  void record(const ImageDocument& document, Date capturedAt, std::shared_ptr<RecoveryFolder> recovery);
  int recoverOnQueue();
  std::optional<Item> readItem(const QString& directory) const;
  void prune();
  void removeFolderLater(const QString& directory);
  void writeFinished(const QString& id, bool success, bool hasThumbnail);

  const QString sessionsDirectory_;
  const QString recoveryDirectory_;
  RunLoop& runLoop_;
  const PictureReader reader_;
  const DocumentRenderer renderer_;
  std::vector<Item> items_;
  std::vector<QString> pendingWrites_;  ///< ids of sessions whose folders are not there yet
  Lifetime lifetime_;
  SerialQueue ioQueue_{"dev.orlo.vellora.session-store", SerialQueue::Quality::Utility};
};

}  // namespace vellora
