#pragma once

#include "base/Result.h"
#include "media/movies/Interleaver.h"
#include "media/movies/MediaReader.h"

namespace vellora {

/// Encodes one track again.
class Transcoder {
 public:
  virtual ~Transcoder() = default;

  virtual const MediaTrack& description() const = 0;
  /// Takes one packet of the file and adds what it makes to `output`.
  virtual Result<void, MediaFailure> put(QueuedPacket packet, Interleaver& output) = 0;
  /// No packet follows.
  virtual Result<void, MediaFailure> finish(Interleaver& output) = 0;
};

}  // namespace vellora
