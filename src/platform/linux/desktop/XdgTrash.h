#pragma once

#include "platform/Trash.h"

namespace vellora {

/// The trash of freedesktop.org's Trash specification 1.0: the home trash, or the one of the disk the file lies on.
class XdgTrash final : public Trash {
 public:
  Result<void, FileError> moveToTrash(const QString& path) override;
};

}  // namespace vellora
