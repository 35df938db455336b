#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "real/MediaSamples.h"
#include "real/PublishRun.h"
#include "real/WireCapture.h"
#include "support/NginxIngest.h"

namespace vellora::test {
namespace {

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

std::vector<std::uint8_t> bytesFromHex(const std::string& text) {
  std::vector<std::uint8_t> bytes;
  for (std::size_t at = 0; at + 2 <= text.size(); at += 2) {
    bytes.push_back(static_cast<std::uint8_t>(std::stoi(text.substr(at, 2), nullptr, 16)));
  }
  return bytes;
}

class RtmpWire : public testing::Test {
 protected:
  /// Publishes `file` under the eyes of the analyzer.
  void publish(const std::filesystem::path& file) {
    server_ = NginxIngest::start({.record = false});
    ASSERT_TRUE(server_);
    capture_ = WireCapture::start(server_->port());
    ASSERT_TRUE(capture_);
    const Finished run = PublishRun({"--as-fast-as-possible", file.string(), server_->url("wire")}).finish();
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    server_->finishedRecording("wire");
    capture_->stop();
    towardsServer_ = "tcp.dstport==" + std::to_string(server_->port());
  }

  /// That the server is slower than the program, and its window full at times, is no fault; nor is what a busy
  /// machine's kernel sends twice.
  void expectNothingMalformed() const {
    const std::string faults = "_ws.malformed || _ws.expert.severity >= 0x800000 || tcp.analysis.lost_segment";
    const std::string warnings = "(_ws.expert.severity >= 0x600000 && !tcp.analysis.flags && !tcp.options.sack.dsack)";
    EXPECT_THAT(capture_->lines(faults + " || " + warnings, {"frame.number", "_ws.expert.message"}),
                testing::IsEmpty());
  }

  /// All bodies of one kind the server was sent, as the analyzer cuts them out.
  std::vector<FlvTag> bodies(FlvTag::Kind kind) const {
    const std::string name = kind == FlvTag::Kind::video ? "rtmpt.video." : "rtmpt.audio.";
    std::vector<FlvTag> result;
    for (const std::string& line :
         capture_->lines(towardsServer_ + " && " + name + "control", {name + "control", name + "data"})) {
      const std::vector<std::string> columns = split(line, '\t');
      if (columns.size() != 2) {
        ADD_FAILURE() << line;
        continue;
      }
      const std::vector<std::string> controls = split(columns[0], ',');
      const std::vector<std::string> data = split(columns[1], ',');
      EXPECT_EQ(controls.size(), data.size());
      for (std::size_t index = 0; index < std::min(controls.size(), data.size()); ++index) {
        FlvTag tag{.kind = kind, .body = {static_cast<std::uint8_t>(std::stoi(controls[index], nullptr, 0))}};
        const std::vector<std::uint8_t> rest = bytesFromHex(data[index]);
        tag.body.insert(tag.body.end(), rest.begin(), rest.end());
        result.push_back(std::move(tag));
      }
    }
    return result;
  }

  std::unique_ptr<NginxIngest> server_;
  std::unique_ptr<WireCapture> capture_;
  std::string towardsServer_;
};

TEST_F(RtmpWire, AnAnalyzerReadsAWholeSessionWithoutAFault) {
  ASSERT_NO_FATAL_FAILURE(publish(samples::classic()));
  expectNothingMalformed();

  std::map<int, int> messages;
  std::vector<std::string> texts;
  for (const std::string& line : capture_->lines(towardsServer_ + " && rtmpt", {"rtmpt.header.typeid", "amf.string"})) {
    const std::vector<std::string> columns = split(line, '\t');
    for (const std::string& type : split(columns.empty() ? "" : columns[0], ','))
      ++messages[std::stoi(type, nullptr, 0)];
    for (const std::string& text : split(columns.size() < 2 ? "" : columns[1], ',')) texts.push_back(text);
  }
  const MediaContents sent = MediaContents::of(samples::classic());
  EXPECT_EQ(messages[8], static_cast<int>(sent.audio.samples.size()) + 1);
  EXPECT_GE(messages[9], static_cast<int>(sent.video.samples.size()) + 1);
  EXPECT_LE(messages[9], static_cast<int>(sent.video.samples.size()) + 2) << "one configuration, perhaps one end";
  EXPECT_GE(messages[1], 1) << "our chunk size";
  for (const char* name : {"connect", "releaseStream", "FCPublish", "createStream", "publish", "@setDataFrame",
                           "FCUnpublish", "deleteStream"}) {
    EXPECT_EQ(std::count(texts.begin(), texts.end(), name), 1) << name;
  }
  const auto place = [&](const char* name) { return std::find(texts.begin(), texts.end(), name); };
  EXPECT_LT(place("connect"), place("createStream"));
  EXPECT_LT(place("createStream"), place("publish"));
  EXPECT_LT(place("publish"), place("@setDataFrame"));
  EXPECT_LT(place("@setDataFrame"), place("deleteStream"));
}

// The server keeps no HEVC, so what it was sent is read from the wire.
TEST_F(RtmpWire, HevcAndOpusAreSentInTheExtendedForm) {
  ASSERT_NO_FATAL_FAILURE(publish(samples::enhanced()));
  expectNothingMalformed();
  FlvFile received;
  for (const auto kind : {FlvTag::Kind::video, FlvTag::Kind::audio}) {
    for (FlvTag& tag : bodies(kind)) received.tags.push_back(std::move(tag));
  }
  expectSame(received, MediaContents::of(samples::enhanced()), {.times = false});
}

}  // namespace
}  // namespace vellora::test
