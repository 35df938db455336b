#include <gtest/gtest.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include "cli/publish/LiveLine.h"
#include "cli/publish/LoopTimeline.h"
#include "cli/publish/PacingClock.h"
#include "cli/publish/PublishReport.h"
#include "cli/publish/Redaction.h"
#include "cli/publish/SecretInput.h"

namespace vellora {
namespace {

using namespace std::chrono_literals;

MediaPacket packet(MediaKind kind, std::chrono::microseconds decode, std::chrono::microseconds presentation,
                   std::chrono::microseconds duration) {
  MediaPacket packet;
  packet.kind = kind;
  packet.decodeTime = decode;
  packet.presentationTime = presentation;
  packet.duration = duration;
  return packet;
}

TEST(LoopTimeline, RoundsFollowWithoutGapOrOverlap) {
  LoopTimeline timeline(25);
  // Frames that are shown in another order than they are decoded in; the audio ends earlier.
  for (int round = 0; round < 3; ++round) {
    const auto start = round * 160ms;
    EXPECT_EQ(timeline.place(packet(MediaKind::video, -40ms, 0ms, 40ms)).decodeTime, start - 40ms);
    EXPECT_EQ(timeline.place(packet(MediaKind::audio, 0ms, 0ms, 150ms)).presentationTime, start);
    EXPECT_EQ(timeline.place(packet(MediaKind::video, 0ms, 120ms, 40ms)).presentationTime, start + 120ms);
    EXPECT_EQ(timeline.place(packet(MediaKind::video, 40ms, 40ms, 40ms)).decodeTime, start + 40ms);
    EXPECT_EQ(timeline.end(), start + 160ms);
    timeline.startAgain();
  }
}

TEST(LoopTimeline, AFrameWithoutADurationStillTakesTime) {
  LoopTimeline picture(0);
  picture.place(packet(MediaKind::video, 0ms, 0ms, 0ms));
  EXPECT_GT(picture.end(), 0ms);
  LoopTimeline fast(50);
  fast.place(packet(MediaKind::video, 0ms, 0ms, 0ms));
  EXPECT_EQ(fast.end(), 20ms);
}

TEST(PacingClock, LeavesAtItsTimeWithALittleLead) {
  PacingClock clock;
  const PacingClock::Time start(1h);
  EXPECT_FALSE(clock.wakeTime(5s, start)) << "the first frame leaves at once, whatever its time";
  EXPECT_FALSE(clock.wakeTime(5s + PacingClock::lead, start));
  const auto wake = clock.wakeTime(7s, start);
  ASSERT_TRUE(wake);
  EXPECT_GE(*wake, start + 2s - PacingClock::lead);
  EXPECT_LE(*wake, start + 2s);
  EXPECT_FALSE(clock.wakeTime(7s, *wake));
}

TEST(PacingClock, CatchesUpAfterAHiccupButNotAfterAStop) {
  PacingClock clock;
  const PacingClock::Time start(1h);
  clock.wakeTime(0s, start);
  EXPECT_FALSE(clock.wakeTime(1s, start + 1500ms));
  EXPECT_FALSE(clock.wakeTime(1600ms, start + 1500ms)) << "half a second is made up for";
  EXPECT_TRUE(clock.wakeTime(1700ms, start + 1500ms));

  EXPECT_FALSE(clock.wakeTime(2s, start + 10s));
  EXPECT_TRUE(clock.wakeTime(3s, start + 10s)) << "eight seconds are not sent in one burst";
}

TEST(Redaction, NoSecretIsLeftInWhatIsSaid) {
  Redaction redaction;
  redaction.add("key-4711?token=s3cretword&expires=99887766");
  redaction.add("hunter2!");
  redaction.add("e");
  EXPECT_EQ(redaction.clean("stream key-4711 is taken"), "stream … is taken");
  EXPECT_EQ(redaction.clean("no access to /live/key-4711?token=s3cretword&expires=99887766, sorry"),
            "no access to /live/…, sorry");
  EXPECT_EQ(redaction.clean("token s3cretword, expired 99887766"), "token …, expired …");
  EXPECT_EQ(redaction.clean("xhunter2!x"), "x…x");
  EXPECT_EQ(redaction.clean("the stream e is here"), "the stream … is here");
}

TEST(Redaction, WhatServersSayCannotReachTheTerminal) {
  const Redaction redaction;
  EXPECT_EQ(redaction.clean("a\x1b[2Jb\r\nc\x7f\xc2\x9b"
                            "d"),
            "a [2Jb  c  d");
  EXPECT_LT(redaction.clean(std::string(100000, 'x')).size(), 1000U);
  const std::string cut = redaction.clean(std::string(499, 'x') + "ééé");
  EXPECT_EQ(cut, std::string(499, 'x') + "…") << "not in the middle of a character";
}

class Pipe {
 public:
  explicit Pipe(const std::string& content) {
    EXPECT_EQ(::pipe(ends_), 0);
    EXPECT_EQ(::write(ends_[1], content.data(), content.size()), static_cast<ssize_t>(content.size()));
    ::close(ends_[1]);
  }
  ~Pipe() { ::close(ends_[0]); }
  int end() const { return ends_[0]; }

