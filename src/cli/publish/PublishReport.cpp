#include "cli/publish/PublishReport.h"

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "cli/publish/LiveLine.h"

namespace vellora {
namespace {

using Json = nlohmann::ordered_json;

const char* stateText(PublishOutcome::State state) {
  switch (state) {
    case PublishOutcome::State::done:
      return "done";
    case PublishOutcome::State::interrupted:
      return "interrupted";
    case PublishOutcome::State::failed:
      return "failed";
  }
  return "failed";
}

Json codecJson(const std::optional<MediaTrack>& track) {
  return track ? Json(track->codec) : Json();
}

std::string amount(std::uint64_t bytes) {
  std::array<char, 32> text{};
  const bool isLarge = bytes >= 1'000'000;
  std::snprintf(text.data(), text.size(), isLarge ? "%.1f MB" : "%.0f kB",
                static_cast<double>(bytes) / (isLarge ? 1e6 : 1e3));
  return text.data();
}

std::string counted(std::uint64_t count, const char* one, const char* more) {
  return std::to_string(count) + " " + (count == 1 ? one : more);
}

std::string trackText(std::uint64_t frames, const char* kind, const MediaTrack& track) {
  std::string text = counted(frames, kind, kind) + (frames == 1 ? " frame (" : " frames (") + track.codec;
  if (!track.encodedFrom.empty()) text += ", encoded again from " + track.encodedFrom;
  return text + ")";
}

}  // namespace

std::string printable(const PublishFailure& failure, const Redaction& redaction) {
  return (failure.isAboutFile ? Redaction() : redaction).clean(failure.message);
}

std::string reportJson(const PublishReport& report, const Redaction& redaction) {
  const PublishProgress& progress = report.progress;
  Json json{
      {"file", report.file},
      {"server", report.server},
      {"state", stateText(report.outcome.state)},
      {"seconds", static_cast<double>(progress.time.count() / 1000) / 1000},
      {"bytes", progress.bytes},
      {"videoFrames", progress.videoFrames},
      {"audioFrames", progress.audioFrames},
      {"droppedFrames", progress.droppedFrames},
      {"videoCodec", codecJson(report.video)},
      {"audioCodec", codecJson(report.audio)},
  };
  Json transcoded = Json::object();
  if (report.video && !report.video->encodedFrom.empty()) transcoded["video"] = report.video->encodedFrom;
  if (report.audio && !report.audio->encodedFrom.empty()) transcoded["audio"] = report.audio->encodedFrom;
  json["transcoded"] = std::move(transcoded);
  if (const auto& failure = report.outcome.failure) {
    json["error"] = {{"code", failure->code}, {"message", printable(*failure, redaction)}};
  }
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string reportText(const PublishReport& report) {
  const PublishProgress& progress = report.progress;
  if (progress.videoFrames + progress.audioFrames + progress.droppedFrames == 0) return {};
  std::string text = report.outcome.state == PublishOutcome::State::interrupted ? "interrupted: " : "";
  text += mediaTimeText(progress.time) + " published to " + report.server + ", " + amount(progress.bytes) + "\n";
  if (report.video) text += trackText(progress.videoFrames, "video", *report.video);
  if (report.video && report.audio) text += ", ";
  if (report.audio) text += trackText(progress.audioFrames, "audio", *report.audio);
  if (progress.droppedFrames > 0) text += ", " + counted(progress.droppedFrames, "frame", "frames") + " dropped";
  return text;
}

}  // namespace vellora
