#pragma once

#include <map>
#include <memory>
#include <vector>

#include <QString>

#include "editor/ImageDocument.h"
#include "editor/SessionFolder.h"

namespace vellora {

/// The folder in which an open document is kept, so that a program that is killed leaves it behind. It has the form of
/// a session's folder, but for names of pieces that are never reused. Its owner holds a lock that ends with the
/// process: whoever gets the lock of a folder has found one left behind. All calls block on the disk: they belong on
/// the session store's queue.
class RecoveryFolder {
 public:
  /// A folder named `id` below `root`, made with the first save.
  RecoveryFolder(const QString& root, const QString& id);
  ~RecoveryFolder();
  RecoveryFolder(const RecoveryFolder&) = delete;
  RecoveryFolder& operator=(const RecoveryFolder&) = delete;

  /// Moves the folder of a session here in one step, instead of the first save. False when it could not be moved: it is
  /// where it was then.
  bool adopt(const QString& sessionDirectory, const sessionFolder::Loaded& session);

  /// Takes over a folder that was left behind; null when its owner lives.
  static std::unique_ptr<RecoveryFolder> claim(const QString& directory);
  /// Every folder below `root`, whoever owns it. Removes what is left of folders whose making was cut short.
  static std::vector<QString> all(const QString& root);

  /// Writes what is not there yet, pieces before the document that names them. The log says what failed.
  bool save(const ImageDocument& document, Date capturedAt, Date savedAt);

  /// The files that hold the document's pieces, by piece; empty for those not written.
  std::vector<QString> pieceFiles(const ImageDocument& document) const;

  const QString& directory() const { return directory_; }
  void remove();

 private:
  explicit RecoveryFolder(QString directory) : directory_(std::move(directory)) {}
  bool make();
  bool lock(const QString& directory);
  void unlock();

  const QString directory_;
  int lock_ = -1;
  std::map<std::uint64_t, QString> files_;  // by piece
  std::size_t nextFile_ = 0;
};

}  // namespace vellora
