#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "real/MediaSamples.h"
#include "real/PublishRun.h"
#include "support/FreePort.h"
#include "support/NginxIngest.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

using testing::AnyOf;
using testing::HasSubstr;
using testing::Not;

constexpr const char* secretKey = "c0nfident1al";

/// The code of the error the run ended with, which it has to have told to people too; never the stream name.
std::string errorOf(const Finished& run) {
  EXPECT_EQ(run.exitCode, 1) << run.output << run.errors;
  EXPECT_THAT(run.output + run.errors, Not(HasSubstr(secretKey)));
  const std::vector<Json> lines = jsonLines(run.output);
  if (lines.size() != 1 || !lines[0].contains("error")) return "none told: " + run.output;
  EXPECT_EQ(lines[0].value("state", ""), "failed");
  EXPECT_THAT(run.errors, HasSubstr(lines[0]["error"].value("message", "?")));
  return lines[0]["error"].value("code", "");
}

class RtmpRefusal : public testing::Test {
 protected:
  void SetUp() override {
    server_ = NginxIngest::start();
    ASSERT_TRUE(server_);
  }

  Finished publishTo(const std::string& url) {
    return PublishRun({"--json", samples::classic().string(), url}).finish();
  }

  /// A stream that plays and goes on for ever.
  std::unique_ptr<PublishRun> startStream() {
    auto run = std::make_unique<PublishRun>(
        std::vector<std::string>{"--loop", "--json", samples::classic().string(), server_->url(secretKey)});
    EXPECT_TRUE(waitFor([&] { return server_->receivedBytes() > 100'000; })) << run->errors();
    return run;
  }

  std::unique_ptr<NginxIngest> server_;
};

TEST_F(RtmpRefusal, AServerThatIsNotThereOrSaysNoIsNamed) {
  const std::string nobody = "rtmp://127.0.0.1:" + std::to_string(freePort()) + "/live/" + secretKey;
  EXPECT_EQ(errorOf(publishTo(nobody)), "connectionRefused");
  EXPECT_EQ(errorOf(publishTo(server_->url(secretKey, "nowhere"))), "applicationRefused");
  EXPECT_EQ(errorOf(publishTo(server_->url(secretKey, "keyed"))), "streamRefused");
  EXPECT_THAT(errorOf(publishTo(server_->url(secretKey, "closed"))), AnyOf("streamRefused", "connectionLost"));
}

TEST_F(RtmpRefusal, ATakenStreamNameIsNamed) {
  const auto first = startStream();
  EXPECT_EQ(errorOf(publishTo(server_->url(secretKey))), "streamRefused");
  EXPECT_TRUE(first->isRunning());
}

TEST_F(RtmpRefusal, APublisherDroppedInMidStreamEndsAtOnce) {
  const auto run = startStream();
  server_->dropPublisher(secretKey);
  EXPECT_EQ(errorOf(run->finish(3)), "connectionLost");
}

TEST_F(RtmpRefusal, AServerThatDiesInMidStreamIsNamedAtOnce) {
  const auto run = startStream();
  server_->kill();
  EXPECT_EQ(errorOf(run->finish(3)), "connectionLost");
}

TEST_F(RtmpRefusal, AnInterruptEndsTheStreamAlsoWhenTheServerStandsStill) {
  const auto run = startStream();
  server_->freeze();
  const auto before = std::chrono::steady_clock::now();
  run->interrupt();
  const Finished finished = run->finish();
  EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(1500));
  EXPECT_EQ(finished.exitCode, 0) << finished.errors;

  // The same before the server has answered anything.
  PublishRun waiting({"--json", samples::classic().string(), server_->url(secretKey)});
  const std::string port = ":" + std::to_string(server_->port());
  ASSERT_TRUE(waitFor([&] {
    return !runProgram({"ss", "-tnH", "state", "established", "dport", "=", port}, {}).output.empty();
  })) << waiting.errors();
  const auto beforeSecond = std::chrono::steady_clock::now();
  waiting.interrupt();
  EXPECT_EQ(waiting.finish().exitCode, 0);
  EXPECT_LT(std::chrono::steady_clock::now() - beforeSecond, std::chrono::milliseconds(1500));
}

}  // namespace
}  // namespace vellora::test
