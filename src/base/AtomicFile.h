#pragma once

#include <sys/types.h>

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>

#include <QByteArray>
#include <QString>

#include "base/Result.h"

namespace vellora {

/// Why a file could not be read or written, with the system's own words in `message` and the path it concerns.
struct FileError {
  enum class Kind { NotFound, NotPermitted, NoSpace, TooLarge, Other };
  Kind kind = Kind::Other;
  QString path;
  QString message;

  static FileError fromErrno(int error, const QString& path);
  /// "path: message", for the log and the command line.
  QString description() const;
};

/// Whether a write waits until the disk holds it (survives a power cut) or leaves that to the system (survives a kill).
enum class Durability { Kill, PowerCut };

/// Files that appear whole or not at all: bytes go to a hidden temporary file in the same folder, which then takes the
/// final name in one step. A kill at any moment leaves the old content or the new one. Any thread.
namespace AtomicFile {

/// Writes or replaces `path`. A replaced file keeps its permissions; a link is followed.
Result<void, FileError> write(const QString& path, std::span<const std::byte> data,
                              Durability durability = Durability::Kill);
Result<void, FileError> write(const QString& path, const QByteArray& data, Durability durability = Durability::Kill);

/// Writes a new file in `folder` under the first free name of "stem.ext", "stem (2).ext", …, never replacing anything,
/// also when another process picks the same name at the same moment. Returns the path taken.
Result<QString, FileError> writeNew(const QString& folder, const QString& stem, const QString& extension,
                                    std::span<const std::byte> data, Durability durability = Durability::Kill);
Result<QString, FileError> writeNew(const QString& folder, const QString& stem, const QString& extension,
                                    const QByteArray& data, Durability durability = Durability::Kill);

/// The same for names that are bytes, as files may have them, in no encoding at all. `permissions` are narrowed by the
/// umask.
Result<std::filesystem::path, FileError> writeNew(const std::filesystem::path& folder, const std::string& stem,
                                                  const std::string& extension, std::span<const std::byte> data,
                                                  mode_t permissions = 0666, Durability durability = Durability::Kill);

/// Reads a whole regular file of at most `limit` bytes.
Result<QByteArray, FileError> read(const QString& path, qint64 limit);

}  // namespace AtomicFile
}  // namespace vellora
