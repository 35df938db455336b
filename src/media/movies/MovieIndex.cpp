#include "media/movies/MovieIndex.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>

#include "media/movies/BoxReader.h"
#include "media/movies/DiskBox.h"
#include "media/movies/MovieHeader.h"

namespace vellora {
namespace {

constexpr std::uint64_t mostHeaderBytes = 1 << 20;
constexpr std::uint64_t mostFragmentHeaderBytes = 64 << 20, mostFragmentBytes = 256 << 20;
/// The last fragments, whose data a power cut may have left out though their headers are there.
constexpr std::size_t unsureFragments = 3;
constexpr std::int64_t longestDuration = std::numeric_limits<std::uint32_t>::max();

/// Whether a picture's bytes are NAL units with four-byte lengths, or sound's are anything at all.
bool isIntact(std::span<const std::uint8_t> sample, bool isVideo) {
  if (!isVideo) return std::ranges::any_of(sample, [](std::uint8_t byte) { return byte != 0; });
  BoxReader reader(sample);
  while (!reader.rest().empty()) {
    const std::uint32_t length = reader.number32();
    if (length == 0 || reader.take(length).empty()) return false;
  }
  return reader.isWhole();
}

}  // namespace

Result<MovieIndex, MovieFailure> MovieIndex::read(const DiskFile& file) {
  const auto size = file.size();
  if (!size) return failure(size.error());
  const MovieFailure foreign{MovieError::notAMovie, file.name() + " is not a movie that was being recorded"};
  const auto type = DiskBox::at(file, 0, *size);
  if (!type || type->type != "ftyp" || type->end != reservedOffset) return failure(foreign);
  const std::uint64_t start = reservedOffset + reservedSize;
  const auto header = DiskBox::at(file, start, *size);
  if (!header || (header->type == "moov" && header->end > *size)) {
    return failure(MovieFailure{MovieError::empty, "Nothing was recorded in " + file.name()});
  }
  const auto content = header->type == "moov" ? header->read(file, mostHeaderBytes) : std::nullopt;
  auto tracks = content ? readStartOfMovie(*content) : std::nullopt;
  if (!tracks) return failure(foreign);

  MovieIndex index;
  index.tracks = std::move(*tracks);
  index.tables.resize(index.tracks.size());
  index.lastStarts_.resize(index.tracks.size());
  index.lastDurations_.resize(index.tracks.size());
  index.end = header->end;
  index.readFragments(file, index.end, *size);
  index.close();
  return index;
}

void MovieIndex::readFragments(const DiskFile& file, std::uint64_t at, std::uint64_t size) {
  std::deque<Fragment> unsure;
  while (auto fragment = fragmentAt(file, at, size)) {
    at = fragment->end;
    unsure.push_back(std::move(*fragment));
    if (unsure.size() <= unsureFragments) continue;
    keep(unsure.front());
    unsure.pop_front();
  }
  for (Fragment& fragment : unsure) {
    const bool isWhole = removeDamaged(file, fragment);
    keep(fragment);
    if (isWhole) continue;
    hasLost = true;
    return;
  }
  // An index that was being written is all that may follow.
  const auto next = DiskBox::at(file, at, size);
  if (at < size && (!next || next->type != "moov")) hasLost = true;
}

/// The fragment at a place of the file; nothing when there is none, or nothing of its data.
std::optional<MovieIndex::Fragment> MovieIndex::fragmentAt(const DiskFile& file, std::uint64_t at,
                                                           std::uint64_t size) const {
  const auto header = DiskBox::at(file, at, size);
  if (!header || header->type != "moof") return std::nullopt;
  const auto content = header->read(file, mostFragmentHeaderBytes);
  auto runs = content ? readFragment(*content, tracks.size()) : std::nullopt;
  const auto data = DiskBox::at(file, header->end, size);
  if (!runs || !data || data->type != "mdat" || data->end - data->start > mostFragmentBytes) return std::nullopt;
  return Fragment{.start = at,
                  .data = data->start,
                  .end = std::min(data->end, size),
                  .isCut = data->end > size,
                  .runs = std::move(*runs)};
}

/// Leaves out samples that are cut or were never written; false when there are any.
bool MovieIndex::removeDamaged(const DiskFile& file, Fragment& fragment) const {
  bool isWhole = true;
  std::vector<std::uint8_t> bytes(fragment.end - fragment.data);
  const auto count = file.read(fragment.data, bytes);
  if (!count) bytes.clear();
  for (FragmentRun& run : fragment.runs) {
    std::uint64_t at = fragment.start + run.offset;
    std::size_t good = 0;
    for (; good < run.samples.size(); ++good) {
      const std::uint64_t length = run.samples[good].size;
      if (at < fragment.data + 8 || at + length > fragment.data + bytes.size()) break;
      const std::span sample = std::span(bytes).subspan(at - fragment.data, length);
      if (!isIntact(sample, tracks[run.track].isVideo)) break;
      at += length;
    }
    isWhole = isWhole && good == run.samples.size();
    run.samples.resize(good);
  }
  return isWhole;
}

void MovieIndex::keep(const Fragment& fragment) {
  for (const FragmentRun& run : fragment.runs) {
    if (!run.samples.empty()) keep(run, fragment.start);
  }
  end = fragment.end;
  lastData = fragment.data;
  isLastDataCut = fragment.isCut;
}

void MovieIndex::keep(const FragmentRun& run, std::uint64_t start) {
  SampleTable& table = tables[run.track];
  std::int64_t& lastStart = lastStarts_[run.track];
  std::uint32_t& lastDuration = lastDurations_[run.track];
  if (table.count() == 0) {
    table.start = run.decodeTime;
    lastStart = run.decodeTime;
  } else {
    // How long the last sample before really lasted.
    const std::int64_t length = std::clamp<std::int64_t>(run.decodeTime - lastStart, 1, longestDuration);
    table.addDuration(static_cast<std::uint32_t>(length));
    lastStart += length;
  }
  table.chunks.push_back({start + run.offset, static_cast<std::uint32_t>(run.samples.size())});
  for (std::size_t i = 0; i < run.samples.size(); ++i) {
    const FragmentRun::Sample& sample = run.samples[i];
    table.sizes.push_back(sample.size);
    if (sample.isKey) table.keys.push_back(static_cast<std::uint32_t>(table.sizes.size()));
    if (i + 1 == run.samples.size()) continue;
    table.addDuration(sample.duration);
    lastStart += sample.duration;
  }
  lastDuration = run.samples.back().duration;
}

void MovieIndex::close() {
  for (std::size_t i = 0; i < tables.size(); ++i) {
    if (tables[i].count() == 0) continue;
    tables[i].addDuration(lastDurations_[i]);
    tables[i].end = lastStarts_[i] + lastDurations_[i];
  }
}

bool MovieIndex::isEmpty() const {
  return std::ranges::all_of(tables, [](const SampleTable& table) { return table.count() == 0; });
}

double MovieIndex::lastTime() const {
  double latest = 0;
  for (std::size_t i = 0; i < tables.size(); ++i) {
    if (tables[i].count() == 0) continue;
    latest = std::max(latest, static_cast<double>(tables[i].end - tracks[i].priming) / tracks[i].timescale);
  }
  return latest;
}

void MovieIndex::holdLastPicture(double seconds) {
  for (std::size_t i = 0; i < tables.size(); ++i) {
    SampleTable& table = tables[i];
    if (!tracks[i].isVideo || table.count() == 0) continue;
    const double wanted = std::round(seconds * tracks[i].timescale) - static_cast<double>(lastStarts_[i]);
    const auto duration = static_cast<std::uint32_t>(std::clamp<double>(wanted, 1, longestDuration));
    if (--table.durations.back().count == 0) table.durations.pop_back();
    table.addDuration(duration);
    table.end = lastStarts_[i] + duration;
  }
}

}  // namespace vellora
