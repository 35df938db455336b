#pragma once

#include <QString>

namespace vellora {

/// The user's well-known folders, absolute, without a trailing slash. They need not exist. Any thread.
class FileNames {
 public:
  virtual ~FileNames() = default;
  virtual QString home() const = 0;
  virtual QString desktop() const = 0;             ///< the XDG desktop folder, else the home folder
  virtual QString movies() const = 0;              ///< the XDG videos folder
  virtual QString applicationSupport() const = 0;  ///< the XDG data home
};

}  // namespace vellora
