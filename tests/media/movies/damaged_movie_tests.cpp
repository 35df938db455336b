#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <random>

#include "MovieSamples.h"
#include "media/movies/MediaReader.h"

namespace vellora::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

MediaFailure failureOf(const std::filesystem::path& file) {
  auto reader = MediaReader::open(file);
  EXPECT_FALSE(reader) << file;
  return reader ? MediaFailure{} : reader.error();
}

/// Opens and reads whatever can be read. Anything is right that ends, stays in order, and says why it failed.
void readWhatIsThere(const std::string& name, const std::string& content) {
  const auto reader = MediaReader::open(writeSample(name, content));
  if (!reader) {
    EXPECT_FALSE(reader.error().message.empty());
    return;
  }
  ASSERT_TRUE((*reader)->video() || (*reader)->audio());
  const ReadMovie movie = readAll(**reader);
  for (const auto* track : {&movie.video, &movie.audio}) {
    for (std::size_t i = 1; i < track->size(); ++i) ASSERT_GT((*track)[i].decode, (*track)[i - 1].decode);
  }
  EXPECT_TRUE(!movie.failure || !movie.failure->message.empty());
}

TEST(DamagedMovie, SaysWhatIsNotAFile) {
  const MediaFailure missing = failureOf(sampleFolder() / "missing.mp4");
  EXPECT_EQ(missing.error, MediaError::unreadable);
  EXPECT_THAT(missing.message, HasSubstr("There is no file"));
  EXPECT_THAT(failureOf(sampleFolder()).message, EndsWith("is a folder"));
  EXPECT_EQ(failureOf(writeSample("empty.mp4", "")).error, MediaError::notMedia);

  const auto pipe = sampleFolder() / "pipe.mp4";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(failureOf(pipe).error, MediaError::unreadable);

  const auto locked = writeSample("locked.mp4", "content");
  ASSERT_EQ(chmod(locked.c_str(), 0), 0);
  if (access(locked.c_str(), R_OK) != 0) {
    EXPECT_THAT(failureOf(locked).message, HasSubstr("No permission"));
  }
}

TEST(DamagedMovie, SaysWhatIsNoMedia) {
  EXPECT_EQ(failureOf(writeSample("notes.mp4", "These are notes, not a movie.\n")).error, MediaError::notMedia);
  EXPECT_EQ(failureOf(writeSample("subtitles.srt", "1\n00:00:01,000 --> 00:00:02,000\nHello\n\n")).error,
            MediaError::notMedia);
  std::mt19937 random(1);
  std::string noise(200'000, '\0');
  for (char& byte : noise) byte = static_cast<char>(random());
  readWhatIsThere("noise.mp4", noise);
  EXPECT_EQ(failureOf(writeSample("zeros.mkv", std::string(100'000, '\0'))).error, MediaError::notMedia);
}

TEST(DamagedMovie, ReadsNoFileThatAnotherNames) {
  const std::string movie = copiedSample("copy.ts").string();
  const std::vector<std::pair<std::string, std::string>> playlists{
      {"list.m3u8", "#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\nfile://" + movie + "\n#EXT-X-ENDLIST\n"},
      {"list.mp4", "#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\n" + movie + "\n#EXT-X-ENDLIST\n"},
      {"list.txt", "ffconcat version 1.0\nfile '" + movie + "'\n"},
      {"list.ffconcat", "ffconcat version 1.0\nfile 'copy.ts'\n"},
      {"call.sdp", "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=-\nc=IN IP4 127.0.0.1\nt=0 0\nm=video 5004 RTP/AVP 96\n"},
      {"list.mpd",
       "<?xml version=\"1.0\"?>\n<MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\" "
       "profiles=\"urn:mpeg:dash:profile:isoff-main:2011\" type=\"static\"><Period><AdaptationSet>"
       "<Representation id=\"0\"><BaseURL>" +
           movie + "</BaseURL></Representation></AdaptationSet></Period></MPD>\n"},
  };
  for (const auto& [name, text] : playlists) {
    SCOPED_TRACE(name);
    EXPECT_EQ(failureOf(writeSample(name, text)).error, MediaError::notMedia);
  }
  EXPECT_THAT(failureOf(sampleFolder() / "list.m3u8").message, HasSubstr("only refers to other files"));
  plainMovie();
  EXPECT_EQ(failureOf(makeSample("picture.png", "-i @plain.mp4 -frames:v 1")).error, MediaError::notMedia);
}

TEST(DamagedMovie, SurvivesEveryCut) {
  for (const char* name : {"plain.mp4", "copy.mkv", "copy.ts", "copy.flv", "fragments.mp4"}) {
    SCOPED_TRACE(name);
    const bool inFragments = std::string(name) == "fragments.mp4";
    const std::string whole = readFile(copiedSample(name, inFragments ? "-movflags frag_keyframe+empty_moov" : ""));
    for (int i = 0; i < 24; ++i) {
      readWhatIsThere(std::string("cut-") + name, whole.substr(0, whole.size() * static_cast<std::size_t>(i) / 24 + 7));
    }
  }
}

TEST(DamagedMovie, ReadsWhatIsLeftOfAnUnfinishedRecording) {
  const std::string whole = readFile(copiedSample("copy.mkv"));
  const auto reader = MediaReader::open(writeSample("unfinished.mkv", whole.substr(0, whole.size() / 2)));
  ASSERT_TRUE(reader) << reader.error().message;
  const ReadMovie movie = readAll(**reader);
  EXPECT_GT(movie.video.size(), 10U);
  EXPECT_LT(movie.video.size(), 50U);
  EXPECT_FALSE(unitsOf(movie.video.back()).empty());  // no half picture
}

TEST(DamagedMovie, SurvivesBytesThatChanged) {
  std::mt19937 random(2);
  for (const char* name : {"plain.mp4", "copy.mkv", "copy.ts", "copy.flv"}) {
    SCOPED_TRACE(name);
    const std::string whole = readFile(copiedSample(name));
    for (int i = 0; i < 24; ++i) {
      std::string changed = whole;
      // Half of the changes near the ends, where headers and indexes are.
      for (int j = 0; j < 40; ++j) {
        std::size_t at = random() % changed.size();
        if (j % 4 == 0) at %= 2000;
        if (j % 4 == 1) at = changed.size() - 1 - at % 4000;
        changed[at] = static_cast<char>(random());
      }
      readWhatIsThere(std::string("changed-") + name, changed);
    }
  }
}

TEST(DamagedMovie, GoesOnBehindAHole) {
  std::string holed = readFile(copiedSample("copy.ts"));
  const std::size_t hole = holed.size() / 188 / 3 * 188;
  holed.replace(hole, 188 * 20, 188 * 20, '\xAA');
  const auto reader = MediaReader::open(writeSample("holed.ts", holed));
  ASSERT_TRUE(reader) << reader.error().message;
  const ReadMovie movie = readAll(**reader);
  EXPECT_FALSE(movie.failure);
  ASSERT_FALSE(movie.video.empty());
  EXPECT_GT(movie.video.back().presentation, 1'800'000);
}

}  // namespace
}  // namespace vellora::test
