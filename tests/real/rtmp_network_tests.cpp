#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "real/MediaSamples.h"
#include "real/NetworkNamespace.h"
#include "real/PublishRun.h"
#include "support/NginxIngest.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

using testing::ContainsRegex;

class RtmpNetwork : public testing::Test {
 protected:
  void SetUp() override {
    network_ = NetworkNamespace::create();
    ASSERT_TRUE(network_);
    server_ = NginxIngest::start({.prefix = network_->prefix()});
    ASSERT_TRUE(server_);
  }

  std::unique_ptr<NetworkNamespace> network_;
  std::unique_ptr<NginxIngest> server_;
};

TEST_F(RtmpNetwork, ASlowLinkCostsWholeGroupsOfFramesOnly) {
  network_->limitRate(600);
  PublishRun run({"--loop", "--json", samples::heavy().string(), server_->url("slow")}, {.prefix = network_->prefix()});
  // The first line of the log, after ten seconds.
  ASSERT_TRUE(waitFor([&] { return run.errors().find("dropped") != std::string::npos; }, 15));
  EXPECT_THAT(run.errors(), ContainsRegex("dropped [1-9]"));
  network_->limitRate(20000);
  const std::uint64_t until = server_->receivedBytes() + 1'000'000;
  EXPECT_TRUE(waitFor([&] { return server_->receivedBytes() > until; }));
  run.interrupt();
  const Finished finished = run.finish();
  EXPECT_EQ(finished.exitCode, 0) << finished.errors;

  const std::filesystem::path file = server_->finishedRecording("slow");
  const auto recorded = FlvFile::read(file);
  ASSERT_TRUE(recorded) << recorded.error();
  const MediaContents sent = MediaContents::of(samples::heavy());
  const auto indexOf = [](const MediaTrackSamples& track, const FlvTag& tag) {
    const std::string hash = takeApart(tag).hash;
    const auto found =
        std::find_if(track.samples.begin(), track.samples.end(), [&](const auto& s) { return s.hash == hash; });
    return static_cast<std::size_t>(found - track.samples.begin());
  };
  std::size_t expected = 0;
  int gaps = 0;
  for (const FlvTag& tag : recorded->tagsOf(FlvTag::Kind::video)) {
    if (takeApart(tag).kind != TagBody::Kind::frame) continue;
    const std::size_t index = indexOf(sent.video, tag);
    ASSERT_LT(index, sent.video.samples.size()) << "a frame the file does not have";
    if (index != expected) {
      ++gaps;
      EXPECT_TRUE(sent.video.samples[index].isKeyFrame) << "a group without its first frame, from " << index;
    }
    expected = (index + 1) % sent.video.samples.size();
  }
  EXPECT_GE(gaps, 1);
  const Finished decoded =
      runProgram({"ffmpeg", "-nostdin", "-v", "error", "-i", file.string(), "-f", "null", "-"}, {}, {}, 60);
  EXPECT_TRUE(decoded.errors.empty()) << decoded.errors;
  EXPECT_EQ(decoded.exitCode, 0);
}

TEST_F(RtmpNetwork, LostPacketsCostNothingButTime) {
  network_->drop(server_->port(), 5);
  const Finished run = PublishRun({"--as-fast-as-possible", samples::classic().string(), server_->url("lossy")},
                                  {.prefix = network_->prefix()})
                           .finish(60);
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_GT(network_->droppedPackets(), 0);
  const auto recorded = FlvFile::read(server_->finishedRecording("lossy"));
  ASSERT_TRUE(recorded) << recorded.error();
  expectSame(*recorded, MediaContents::of(samples::classic()));
}

TEST_F(RtmpNetwork, ACutLinkEndsInAnErrorOnceItIsCertain) {
  PublishRun run({"--loop", "--json", samples::classic().string(), server_->url("unlucky")},
                 {.prefix = network_->prefix()});
  ASSERT_TRUE(waitFor([&] { return server_->receivedBytes() > 100'000; }));
  network_->drop(server_->port());
  const auto before = std::chrono::steady_clock::now();
  const Finished finished = run.finish(45);
  EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(40));
  EXPECT_EQ(finished.exitCode, 1) << finished.errors;
  EXPECT_GT(network_->droppedPackets(), 0);
  const std::vector<Json> lines = jsonLines(finished.output);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_THAT(lines[0]["error"].value("code", ""), testing::AnyOf("stalled", "connectionLost"));
  EXPECT_THAT(lines[0]["error"].value("message", ""), testing::HasSubstr("127.0.0.1"));
}

}  // namespace
}  // namespace vellora::test
