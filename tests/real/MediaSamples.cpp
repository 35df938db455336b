#include "real/MediaSamples.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>

#include "base/Json.h"
#include "real/PublishRun.h"
#include "support/ChildProcess.h"

namespace vellora::test {
namespace {

namespace fs = std::filesystem;

/// The file `name`, made by ffmpeg when it is asked for the first time.
fs::path made(const std::string& name, const std::vector<std::string>& arguments) {
  static const TemporaryFolder folder;
  const fs::path file = folder / name;
  if (fs::exists(file)) return file;
  std::vector<std::string> command{"ffmpeg", "-nostdin", "-v", "error"};
  command.insert(command.end(), arguments.begin(), arguments.end());
  command.push_back(file.string());
  const Finished finished = runProgram(command, {}, {}, 60);
  EXPECT_EQ(finished.exitCode, 0) << finished.errors;
  return file;
}

std::string hashOf(std::span<const std::uint8_t> bytes) {
  const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
  return QCryptographicHash::hash(view, QCryptographicHash::Sha256).toHex().toStdString();
}

std::string hashIn(const Json& object, const char* key) {
  const std::string text = object.value(key, std::string());
  return text.substr(text.find(':') + 1);
}

double secondsIn(const Json& object, const char* key) {
  return std::strtod(object.value(key, std::string("nan")).c_str(), nullptr);
}

TagBody videoBody(std::span<const std::uint8_t> body) {
  TagBody result;
  if (body.empty()) return result;
  const int frameType = body[0] >> 4 & 7;
  result.isKeyFrame = frameType == 1;
  std::size_t head = 5;
  int packetType = 0;
  const auto offsetAt = [&](std::size_t at) {
    const int value = body[at] << 16 | body[at + 1] << 8 | body[at + 2];
    return value >= 0x800000 ? value - 0x1000000 : value;
  };
  if (body.size() < head) return result;
  if ((body[0] & 0x80) == 0) {
    if ((body[0] & 0x0F) != 7) return result;
    result.codec = "h264";
    packetType = body[1];
    if (packetType == 1) result.compositionOffset = offsetAt(2);
    result.kind = packetType == 0   ? TagBody::Kind::configuration
                  : packetType == 1 ? TagBody::Kind::frame
                                    : TagBody::Kind::end;
  } else {
    packetType = body[0] & 0x0F;
    if (std::string(body.begin() + 1, body.begin() + 5) != "hvc1") return result;
    result.codec = "hevc";
    if (packetType == 0) result.kind = TagBody::Kind::configuration;
    if (packetType == 1 || packetType == 3) result.kind = TagBody::Kind::frame;
    if (packetType == 2) result.kind = TagBody::Kind::end;
    if (packetType == 1) {
      if (body.size() < 8) return result;
      result.compositionOffset = offsetAt(5);
      head = 8;
    }
  }
  result.hash = hashOf(body.subspan(head));
  result.size = body.size() - head;
  return result;
}

TagBody audioBody(std::span<const std::uint8_t> body) {
  TagBody result;
  std::size_t head = 2;
  if (body.size() < head) return result;
  if (body[0] == 0xAF) {
    result.codec = "aac";
    result.kind = body[1] == 0 ? TagBody::Kind::configuration : TagBody::Kind::frame;
  } else if (body[0] >> 4 == 9 && body.size() >= 5) {
    if (std::string(body.begin() + 1, body.begin() + 5) != "Opus") return result;
    result.codec = "opus";
    head = 5;
    const int packetType = body[0] & 0x0F;
    if (packetType == 0) result.kind = TagBody::Kind::configuration;
    if (packetType == 1) result.kind = TagBody::Kind::frame;
    if (packetType == 2) result.kind = TagBody::Kind::end;
  }
  result.hash = hashOf(body.subspan(head));
  result.size = body.size() - head;
  return result;
}

void expectSameTrack(const std::vector<FlvTag>& tags, const MediaTrackSamples& sent, double start,
                     const Comparison& how) {
  ASSERT_FALSE(tags.empty()) << "nothing recorded of " << sent.codec;
  const TagBody configuration = takeApart(tags.front());
  EXPECT_EQ(configuration.kind, TagBody::Kind::configuration) << sent.codec;
  EXPECT_EQ(configuration.codec, sent.codec);
  EXPECT_EQ(configuration.hash, sent.configurationHash) << sent.codec;
  // The server may write the configuration twice: as it has kept it, and as it came.
  const bool isRepeated = tags.size() > 1 && tags[1].body == tags[0].body;
  std::vector<FlvTag> frames(tags.begin() + (isRepeated ? 2 : 1), tags.end());
  if (!frames.empty() && takeApart(frames.back()).kind == TagBody::Kind::end) frames.pop_back();
  if (how.wholeFile) {
    ASSERT_EQ(frames.size(), sent.samples.size()) << sent.codec;
  } else {
    ASSERT_FALSE(frames.empty());
    ASSERT_LE(frames.size(), sent.samples.size()) << sent.codec;
  }
  for (std::size_t index = 0; index < frames.size(); ++index) {
    SCOPED_TRACE(sent.codec + " frame " + std::to_string(index));
    const MediaSample& sample = sent.samples[index];
    const TagBody body = takeApart(frames[index]);
    ASSERT_EQ(body.kind, TagBody::Kind::frame);
    ASSERT_EQ(body.hash, sample.hash);
    if (how.times) {
      ASSERT_NEAR(frames[index].timestamp, (sample.decodeTime - start) * 1000, 1);
    }
    if (frames[index].kind != FlvTag::Kind::video) continue;
    ASSERT_EQ(body.isKeyFrame, sample.isKeyFrame);
    ASSERT_NEAR(body.compositionOffset, (sample.presentationTime - sample.decodeTime) * 1000, 1);
  }
}

}  // namespace

fs::path samples::classic() {
  return made("classic.mp4", {"-f",       "lavfi",    "-i",   "testsrc2=s=640x360:r=30",
                              "-f",       "lavfi",    "-i",   "sine=f=440:r=44100",
                              "-t",       "4",        "-c:v", "libx264",
                              "-preset",  "veryfast", "-bf",  "2",
                              "-g",       "30",       "-b:v", "1500k",
                              "-pix_fmt", "yuv420p",  "-c:a", "aac",
                              "-ac",      "2"});
}

fs::path samples::enhanced() {
  return made("enhanced.mp4", {"-f",      "lavfi",     "-i",           "testsrc2=s=320x180:r=25",
                               "-f",      "lavfi",     "-i",           "sine=f=440:r=48000",
                               "-t",      "2",         "-c:v",         "libx265",
                               "-preset", "ultrafast", "-x265-params", "log-level=none:bframes=2:keyint=25:pools=1",
                               "-tag:v",  "hvc1",      "-pix_fmt",     "yuv420p",
                               "-c:a",    "libopus"});
}

fs::path samples::foreign() {
  return made("foreign.webm",
              {"-f", "lavfi", "-i", "testsrc2=s=320x180:r=25", "-f", "lavfi", "-i", "sine=f=440:r=48000", "-t", "2",
               "-c:v", "libvpx-vp9", "-deadline", "realtime", "-cpu-used", "8", "-c:a", "libvorbis"});
}

fs::path samples::heavy() {
  return made("heavy.mp4", {"-f",       "lavfi",     "-i",       "testsrc2=s=640x360:r=30,noise=alls=30:allf=t",
                            "-f",       "lavfi",     "-i",       "sine=f=440:r=44100",
                            "-t",       "6",         "-c:v",     "libx264",
                            "-preset",  "ultrafast", "-bf",      "0",
                            "-g",       "15",        "-b:v",     "3000k",
                            "-maxrate", "3000k",     "-bufsize", "1000k",
                            "-pix_fmt", "yuv420p",   "-c:a",     "aac"});
}

MediaContents MediaContents::of(const fs::path& file) {
  MediaContents contents;
  const Finished probe = runProgram({"ffprobe", "-v", "error", "-show_packets", "-show_streams", "-show_data_hash",
                                     "SHA256", "-of", "json", file.string()},
                                    {}, {}, 30);
  EXPECT_EQ(probe.exitCode, 0) << probe.errors;
  const Json document = Json::parse(probe.output, nullptr, false);
  if (!document.is_object()) return contents;
  std::vector<MediaTrackSamples*> tracks;
  for (const Json& stream : document["streams"]) {
    tracks.push_back(stream.value("codec_type", "") == "video" ? &contents.video : &contents.audio);
    tracks.back()->codec = stream.value("codec_name", "");
    tracks.back()->configurationHash = hashIn(stream, "extradata_hash");
  }
  for (const Json& packet : document["packets"]) {
    tracks.at(packet.value("stream_index", std::size_t{0}))
        ->samples.push_back({secondsIn(packet, "pts_time"), secondsIn(packet, "dts_time"),
                             packet.value("flags", std::string()).starts_with('K'), hashIn(packet, "data_hash")});
  }
  return contents;
}

TagBody takeApart(const FlvTag& tag) {
  return tag.kind == FlvTag::Kind::video ? videoBody(tag.body) : audioBody(tag.body);
}

void expectSame(const FlvFile& recorded, const MediaContents& sent, const Comparison& how) {
  ASSERT_FALSE(sent.video.samples.empty());
  ASSERT_FALSE(sent.audio.samples.empty());
  const double start = std::min(sent.video.samples.front().decodeTime, sent.audio.samples.front().decodeTime);
  expectSameTrack(recorded.tagsOf(FlvTag::Kind::video), sent.video, start, how);
  expectSameTrack(recorded.tagsOf(FlvTag::Kind::audio), sent.audio, start, how);
}

}  // namespace vellora::test
