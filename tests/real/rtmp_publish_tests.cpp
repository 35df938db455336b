#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "real/MediaSamples.h"
#include "real/PublishRun.h"
#include "support/NginxIngest.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class RtmpPublish : public testing::Test {
 protected:
  void SetUp() override {
    server_ = NginxIngest::start();
    ASSERT_TRUE(server_);
  }

  FlvFile recordingOf(const std::string& name) {
    auto file = FlvFile::read(server_->finishedRecording(name));
    EXPECT_TRUE(file) << file.error();
    return file ? std::move(*file) : FlvFile();
  }

  std::unique_ptr<NginxIngest> server_;
};

TEST_F(RtmpPublish, TheServerGetsEveryFrameAsItIsInTheFile) {
  const Finished run =
      PublishRun({"--as-fast-as-possible", "--json", samples::classic().string(), server_->url("my-stream")}).finish();
  ASSERT_EQ(run.exitCode, 0) << run.errors;
  const MediaContents sent = MediaContents::of(samples::classic());
  expectSame(recordingOf("my-stream"), sent);

  const std::vector<Json> lines = jsonLines(run.output);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].value("state", ""), "done");
  EXPECT_EQ(lines[0].value("videoFrames", 0U), sent.video.samples.size());
  EXPECT_EQ(lines[0].value("audioFrames", 0U), sent.audio.samples.size());
  EXPECT_EQ(lines[0].value("droppedFrames", -1), 0);
  EXPECT_NEAR(lines[0].value("seconds", 0.0), 4, 0.1);
  EXPECT_THAT(run.output + run.errors, Not(HasSubstr("my-stream")));
  EXPECT_THAT(server_->log(), HasSubstr("publish: name='my-stream' args='' type=live"));
}

TEST_F(RtmpPublish, PacedPlaybackCanBeWatchedWhileItRunsAndStopped) {
  PublishRun run({"--loop", "--json", samples::classic().string(), server_->url("live-now")});
  ASSERT_TRUE(waitFor([&] { return server_->hasStream("live-now"); })) << run.errors();
  const Finished player = runProgram(
      {"ffmpeg", "-nostdin", "-v", "error", "-xerror", "-i", server_->url("live-now"), "-t", "1", "-f", "null", "-"},
      {});
  EXPECT_EQ(player.exitCode, 0) << player.errors;
  EXPECT_TRUE(player.errors.empty()) << player.errors;

  const auto start = std::chrono::steady_clock::now();
  run.interrupt();
  const Finished finished = run.finish();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(1500));
  EXPECT_EQ(finished.exitCode, 0) << finished.errors;
  const FlvFile recorded = recordingOf("live-now");
  expectSame(recorded, MediaContents::of(samples::classic()), {.wholeFile = false});

  const std::vector<Json> lines = jsonLines(finished.output);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].value("state", ""), "interrupted");
  const auto frames = [&](FlvTag::Kind kind) {
    return std::count_if(recorded.tags.begin(), recorded.tags.end(), [&](const FlvTag& tag) {
      return tag.kind == kind && takeApart(tag).kind == TagBody::Kind::frame;
    });
  };
  EXPECT_EQ(lines[0].value("videoFrames", 0), frames(FlvTag::Kind::video)) << "all that was sent has arrived";
  EXPECT_EQ(lines[0].value("audioFrames", 0), frames(FlvTag::Kind::audio));
  const std::string log = server_->log();
  const std::size_t published = log.find(" publish: name=");
  ASSERT_NE(published, std::string::npos) << log;
  const std::size_t before = log.rfind('*', published);
  const std::string connection = log.substr(before, published - before);
  EXPECT_LT(log.find(connection + " deleteStream"), log.find(connection + " disconnect")) << log;
}

