#include "media/movies/FragmentBuilder.h"

#include "media/movies/BoxBuffer.h"

namespace vellora {
namespace {

constexpr std::uint32_t baseIsFragment = 0x020000;                                   // tfhd
constexpr std::uint32_t hasOffsetDurationsSizesFlags = 0x1 | 0x100 | 0x200 | 0x400;  // trun
constexpr std::uint32_t independent = 0x02000000, dependent = 0x01010000;            // flags of a sample

}  // namespace

void FragmentBuilder::add(std::size_t track, std::span<const std::uint8_t> data, std::int64_t decodeTime,
                          std::uint32_t duration, bool isKey) {
  Track& to = tracks_[track];
  if (to.samples.empty()) {
    to.firstTime = decodeTime;
  } else {
    to.samples.back().duration = static_cast<std::uint32_t>(decodeTime - to.lastTime);
  }
  to.lastTime = decodeTime;
  to.samples.push_back({static_cast<std::uint32_t>(data.size()), duration, isKey});
  to.data.insert(to.data.end(), data.begin(), data.end());
  bytes_ += data.size();
}

std::span<const std::uint8_t> FragmentBuilder::build() {
  struct Patch {
    std::size_t at = 0;
    std::size_t offset = 0;  // of the track's data among all data
  };
  std::vector<Patch> patches;
  std::size_t before = 0;
  BoxBuffer to;
  to.box("moof", [&] {
    to.fullBox("mfhd", 0, 0, [&] { to.number32(++number_); });
    for (std::size_t i = 0; i < tracks_.size(); ++i) {
      const Track& track = tracks_[i];
      if (track.samples.empty()) continue;
      to.box("traf", [&] {
        to.fullBox("tfhd", 0, baseIsFragment, [&] { to.number32(i + 1); });
        to.fullBox("tfdt", 1, 0, [&] { to.number64(static_cast<std::uint64_t>(track.firstTime)); });
        to.fullBox("trun", 0, hasOffsetDurationsSizesFlags, [&] {
          to.number32(track.samples.size());
          patches.push_back({to.size(), before});
          to.number32(0);
          for (const Sample& sample : track.samples) {
            to.number32(sample.duration);
            to.number32(sample.size);
            to.number32(sample.isKey ? independent : dependent);
          }
        });
      });
      before += track.data.size();
    }
  });
  const std::size_t dataStart = to.size() + 8;
  for (const Patch& patch : patches) to.put32(patch.at, static_cast<std::uint32_t>(dataStart + patch.offset));
  to.box("mdat", [&] {
    for (Track& track : tracks_) {
      to.append(track.data);
      track.samples.clear();
      track.data.clear();
    }
  });
  bytes_ = 0;
  built_ = to.take();
  return built_;
}

}  // namespace vellora
