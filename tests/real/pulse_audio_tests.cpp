#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <mutex>
#include <optional>
#include <vector>

#include <QCoreApplication>

#include "base/QtRunLoop.h"
#include "platform/linux/audio/LoadedAudioCapture.h"
#include "support/PulseServer.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

using testing::ElementsAre;

/// What a stream gave.
class Heard {
 public:
  AudioCapture::Callbacks callbacks() {
    return {.onChunk =
                [this](const AudioChunk& chunk) {
                  const std::lock_guard lock(mutex_);
                  chunks_ += 1;
                  if (lost_) ++late_;
                  const double expected = next_.value_or(chunk.hostTime);
                  worstStep_ = std::max(worstStep_, std::abs(chunk.hostTime - expected));
                  const auto frames = chunk.samples.size() / static_cast<std::size_t>(chunk.channels);
                  const double length = static_cast<double>(frames) / AudioChunk::sampleRate;
                  isWellSized_ = isWellSized_ && length >= 0.01 && length <= 0.04;
                  next_ = chunk.hostTime + length;
                  take(chunk);
                },
            .onLost =
                [this](AudioCaptureError error) {
                  const std::lock_guard lock(mutex_);
                  lost_ = error;
                }};
  }
  int chunks() const { return locked(chunks_); }
  int chunksAfterLoss() const { return locked(late_); }
  std::optional<AudioCaptureError> lost() const { return locked(lost_); }
  /// How far a chunk's time was from the end of the one before, in seconds.
  double worstStep() const { return locked(worstStep_); }
  bool isWellSized() const { return locked(isWellSized_); }
  std::vector<double> clicks() const { return locked(clicks_); }
  /// Zero crossings of the last chunk's first channel, upward, in a second.
  double frequency() const { return locked(frequency_); }

 private:
  template <class T>
  T locked(const T& value) const {
    const std::lock_guard lock(mutex_);
    return value;
  }

  void take(const AudioChunk& chunk) {
    const auto step = static_cast<std::size_t>(chunk.channels);
    int crossings = 0;
    for (std::size_t i = 0; i < chunk.samples.size(); i += step) {
      const float sample = chunk.samples[i];
      const double time = chunk.hostTime + static_cast<double>(i / step) / AudioChunk::sampleRate;
      if (sample > 0.3F && (clicks_.empty() || time > clicks_.back() + 0.1)) clicks_.push_back(time);
      crossings += before_ < 0 && sample >= 0 ? 1 : 0;
      before_ = sample;
    }
    frequency_ = crossings * 50.0;
  }

  mutable std::mutex mutex_;
  int chunks_ = 0, late_ = 0;
  double worstStep_ = 0;
  bool isWellSized_ = true;
  std::optional<double> next_;
  std::optional<AudioCaptureError> lost_;
  std::vector<double> clicks_;
  double frequency_ = 0;
  float before_ = 0;
};

double secondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

class PulseAudioTest : public testing::Test {
 protected:
  void SetUp() override {
    server = PulseServer::start();
    ASSERT_TRUE(server);
  }

  std::vector<QString> microphones() {
    const auto found = audio.microphones();
    std::vector<QString> ids;
    if (found) {
      for (const auto& microphone : *found) ids.push_back(microphone.uniqueID);
    }
    return ids;
  }
  std::string load(const std::string& module, const std::vector<std::string>& arguments) const {
    std::vector<std::string> command{"load-module", module};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return server->control(command);
  }
  std::string plugIn(const std::string& name) const {
    return load("module-pipe-source", {"source_name=" + name, "file=" + server->folder() + "/" + name + ".fifo",
                                       "format=s16le", "rate=44100", "channels=2"});
  }

  std::unique_ptr<PulseServer> server;
  QtRunLoop runLoop;
  LoadedAudioCapture audio{runLoop};
  Heard heard;
};

TEST_F(PulseAudioTest, ListsMicrophonesAndTellsWhenTheyChange) {
  const auto found = audio.microphones();
  ASSERT_TRUE(found);
  EXPECT_THAT(*found, ElementsAre(CaptureDeviceInfo{"mic", "Microphone"})) << "monitors are no microphones";

  int changes = 0;
  audio.onDevicesChanged([&] { ++changes; });
  int seen = 0;
  const auto changed = [&] {
    const bool hasChanged = waitFor([&] {
      QCoreApplication::processEvents();
      return changes > seen;
    });
    seen = changes;
    return hasChanged;
  };
  ASSERT_TRUE(changed()) << "once it listens";
  const std::string module = plugIn("usb");
  EXPECT_TRUE(changed());
  EXPECT_THAT(microphones(), ElementsAre("mic", "usb"));
  server->control({"set-default-source", "usb"});
  EXPECT_TRUE(changed());
  EXPECT_THAT(microphones(), ElementsAre("usb", "mic"));
  server->control({"unload-module", module});
  EXPECT_TRUE(changed());
  EXPECT_THAT(microphones(), ElementsAre("mic"));
  server->kill();
  EXPECT_TRUE(changed());
  ASSERT_TRUE(server->restart());
  EXPECT_TRUE(changed());
}

