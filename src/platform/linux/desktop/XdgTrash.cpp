#include "platform/linux/desktop/XdgTrash.h"

#include <cerrno>

#include <QFile>
#include <QFileInfo>

namespace vellora {

Result<void, FileError> XdgTrash::moveToTrash(const QString& path) {
  const QFileInfo info(path);
  if (!info.exists() && !info.isSymLink()) return failure(FileError::fromErrno(ENOENT, path));
  QFile file(info.absoluteFilePath());
  if (file.moveToTrash()) return {};
  const auto kind =
      QFileInfo(info.absolutePath()).isWritable() ? FileError::Kind::Other : FileError::Kind::NotPermitted;
  return failure(FileError{kind, path, file.errorString()});
}

}  // namespace vellora
