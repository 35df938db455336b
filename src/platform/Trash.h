#pragma once

#include <QString>

#include "base/AtomicFile.h"
#include "base/Result.h"

namespace vellora {

/// The desktop's trash. Any thread.
class Trash {
 public:
  virtual ~Trash() = default;
  /// Moves a file or folder there, from where the person can bring it back.
  virtual Result<void, FileError> moveToTrash(const QString& path) = 0;
};

}  // namespace vellora
