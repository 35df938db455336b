#pragma once

#include <QString>

/// The program's log: one plain line per event on standard error, beginning "Vellora: ". Thread-safe.
/// Levels are filtered by the environment variable VELLORA_LOG ("error", "warning", "info", "debug"; default
/// "warning").
namespace vellora::log {

enum class Level { Error, Warning, Info, Debug };

/// Writes one line. Line breaks inside `text` become spaces, so that one event stays one line.
void write(Level level, const QString& text);

inline void error(const QString& text) {
  write(Level::Error, text);
}
inline void warning(const QString& text) {
  write(Level::Warning, text);
}
inline void info(const QString& text) {
  write(Level::Info, text);
}
inline void debug(const QString& text) {
  write(Level::Debug, text);
}

/// Receives every line that passes the filter in place of standard error; pass nullptr to undo. For tests.
using Sink = void (*)(Level, const QString& line);
void setSink(Sink sink);

}  // namespace vellora::log
