#pragma once

#include <optional>
#include <string>

#include "cli/publish/FilePublisher.h"
#include "cli/publish/Redaction.h"

namespace vellora {

/// All there is to say of one run, at its end.
struct PublishReport {
  std::string file;
  std::string server;  ///< printable
  PublishOutcome outcome;
  PublishProgress progress;
  std::optional<MediaTrack> video;
  std::optional<MediaTrack> audio;
};

/// The sentence of a failure without secrets. A file may be called like the stream; what is about it stays whole.
std::string printable(const PublishFailure& failure, const Redaction& redaction);
/// One JSON object in one line: {file, server, state: "done" | "interrupted" | "failed", seconds, bytes, videoFrames,
/// audioFrames, droppedFrames, videoCodec, audioCodec, transcoded: {video, audio: the file's codec where it was encoded
/// again}, error: {code, message} when failed}.
std::string reportJson(const PublishReport& report, const Redaction& redaction);
/// A line or two for people; empty when nothing was published.
std::string reportText(const PublishReport& report);

}  // namespace vellora
