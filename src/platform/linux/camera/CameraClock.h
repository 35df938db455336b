#pragma once

#include <optional>

namespace vellora {

/// Brings a camera's time stamps to the host clock. Most drivers stamp with that clock themselves; the stamps of others
/// are moved by the least delay with which a picture has come so far. A plain value.
class CameraClock {
 public:
  /// `stamp`: the camera's, seconds, if it gave one. `arrival`: host time. The result grows from call to call.
  double hostTimeOf(std::optional<double> stamp, double arrival);

 private:
  double moved(double stamp, double arrival);

  std::optional<double> offset_;  // host time less stamp
  std::optional<double> last_;
};

}  // namespace vellora