TEST_F(RtmpPublish, ALoopGoesOnWhereTheLastPassEnded) {
  PublishRun run({"--loop", "--as-fast-as-possible", samples::classic().string(), server_->url("again")});
  const std::uint64_t twice = 2 * std::filesystem::file_size(samples::classic());
  ASSERT_TRUE(waitFor([&] { return server_->receivedBytes() > twice + twice / 4; })) << run.errors();
  run.interrupt();
  EXPECT_EQ(run.finish().exitCode, 0);
  const FlvFile recorded = recordingOf("again");
  const MediaContents sent = MediaContents::of(samples::classic());

  const auto checkPasses = [&](FlvTag::Kind kind, const MediaTrackSamples& track) -> std::vector<std::uint32_t> {
    std::vector<FlvTag> frames = recorded.tagsOf(kind);
    std::erase_if(frames, [](const FlvTag& tag) { return takeApart(tag).kind != TagBody::Kind::frame; });
    const std::size_t passLength = track.samples.size();
    EXPECT_GT(frames.size(), 2 * passLength);
    std::vector<std::uint32_t> passStarts;
    for (std::size_t index = 0; index < frames.size(); ++index) {
      EXPECT_EQ(takeApart(frames[index]).hash, track.samples[index % passLength].hash) << index;
      if (index % passLength == 0) passStarts.push_back(frames[index].timestamp);
      if (index == 0) continue;
      EXPECT_GE(frames[index].timestamp, frames[index - 1].timestamp) << index;
      EXPECT_LE(frames[index].timestamp, frames[index - 1].timestamp + 100) << index;
      if (testing::Test::HasFailure()) break;
    }
    return passStarts;
  };
  const auto video = checkPasses(FlvTag::Kind::video, sent.video);
  const auto audio = checkPasses(FlvTag::Kind::audio, sent.audio);
  ASSERT_GE(video.size(), 3U);
  ASSERT_GE(audio.size(), 3U);
  for (std::size_t pass = 1; pass < 3; ++pass) {
    EXPECT_NEAR(video[pass] - video[0], audio[pass] - audio[0], 1) << "picture and sound drift apart";
    EXPECT_NEAR(video[pass] - video[pass - 1], 4000, 100);
  }
}

TEST_F(RtmpPublish, WhatNoServerTakesIsEncodedAgain) {
  const Finished run =
      PublishRun({"--as-fast-as-possible", "--json", samples::foreign().string(), server_->url("other")}).finish(30);
  ASSERT_EQ(run.exitCode, 0) << run.errors;
  const std::vector<Json> lines = jsonLines(run.output);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0]["transcoded"].value("video", ""), "vp9") << run.output;
  EXPECT_EQ(lines[0]["transcoded"].value("audio", ""), "vorbis") << run.output;

  const std::string file = server_->finishedRecording("other").string();
  const Finished streams =
      runProgram({"ffprobe", "-v", "error", "-count_frames", "-show_entries",
                  "stream=codec_name,width,height,sample_rate,nb_read_frames", "-of", "json", file},
                 {});
  const Json document = Json::parse(streams.output, nullptr, false);
  ASSERT_TRUE(document.is_object()) << streams.errors;
  ASSERT_EQ(document["streams"].size(), 2U);
  const bool videoFirst = document["streams"][0].value("codec_name", "") == "h264";
  const Json& video = document["streams"][videoFirst ? 0 : 1];
  const Json& audio = document["streams"][videoFirst ? 1 : 0];
  EXPECT_EQ(video.value("codec_name", ""), "h264");
  EXPECT_EQ(video.value("width", 0), 320);
  EXPECT_EQ(video.value("height", 0), 180);
  EXPECT_EQ(video.value("nb_read_frames", ""), "50");
  EXPECT_EQ(audio.value("codec_name", ""), "aac");
  EXPECT_EQ(audio.value("sample_rate", ""), "48000");
  const Finished decoded = runProgram({"ffmpeg", "-nostdin", "-v", "error", "-i", file, "-f", "null", "-"}, {});
  EXPECT_EQ(decoded.exitCode, 0);
  EXPECT_TRUE(decoded.errors.empty()) << decoded.errors;
}

TEST_F(RtmpPublish, TheStreamNameMayComeFromStandardInput) {
  const std::string application = server_->url("", "keyed");
  const Finished run = PublishRun({"--as-fast-as-possible", "--key-from-stdin", samples::classic().string(),
                                   application.substr(0, application.size() - 1)},
                                  {.input = std::string(NginxIngest::goodKey) + "\n"})
                           .finish();
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(run.output + run.errors, Not(HasSubstr(NginxIngest::goodKey)));
  expectSame(recordingOf(NginxIngest::goodKey), MediaContents::of(samples::classic()));
}

}  // namespace
}  // namespace vellora::test
