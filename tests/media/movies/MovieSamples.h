#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "media/movies/MediaReader.h"

namespace vellora::test {

/// A packet that was read, kept.
struct ReadPacket {
  std::int64_t decode = 0;  ///< microseconds, as the next two
  std::int64_t presentation = 0;
  std::int64_t duration = 0;
  bool isKeyFrame = false;
  std::vector<std::uint8_t> data;
};

struct ReadMovie {
  std::vector<ReadPacket> video, audio;
  std::vector<MediaKind> order;
  bool isInOrder = true;  ///< by decode time, both kinds together
  std::optional<MediaFailure> failure;
};

/// What ffprobe says of a packet; times in microseconds, nothing where the file has none.
struct ProbedPacket {
  std::optional<std::int64_t> decode, presentation;
  std::size_t bytes = 0;
  bool isKeyFrame = false;
};

/// The folder of the sample files, made anew by the first test and removed at the end.
const std::filesystem::path& sampleFolder();

/// A file in the sample folder, made by ffmpeg with these arguments unless it is there already; in them "@NAME" is the
/// sample NAME. Fails the test when ffmpeg does.
std::filesystem::path makeSample(const std::string& name, const std::string& arguments);
/// Two seconds of H.264 with B-frames, 25 frames a second, and AAC; the source of most others.
std::filesystem::path plainMovie();
/// The sample with its tracks unchanged in another container.
std::filesystem::path copiedSample(const std::string& name, const std::string& options = {});
std::filesystem::path writeSample(const std::string& name, const std::string& content);

ReadMovie readAll(MediaReader& reader);
/// By the kind of track.
std::map<MediaKind, std::vector<ProbedPacket>> probePackets(const std::filesystem::path& file);
/// The value of an entry of the first stream, such as "nb_read_frames".
std::string probeStream(const std::filesystem::path& file, const std::string& entry);

/// H.264 with lengths as a byte stream, its parameter sets first.
std::filesystem::path writeByteStream(const std::string& name, const MediaTrack& track,
                                      const std::vector<ReadPacket>& packets);
/// AAC with ADTS headers (ISO/IEC 14496-3, 1.A.2.2).
std::filesystem::path writeAdts(const std::string& name, const MediaTrack& track,
                                const std::vector<ReadPacket>& packets);
/// Every NAL unit of a packet with four-byte lengths, by its type in the header's first byte.
std::vector<std::vector<std::uint8_t>> unitsOf(const ReadPacket& packet);

std::string readFile(const std::filesystem::path& file);

}  // namespace vellora::test
