#include "media/movies/MovieHeader.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "media/movies/BoxBuffer.h"

namespace vellora {
namespace {

constexpr std::uint32_t unity = 1u << 16;
constexpr int undefinedLanguage = 0x55c4;  // "und"

int versionFor(std::int64_t ticks) {
  return ticks > std::numeric_limits<std::uint32_t>::max() ? 1 : 0;
}

std::int64_t inMovieTime(std::int64_t ticks, std::uint32_t timescale) {
  return std::llround(static_cast<double>(ticks) * movieTimescale / timescale);
}

/// When a track is presented, in ticks of the movie.
struct Presentation {
  std::int64_t start = 0;
  std::int64_t length = 0;
};

Presentation presentationOf(const MovieTrack& track, const SampleTable& table, std::optional<double> end) {
  Presentation shown;
  shown.start = inMovieTime(table.start, track.timescale);
  shown.length = std::max<std::int64_t>(inMovieTime(table.end - table.start - track.priming, track.timescale), 0);
  if (end) {
    const auto last = static_cast<std::int64_t>(std::llround(*end * movieTimescale));
    shown.length = std::clamp<std::int64_t>(last - shown.start, 0, shown.length);
  }
  return shown;
}

void writeTimes(BoxBuffer& to, int version) {
  to.zeros(version == 0 ? 8 : 16);  // when it was made
}

void writeMatrix(BoxBuffer& to) {
  for (const std::uint32_t value : {unity, 0u, 0u, 0u, unity, 0u, 0u, 0u, 1u << 30}) to.number32(value);
}

void writeMovieHeader(BoxBuffer& to, std::int64_t duration, std::size_t tracks) {
  const int version = versionFor(duration);
  to.fullBox("mvhd", version, 0, [&] {
    writeTimes(to, version);
    to.number32(movieTimescale);
    to.number32or64(static_cast<std::uint64_t>(duration), version);
    to.number32(unity);
    to.number16(0x100);  // volume
    to.zeros(10);
    writeMatrix(to);
    to.zeros(24);
    to.number32(tracks + 1);
  });
}

void writeTrackHeader(BoxBuffer& to, const MovieTrack& track, std::size_t id, std::int64_t duration) {
  constexpr std::uint32_t isEnabledAndUsed = 7;
  const int version = versionFor(duration);
  to.fullBox("tkhd", version, isEnabledAndUsed, [&] {
    writeTimes(to, version);
    to.number32(id);
    to.number32(0);
    to.number32or64(static_cast<std::uint64_t>(duration), version);
    to.zeros(12);
    to.number16(track.isVideo ? 0 : 0x100);
    to.zeros(2);
    writeMatrix(to);
    to.number32(static_cast<std::uint64_t>(track.width) << 16);
    to.number32(static_cast<std::uint64_t>(track.height) << 16);
  });
}

/// The sizes of a picture that is coded larger than it is shown.
void writeApertures(BoxBuffer& to, const MovieTrack& track) {
  const auto dimensions = [&](std::string_view type, int width, int height) {
    to.fullBox(type, 0, 0, [&] {
      to.number32(static_cast<std::uint64_t>(width) << 16);
      to.number32(static_cast<std::uint64_t>(height) << 16);
    });
  };
  to.box("tapt", [&] {
    dimensions("clef", track.width, track.height);
    dimensions("prof", track.width, track.height);
    dimensions("enof", track.width + (track.width & 1), track.height + (track.height & 1));
  });
}

void writeEdits(BoxBuffer& to, const MovieTrack& track, const Presentation& shown) {
  if (shown.start == 0 && track.priming == 0 && track.isVideo) return;
  const int version = std::max(versionFor(shown.start), versionFor(shown.length));
  const auto edit = [&](std::int64_t length, std::int64_t from) {
    to.number32or64(static_cast<std::uint64_t>(length), version);
    to.number32or64(static_cast<std::uint64_t>(from), version);
    to.number32(unity);
  };
  to.box("edts", [&] {
    to.fullBox("elst", version, 0, [&] {
      to.number32(shown.start > 0 ? 2 : 1);
      if (shown.start > 0) edit(shown.start, -1);
      edit(shown.length, track.priming);
    });
  });
}

void writeHandler(BoxBuffer& to, std::string_view type, std::string_view subtype, std::string_view name) {
  to.fullBox("hdlr", 0, 0, [&] {
    to.text(type);
    to.text(subtype);
    to.zeros(12);
    to.number8(name.size());
    to.text(name);
  });
}

void writeSampleTable(BoxBuffer& to, const MovieTrack& track, const SampleTable& table) {
  to.append(track.description);
  to.fullBox("stts", 0, 0, [&] {
    to.number32(table.durations.size());
    for (const auto& run : table.durations) {
      to.number32(run.count);
      to.number32(run.duration);
    }
  });
  if (track.isVideo && table.keys.size() < table.count()) {
    to.fullBox("stss", 0, 0, [&] {
      to.number32(table.keys.size());
      for (const std::uint32_t key : table.keys) to.number32(key);
    });
  }
  to.fullBox("stsc", 0, 0, [&] {
    const std::size_t counted = to.size();
    to.number32(0);
    std::uint32_t entries = 0, last = 0;
    for (std::size_t i = 0; i < table.chunks.size(); ++i) {
      if (table.chunks[i].samples == last) continue;
      last = table.chunks[i].samples;
      ++entries;
      to.number32(i + 1);
      to.number32(last);
      to.number32(1);
    }
    to.put32(counted, entries);
  });
  to.fullBox("stsz", 0, 0, [&] {
    to.number32(0);
    to.number32(table.sizes.size());
    for (const std::uint32_t size : table.sizes) to.number32(size);
  });
  const bool isLarge = !table.chunks.empty() && table.chunks.back().offset > std::numeric_limits<std::uint32_t>::max();
  to.fullBox(isLarge ? "co64" : "stco", 0, 0, [&] {
    to.number32(table.chunks.size());
    for (const auto& chunk : table.chunks) to.number32or64(chunk.offset, isLarge ? 1 : 0);
  });
}

void writeMedia(BoxBuffer& to, const MovieTrack& track, const SampleTable& table) {
  const std::int64_t duration = table.end - table.start;
  const int version = versionFor(duration);
  to.fullBox("mdhd", version, 0, [&] {
    writeTimes(to, version);
    to.number32(track.timescale);
    to.number32or64(static_cast<std::uint64_t>(duration), version);
    to.number16(undefinedLanguage);
    to.number16(0);
  });
  writeHandler(to, "mhlr", track.isVideo ? "vide" : "soun", track.isVideo ? "VideoHandler" : "SoundHandler");
  to.box("minf", [&] {
    if (track.isVideo) {
      to.fullBox("vmhd", 0, 1, [&] { to.zeros(8); });
    } else {
      to.fullBox("smhd", 0, 0, [&] { to.zeros(4); });
    }
    writeHandler(to, "dhlr", "url ", "DataHandler");
    to.box("dinf", [&] {
      to.fullBox("dref", 0, 0, [&] {
        to.number32(1);
        to.fullBox("url ", 0, 1, [] {});  // this file
      });
    });
    to.box("stbl", [&] { writeSampleTable(to, track, table); });
  });
}

/// `presentation`: nothing while the movie is written, when no length is known.
void writeTrack(BoxBuffer& to, const MovieTrack& track, std::size_t id, const SampleTable& table,
                const Presentation& shown) {
  to.box("trak", [&] {
    writeTrackHeader(to, track, id, shown.start + shown.length);
    if (((track.width | track.height) & 1) != 0) writeApertures(to, track);
    writeEdits(to, track, shown);
    to.box("mdia", [&] { writeMedia(to, track, table); });
  });
}

}  // namespace

std::vector<std::uint8_t> startOfMovie(std::span<const MovieTrack> tracks) {
  BoxBuffer to;
  to.box("ftyp", [&] {
    to.text("qt  ");
    to.number32(0x200);
    to.text("qt  ");
  });
  to.box("free", [&] { to.zeros(reservedSize - 8); });
  to.box("moov", [&] {
    writeMovieHeader(to, 0, tracks.size());
    for (std::size_t i = 0; i < tracks.size(); ++i) writeTrack(to, tracks[i], i + 1, {}, {});
    to.box("mvex", [&] {
      for (std::size_t i = 0; i < tracks.size(); ++i) {
        to.fullBox("trex", 0, 0, [&] {
          to.number32(i + 1);
          to.number32(1);
          to.zeros(12);
        });
      }
    });
  });
  return to.take();
}

std::vector<std::uint8_t> indexOfMovie(std::span<const MovieTrack> tracks, std::span<const SampleTable> tables,
                                       std::optional<double> end) {
  BoxBuffer to;
  to.box("moov", [&] {
    writeMovieHeader(to, std::llround(durationOfMovie(tracks, tables, end) * movieTimescale), tracks.size());
    for (std::size_t i = 0; i < tracks.size(); ++i) {
      if (tables[i].count() == 0) continue;
      writeTrack(to, tracks[i], i + 1, tables[i], presentationOf(tracks[i], tables[i], end));
    }
  });
  return to.take();
}

double durationOfMovie(std::span<const MovieTrack> tracks, std::span<const SampleTable> tables,
                       std::optional<double> end) {
  std::int64_t longest = 0;
  for (std::size_t i = 0; i < tracks.size(); ++i) {
    if (tables[i].count() == 0) continue;
    const Presentation shown = presentationOf(tracks[i], tables[i], end);
    longest = std::max(longest, shown.start + shown.length);
  }
  return static_cast<double>(longest) / movieTimescale;
}

}  // namespace vellora
