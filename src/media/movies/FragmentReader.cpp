#include "media/movies/FragmentReader.h"

#include <algorithm>

#include "media/movies/BoxReader.h"

namespace vellora {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint32_t versionBits = 0xff000000;
constexpr std::uint32_t runFlags = 0x1 | 0x100 | 0x200 | 0x400;
constexpr std::uint32_t notIndependent = 0x00010000;
constexpr std::size_t sampleBytes = 12;
/// Ticks until year 3000 at the finest timescale; later times are damage, and sums of them stay in range.
constexpr std::uint64_t latestTime = std::uint64_t{1} << 52;
/// A sample of a quarter of an hour is damage: something is written every second.
constexpr std::uint32_t longestSample = 900 * 90000;

bool readRun(Bytes content, FragmentRun& run) {
  BoxReader reader(content);
  if ((reader.number32() & ~versionBits) != runFlags) return false;
  const std::uint32_t count = reader.number32();
  run.offset = reader.number32();
  if (!reader.isWhole() || reader.rest().size() != std::uint64_t{count} * sampleBytes) return false;
  run.samples.reserve(count);
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint32_t duration = reader.number32();
    const std::uint32_t size = reader.number32();
    if (duration == 0 || duration > longestSample || size == 0) return false;
    run.samples.push_back({size, duration, (reader.number32() & notIndependent) == 0});
  }
  return count > 0;
}

std::optional<FragmentRun> readTrackFragment(Bytes content, std::size_t tracks) {
  FragmentRun run;
  bool hasTrack = false, hasTime = false, hasSamples = false, isGood = true;
  const bool isFilled = forEachBox(content, [&](std::string_view type, Bytes box, Bytes) {
    BoxReader reader(box);
    if (type == "tfhd") {
      reader.number32();
      const std::uint32_t id = reader.number32();
      hasTrack = id >= 1 && id <= tracks;
      run.track = id - 1;
    } else if (type == "tfdt") {
      const bool isLong = (reader.number32() & versionBits) != 0;
      const std::uint64_t time = reader.number(isLong ? 8 : 4);
      hasTime = reader.isWhole() && time < latestTime;
      run.decodeTime = static_cast<std::int64_t>(time);
    } else if (type == "trun") {
      isGood = !hasSamples && readRun(box, run) && isGood;
      hasSamples = true;
    }
  });
  if (!isFilled || !isGood || !hasTrack || !hasTime || !hasSamples) return std::nullopt;
  return run;
}

void readEdits(Bytes content, MovieTrack& track) {
  forEachBox(content, [&](std::string_view type, Bytes box, Bytes) {
    if (type != "elst") return;
    BoxReader reader(box);
    const std::size_t bytes = (reader.number32() & versionBits) != 0 ? 8 : 4;
    if (reader.number32() != 1) return;
    reader.number(bytes);
    track.priming = static_cast<std::int64_t>(reader.number(bytes));
  });
}

void readTrackHeader(Bytes box, MovieTrack& track) {
  if (box.size() < 8) return;
  BoxReader size(box.last(8));
  track.width = static_cast<int>(size.number32() >> 16);
  track.height = static_cast<int>(size.number32() >> 16);
}

/// Goes down to the sample description, through the boxes on the way.
void readMedia(Bytes content, MovieTrack& track) {
  forEachBox(content, [&](std::string_view type, Bytes box, Bytes whole) {
    if (type == "minf" || type == "stbl") {
      readMedia(box, track);
    } else if (type == "stsd") {
      track.description.assign(whole.begin(), whole.end());
    } else if (type == "mdhd") {
      BoxReader reader(box);
      const bool isLong = (reader.number32() & versionBits) != 0;
      reader.take(isLong ? 16 : 8);
      track.timescale = reader.number32();
    } else if (type == "hdlr" && box.size() >= 12) {
      // There is a second one, of the data.
      const std::string_view kind(reinterpret_cast<const char*>(box.data()) + 8, 4);
      if (kind == "vide" || kind == "soun") track.isVideo = kind == "vide";
    }
  });
}

}  // namespace

std::optional<std::vector<FragmentRun>> readFragment(Bytes moof, std::size_t tracks) {
  std::vector<FragmentRun> runs;
  bool isGood = true;
  const bool isFilled = forEachBox(moof, [&](std::string_view type, Bytes box, Bytes) {
    if (type != "traf") return;
    auto run = readTrackFragment(box, tracks);
    isGood = isGood && run.has_value();
    if (run) runs.push_back(std::move(*run));
  });
  if (!isFilled || !isGood) return std::nullopt;
  return runs;
}

std::optional<std::vector<MovieTrack>> readStartOfMovie(Bytes moov) {
  std::vector<MovieTrack> tracks;
  bool isFragmented = false;
  const bool isFilled = forEachBox(moov, [&](std::string_view type, Bytes box, Bytes) {
    if (type == "mvex") isFragmented = true;
    if (type != "trak") return;
    MovieTrack& track = tracks.emplace_back();
    track.timescale = 0;
    forEachBox(box, [&](std::string_view inner, Bytes content, Bytes) {
      if (inner == "tkhd") readTrackHeader(content, track);
      if (inner == "edts") readEdits(content, track);
      if (inner == "mdia") readMedia(content, track);
    });
  });
  constexpr std::uint32_t finestTimescale = 1'000'000;
  const auto isUsable = [](const MovieTrack& track) {
    return track.timescale > 0 && track.timescale <= finestTimescale && !track.description.empty() &&
           track.priming >= 0 && track.priming <= track.timescale;
  };
  if (!isFilled || !isFragmented || tracks.empty() || !std::ranges::all_of(tracks, isUsable)) return std::nullopt;
  return tracks;
}

}  // namespace vellora