TEST_F(PulseAudioTest, SamplesHaveTheTimeAtWhichTheyWereAtTheMicrophone) {
  const ClickingMicrophone microphone(server->microphonePipe());
  auto stream = audio.start("mic", 1, heard.callbacks());
  ASSERT_TRUE(stream);
  ASSERT_TRUE(waitFor([&] { return heard.clicks().size() >= 14; }, 20));
  stream->reset();
  const auto made = microphone.clicks();
  double worst = 0, least = 1, most = -1;
  for (const double click : heard.clicks()) {
    double nearest = 1;
    for (const double moment : made) {
      if (std::abs(click - moment) < std::abs(nearest)) nearest = click - moment;
    }
    worst = std::max(worst, std::abs(nearest));
    least = std::min(least, nearest);
    most = std::max(most, nearest);
  }
  RecordProperty("offset_us", static_cast<int>(worst * 1e6));
  RecordProperty("jitter_us", static_cast<int>((most - least) * 1e6));
  EXPECT_LT(worst, 0.010);
  EXPECT_LT(most - least, 0.004);
  EXPECT_LT(heard.worstStep(), 0.002);
  EXPECT_TRUE(heard.isWellSized());
  EXPECT_FALSE(heard.lost());
}

TEST_F(PulseAudioTest, AMicrophoneThatIsUnpluggedIsLostAndNoOtherTakesItsPlace) {
  const std::string module = plugIn("usb");
  auto stream = audio.start("usb", 2, heard.callbacks());
  ASSERT_TRUE(stream);
  server->control({"unload-module", module});
  ASSERT_TRUE(waitFor([&] { return heard.lost().has_value(); }));
  EXPECT_EQ(*heard.lost(), AudioCaptureError::deviceNotFound);
  EXPECT_EQ(heard.chunksAfterLoss(), 0);
  const auto again = audio.start("usb", 2, {});
  ASSERT_FALSE(again);
  EXPECT_EQ(again.error(), AudioCaptureError::deviceNotFound);
}

TEST_F(PulseAudioTest, WithoutAServerItSaysSoSoon) {
  const ClickingMicrophone microphone(server->microphonePipe());
  auto stream = audio.start("mic", 1, heard.callbacks());
  ASSERT_TRUE(stream);
  ASSERT_TRUE(waitFor([&] { return heard.chunks() > 5; }));

  // A server that hangs.
  server->signal(SIGSTOP);
  EXPECT_LT(secondsOf([&] {
              const auto hung = audio.start("mic", 1, {});
              ASSERT_FALSE(hung);
              EXPECT_EQ(hung.error(), AudioCaptureError::notAvailable);
            }),
            1.2);
  {
    Heard other;
    server->signal(SIGCONT);
    auto second = audio.start("mic", 1, other.callbacks());
    ASSERT_TRUE(second);
    server->signal(SIGSTOP);
    EXPECT_LT(secondsOf([&] { second->reset(); }), 0.2);
    server->signal(SIGCONT);
  }

  server->kill();
  ASSERT_TRUE(waitFor([&] { return heard.lost().has_value(); }));
  EXPECT_EQ(*heard.lost(), AudioCaptureError::notAvailable);
  EXPECT_LT(secondsOf([&] {
              const auto found = audio.microphones();
              ASSERT_FALSE(found);
              EXPECT_EQ(found.error(), AudioCaptureError::notAvailable);
              const auto dead = audio.start(AudioCapture::systemSound, 2, {});
              ASSERT_FALSE(dead);
              EXPECT_EQ(dead.error(), AudioCaptureError::notAvailable);
            }),
            1.0);
}

TEST_F(PulseAudioTest, SystemSoundIsThatOfTheDefaultOutputWhereverItGoes) {
  auto stream = audio.start(AudioCapture::systemSound, 2, heard.callbacks());
  ASSERT_TRUE(stream);
  // The server moves what plays along with the default output; so there is one tone only.
  const auto play = [&](const std::string& output, const std::string& frequency) {
    return load("module-sine", {"sink=" + output, "frequency=" + frequency});
  };
  const auto isAbout = [&](double frequency) {
    return waitFor([&] { return std::abs(heard.frequency() - frequency) <= 60; });
  };
  std::string tone = play("speakers", "1000");
  EXPECT_TRUE(isAbout(1000));
  server->control({"unload-module", tone});
  const std::string headphones = load("module-null-sink", {"sink_name=headphones"});
  server->control({"set-default-sink", "headphones"});
  tone = play("headphones", "2500");
  EXPECT_TRUE(isAbout(2500));
  server->control({"unload-module", tone});
  server->control({"unload-module", headphones});
  play("speakers", "1500");
  EXPECT_TRUE(isAbout(1500));
  EXPECT_FALSE(heard.lost());
}

}  // namespace
}  // namespace vellora::test