 private:
  int ends_[2]{};
};

TEST(SecretInput, TakesALineForEachSecretAndNothingMore) {
  const Pipe pipe("pass word\r\nkey\nthe rest");
  SecretInput input(pipe.end());
  EXPECT_EQ(input.read("password"), "pass word");
  EXPECT_EQ(input.read("stream name"), "key");
  char rest[32];
  EXPECT_EQ(::read(pipe.end(), rest, sizeof rest), 8);
}

TEST(SecretInput, RefusesWhatCannotBeASecret) {
  EXPECT_FALSE(SecretInput(Pipe("").end()).read("password"));
  EXPECT_FALSE(SecretInput(Pipe("\nkey\n").end()).read("password"));
  EXPECT_FALSE(SecretInput(Pipe(std::string(20000, 'x')).end()).read("password"));
  EXPECT_FALSE(SecretInput(-1).read("password"));
  EXPECT_EQ(SecretInput(Pipe("no line end").end()).read("password"), "no line end");
}

PublishReport sampleReport() {
  PublishReport report;
  report.file = "/movies/\xff.webm";
  report.server = "rtmp://host:1935/live/…";
  report.progress = {12345678us, 9'260'000, 0ms, 300, 500, 7};
  report.video.emplace();
  report.video->codec = "h264";
  report.video->encodedFrom = "vp9";
  report.audio.emplace();
  report.audio->codec = "opus";
  return report;
}

TEST(PublishReport, JsonHasEveryFieldAndNoSecret) {
  PublishReport report = sampleReport();
  const auto done = nlohmann::json::parse(reportJson(report, {}));
  EXPECT_EQ(done["state"], "done");
  EXPECT_EQ(done["seconds"], 12.345);
  EXPECT_EQ(done["bytes"], 9260000);
  EXPECT_EQ(done["droppedFrames"], 7);
  EXPECT_EQ(done["transcoded"], (nlohmann::json{{"video", "vp9"}}));
  EXPECT_FALSE(done.contains("error"));

  Redaction redaction;
  redaction.add("my-secret-key");
  report.audio.reset();
  report.outcome = {PublishOutcome::State::failed, PublishFailure{"streamRefused", "my-secret-key is taken"}};
  const auto failed = nlohmann::json::parse(reportJson(report, redaction));
  EXPECT_EQ(failed["state"], "failed");
  EXPECT_TRUE(failed["audioCodec"].is_null());
  EXPECT_EQ(failed["error"], (nlohmann::json{{"code", "streamRefused"}, {"message", "… is taken"}}));
}

TEST(PublishReport, AFileCalledLikeTheStreamIsNamed) {
  Redaction redaction;
  redaction.add("movie");
  const PublishFailure missing = publishFailure(MediaFailure{MediaError::unreadable, "there is no file /movie.mp4"});
  EXPECT_EQ(printable(missing, redaction), "there is no file /movie.mp4");
  EXPECT_EQ(printable({"streamRefused", "/live/movie is taken"}, redaction), "/live/… is taken");
}

TEST(PublishReport, TextTellsWhatMatters) {
  PublishReport report = sampleReport();
  EXPECT_EQ(reportText(report),
            "00:12 published to rtmp://host:1935/live/…, 9.3 MB\n"
            "300 video frames (h264, encoded again from vp9), 500 audio frames (opus), 7 frames dropped");
  report.progress = {};
  EXPECT_EQ(reportText(report), "") << "nothing was published";
}

TEST(LiveLine, SaysTimeRateQueueAndDrops) {
  EXPECT_EQ(liveText({12s, 0, 120ms, 0, 0, 0}, 6.13e6), "00:12  6.1 Mbit/s  queue 120 ms  dropped 0");
  EXPECT_EQ(liveText({3725s, 0, 0ms, 0, 0, 31}, 128e3), "1:02:05  128 kbit/s  queue 0 ms  dropped 31");
}

}  // namespace
}  // namespace vellora
