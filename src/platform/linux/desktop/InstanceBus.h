#pragma once

#include <QString>

namespace vellora {

/// Names under which the running program is found on the session bus.
namespace instanceBus {
inline constexpr char service[] = "dev.orlo.Vellora";
inline constexpr char path[] = "/dev/orlo/Vellora";
inline constexpr char interface[] = "dev.orlo.Vellora";
inline constexpr char errorAbandoned[] = "dev.orlo.Vellora.Error.Abandoned";
}  // namespace instanceBus

/// How a command ended, as a process would tell it.
struct CommandOutcome {
  int exitCode = 0;
  QString standardOutput;
  QString standardError;
  friend bool operator==(const CommandOutcome&, const CommandOutcome&) = default;
};

}  // namespace vellora
