#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <thread>
#include <utility>
#include <vector>

#include "record_editor/playback/MoviePlayer.h"
#include "support/ScriptedMovie.h"
#include "support/VirtualRunLoop.h"

namespace vellora::test {
namespace {

constexpr double rate = 25;
constexpr int pictures = 100;

class MoviePlayerTest : public testing::Test {
 protected:
  void open(std::vector<std::unique_ptr<AudioReader>> sounds = {}, bool hasCamera = false) {
    MoviePlayer::Footage footage;
    footage.screen = std::make_unique<ScriptedVideo>(pictures, rate);
    if (hasCamera) footage.camera = std::make_unique<ScriptedVideo>(pictures / 2, rate, 64, 64);
    footage.sounds = std::move(sounds);
    player_ = std::make_unique<MoviePlayer>(
        loop_, speakers_, std::move(footage),
        MoviePlayer::Callbacks{.onScreen = [this](const ShownPicturePtr& picture) { shown_ = numberOf(picture); },
                               .onCamera = [this](const ShownPicturePtr& picture) { camera_ = numberOf(picture); },
                               .onChanged = [] {}});
    player_->setScreenSize(32, 18);
    player_->setCameraSize(8, 8);
  }
  void openWithSound(double seconds = pictures / rate) {
    std::vector<std::unique_ptr<AudioReader>> sounds;
    sounds.push_back(std::make_unique<ScriptedTrack>(seconds));
    open(std::move(sounds));
  }

  static int numberOf(const ShownPicturePtr& picture) { return static_cast<int>(picture->pixels[0] & 0xFFFFFF); }
  bool shows(int number) {
    return loop_.runUntil([&] { return shown_ == number; });
  }
  /// Lets time pass in small steps until a picture is shown; the feed's thread needs a moment of real time for each.
  bool playsTo(int number) {
    for (int i = 0; i < 20'000 && shown_ < number; ++i) {
      std::this_thread::sleep_for(std::chrono::microseconds(200));
      loop_.advance(0.002);
    }
    return shown_ >= number;
  }
  bool speakersPlay(bool play) {
    for (int i = 0; i < 10'000 && speakers_.isPlaying() != play; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return speakers_.isPlaying() == play;
  }
  /// Hears sound at the pace at which it can be read, while the computer's clock runs `factor` times as fast.
  void hear(double seconds, double factor) {
    for (double heard = 0; heard < seconds - 1e-9; heard += 0.02) {
      std::this_thread::sleep_for(std::chrono::milliseconds(16));
      speakers_.take(0.02);
      loop_.advance(0.02 * factor);
    }
  }

  VirtualRunLoop loop_;
  ScriptedSpeakers speakers_;
  std::unique_ptr<MoviePlayer> player_;
  int shown_ = -1;
  int camera_ = -1;
};

TEST_F(MoviePlayerTest, ShowsEveryPlaceThatIsSoughtAndStepsByPictures) {
  open({}, true);
  EXPECT_TRUE(shows(0));
  EXPECT_DOUBLE_EQ(player_->duration(), 4);
  for (const auto& [time, number] : std::vector<std::pair<double, int>>{
           {1.0, 25}, {1.039, 25}, {1.04, 26}, {3.99, 99}, {4, 99}, {99, 99}, {-1, 0}, {NAN, 0}, {0.5, 12}}) {
    player_->seek(time);
    EXPECT_TRUE(shows(number)) << time << ": " << shown_;
  }
  EXPECT_TRUE(loop_.runUntil([&] { return camera_ == 12; }));
  player_->step(1);
  EXPECT_TRUE(shows(13));
  player_->step(-1);
  EXPECT_TRUE(shows(12));
  player_->step(-1);
  EXPECT_TRUE(shows(11));
  player_->seek(3);
  EXPECT_TRUE(loop_.runUntil([&] { return camera_ == 49; }));
  EXPECT_FALSE(player_->isPlaying());
}

TEST_F(MoviePlayerTest, WithoutSoundTheComputersClockMovesThePictures) {
  open();
  ASSERT_TRUE(shows(0));
  player_->play();
  const double before = loop_.hostTime();
  ASSERT_TRUE(playsTo(50));
  EXPECT_NEAR(player_->position(), loop_.hostTime() - before, 0.02);
  player_->pause();
  const double position = player_->position();
  loop_.advance(1);
  EXPECT_DOUBLE_EQ(player_->position(), position);
  player_->seek(3.8);
  ASSERT_TRUE(shows(95));
  player_->play();
  ASSERT_TRUE(playsTo(99));
  loop_.advance(0.1);
  EXPECT_FALSE(player_->isPlaying());
  EXPECT_DOUBLE_EQ(player_->position(), 4);
  player_->play();
  EXPECT_LT(player_->position(), 0.1);
  EXPECT_TRUE(shows(0));
}

TEST_F(MoviePlayerTest, PicturesKeepStepWithTheSound) {
  openWithSound();
  ASSERT_TRUE(shows(0));
  player_->seek(1);
  player_->play();
  ASSERT_TRUE(speakersPlay(true));
  const auto sound = speakers_.take(0.1);
  ASSERT_EQ(sound.size(), 9600U);
  EXPECT_NEAR(sound[0], 0.48, 1e-4);
  // The computer's clock runs twice as fast as the sound; the sound counts.
  hear(0.4, 2);
  EXPECT_NEAR(player_->position(), 1.5, 0.05);
  player_->pause();
  EXPECT_TRUE(speakersPlay(false));
  player_->seek(2);
  player_->play();
  ASSERT_TRUE(speakersPlay(true));
  EXPECT_NEAR(speakers_.take(0.01)[0], 0.96, 1e-4);
  player_->setMuted(true);
  EXPECT_EQ(speakers_.take(0.01)[0], 0);
}

TEST_F(MoviePlayerTest, GoesOnWithoutSoundThatFailsOrEnds) {
  speakers_.isRefused = true;
  openWithSound();
  ASSERT_TRUE(shows(0));
  player_->play();
  EXPECT_TRUE(playsTo(30));
  player_->pause();

  speakers_.isRefused = false;
  player_->play();
  ASSERT_TRUE(speakersPlay(true));
  speakers_.take(0.1);
  // A server that stands still is given up after a while.
  EXPECT_TRUE(playsTo(60));
  player_->pause();

  openWithSound(0.2);
  player_->play();
  ASSERT_TRUE(speakersPlay(true));
  hear(0.8, 1);
  EXPECT_NEAR(player_->position(), 0.8, 0.05);
}

}  // namespace
}  // namespace vellora::test
