#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <QFile>
#include <QString>

#include "base/AtomicFile.h"
#include "base/Result.h"

namespace vellora {

/// What the pointer did at one moment of a recording.
struct PointerEntry {
  struct Button {
    int number = 0;  ///< 0 left, 1 middle, 2 right
    bool isDown = false;
    friend bool operator==(const Button&, const Button&) = default;
  };
  double time = 0;  ///< source seconds
  double x = 0;     ///< of the hot spot, in pixels of the footage; may lie outside of it
  double y = 0;
  std::optional<std::uint64_t> shape{};  ///< when it changed: the same number for the same picture
  std::optional<Button> button{};        ///< when one was pressed or let go
  friend bool operator==(const PointerEntry&, const PointerEntry&) = default;
};

/// "pointer.jsonl" of a bundle: one JSON object a line, {"t": seconds, "x": number, "y": number} and, where it applies,
/// "shape": number or "button": number with "down": boolean. A file that was cut off reads up to its last whole line.
class PointerTrack {
 public:
  /// In order of time; lines that cannot be read are skipped.
  static std::vector<PointerEntry> load(const QString& bundle);
};

/// Writes a pointer track while it is recorded. What is older than a second is with the system, and survives a kill.
/// One thread at a time.
class PointerTrackWriter {
 public:
  static Result<std::unique_ptr<PointerTrackWriter>, FileError> create(const QString& bundle);
  ~PointerTrackWriter();

  /// Entries without a new place, shape or button are left out. After a failure nothing more is written.
  void append(const PointerEntry& entry);
  /// Hands what waits to the system, for the time in which no entry comes.
  void flush();

 private:
  explicit PointerTrackWriter(const QString& path) : file_(path) {}

  QFile file_;
  QByteArray waiting_;
  double flushedAt_ = 0;
  std::optional<PointerEntry> last_;
};

}  // namespace vellora
