#include "MovieSamples.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "support/ChildProcess.h"

namespace vellora::test {
namespace {

class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "vellora-movies-XXXXXX").string();
    if (mkdtemp(name.data()) != nullptr) path = name;
  }
  ~Folder() {
    std::error_code ignored;
    if (!path.empty()) std::filesystem::remove_all(path, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::filesystem::path path;
};

std::vector<std::string> split(const std::string& text, char at) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, at);) parts.push_back(part);
  return parts;
}

std::optional<std::int64_t> microseconds(const std::map<std::string, std::string>& entries, const std::string& key) {
  const auto found = entries.find(key);
  if (found == entries.end() || found->second == "N/A") return std::nullopt;
  return std::llround(std::stod(found->second) * 1e6);
}

std::string probe(const std::filesystem::path& file, std::vector<std::string> options) {
  options.insert(options.begin(), {"ffprobe", "-v", "error"});
  options.push_back(file.string());
  return runProgram(options, {}, {}, 60).output;
}

}  // namespace

const std::filesystem::path& sampleFolder() {
  static const Folder folder;
  return folder.path;
}

std::filesystem::path makeSample(const std::string& name, const std::string& arguments) {
  const std::filesystem::path file = sampleFolder() / name;
  if (std::filesystem::exists(file)) return file;
  std::vector<std::string> command{"ffmpeg", "-nostdin", "-v", "error", "-y"};
  for (const std::string& word : split(arguments, ' ')) {
    if (word.empty()) continue;
    command.push_back(word[0] == '@' ? (sampleFolder() / word.substr(1)).string() : word);
  }
  command.push_back(file.string());
  const Finished made = runProgram(command, {}, {}, 60);
  EXPECT_EQ(made.exitCode, 0) << name << ": " << made.errors;
  return file;
}

std::filesystem::path plainMovie() {
  return makeSample(
      "plain.mp4",
      "-f lavfi -i testsrc2=s=192x108:r=25:d=2 -f lavfi -i sine=r=44100:d=2 -c:v libx264 -preset veryfast "
      "-bf 2 -g 25 -pix_fmt yuv420p -c:a aac -b:a 64k");
}

std::filesystem::path copiedSample(const std::string& name, const std::string& options) {
  plainMovie();
  return makeSample(name, "-i @plain.mp4 -c copy " + options);
}

std::filesystem::path writeSample(const std::string& name, const std::string& content) {
  const std::filesystem::path file = sampleFolder() / name;
  std::ofstream(file, std::ios::binary) << content;
  return file;
}

ReadMovie readAll(MediaReader& reader) {
  ReadMovie movie;
  std::int64_t last = 0;
  for (;;) {
    const auto packet = reader.read();
    if (!packet) {
      movie.failure = packet.error();
      break;
    }
    if (*packet == nullptr) break;
    const MediaPacket& read = **packet;
    auto& track = read.kind == MediaKind::video ? movie.video : movie.audio;
    track.push_back({read.decodeTime.count(),
                     read.presentationTime.count(),
                     read.duration.count(),
                     read.isKeyFrame,
                     {read.data.begin(), read.data.end()}});
    movie.order.push_back(read.kind);
    movie.isInOrder = movie.isInOrder && read.decodeTime.count() >= last;
    last = read.decodeTime.count();
  }
  return movie;
}

std::map<MediaKind, std::vector<ProbedPacket>> probePackets(const std::filesystem::path& file) {
  const std::string output =
      probe(file, {"-show_entries", "packet=codec_type,pts_time,dts_time,size,flags", "-of", "compact=p=0"});
  std::map<MediaKind, std::vector<ProbedPacket>> packets;
  for (const std::string& line : split(output, '\n')) {
    std::map<std::string, std::string> entries;
    for (const std::string& entry : split(line, '|')) {
      const std::size_t equals = entry.find('=');
      if (equals != std::string::npos) entries[entry.substr(0, equals)] = entry.substr(equals + 1);
    }
    if (!entries.contains("size")) continue;
    ProbedPacket packet;
    packet.decode = microseconds(entries, "dts_time");
    packet.presentation = microseconds(entries, "pts_time");
    packet.bytes = std::stoul(entries["size"]);
    packet.isKeyFrame = entries["flags"].find('K') != std::string::npos;
    packets[entries["codec_type"] == "video" ? MediaKind::video : MediaKind::audio].push_back(packet);
  }
  return packets;
}

std::string probeStream(const std::filesystem::path& file, const std::string& entry) {
  std::string value = probe(file, {"-count_frames", "-show_entries", "stream=" + entry, "-of", "default=nw=1:nk=1"});
  return value.substr(0, value.find('\n'));
}

std::vector<std::vector<std::uint8_t>> unitsOf(const ReadPacket& packet) {
  std::vector<std::vector<std::uint8_t>> units;
  for (std::size_t at = 0; at + 4 <= packet.data.size();) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < 4; ++i) length = length << 8 | packet.data[at + i];
    at += 4;
    EXPECT_LE(length, packet.data.size() - at);
    if (length > packet.data.size() - at) break;
    const auto begin = packet.data.begin() + static_cast<std::ptrdiff_t>(at);
    units.emplace_back(begin, begin + static_cast<std::ptrdiff_t>(length));
    at += length;
  }
  return units;
}

std::filesystem::path writeByteStream(const std::string& name, const MediaTrack& track,
                                      const std::vector<ReadPacket>& packets) {
  const auto& record = track.configuration;
  std::string stream;
  const auto put = [&](const std::uint8_t* from, std::size_t size) {
    stream.append("\0\0\0\1", 4).append(reinterpret_cast<const char*>(from), size);
  };
  // One set of each kind, as the encoder makes them (ISO/IEC 14496-15, 5.3.3.1).
  std::size_t at = 6;
  for (int i = 0; i < 2 && at + 2 <= record.size(); ++i) {
    const std::size_t size = static_cast<std::size_t>(record[at]) << 8 | record[at + 1];
    put(&record[at + 2], size);
    at += 2 + size + 1;
  }
  for (const ReadPacket& packet : packets) {
    for (const auto& unit : unitsOf(packet)) put(unit.data(), unit.size());
  }
  return writeSample(name, stream);
}

std::filesystem::path writeAdts(const std::string& name, const MediaTrack& track,
                                const std::vector<ReadPacket>& packets) {
  const unsigned config = static_cast<unsigned>(track.configuration.at(0)) << 8 | track.configuration.at(1);
  const unsigned profile = (config >> 11) - 1;
  const unsigned rate = config >> 7 & 15U;
  const unsigned channels = config >> 3 & 15U;
  std::string stream;
  for (const ReadPacket& packet : packets) {
    const auto size = static_cast<unsigned>(packet.data.size()) + 7;
    const std::array<unsigned, 7> header{0xFF,
                                         0xF1,
                                         profile << 6 | rate << 2 | channels >> 2,
                                         (channels & 3) << 6 | size >> 11,
                                         size >> 3,
                                         (size & 7) << 5 | 0x1F,
                                         0xFC};
    for (const unsigned byte : header) stream.push_back(static_cast<char>(byte & 0xFF));
    stream.append(packet.data.begin(), packet.data.end());
  }
  return writeSample(name, stream);
}

std::string readFile(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace vellora::test
