#pragma once

#include "platform/FileNames.h"

namespace vellora {

/// The XDG user directories (user-dirs.dirs) and base directories.
class XdgFileNames final : public FileNames {
 public:
  QString home() const override;
  /// The configured desktop folder, else an existing "Desktop" in the home folder, else the home folder.
  QString desktop() const override;
  QString movies() const override;
  QString applicationSupport() const override;
};

}  // namespace vellora
