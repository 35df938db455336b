#include "media/movies/MovieRepair.h"

#include <array>
#include <optional>
#include <span>

#include "media/movies/BoxReader.h"
#include "media/movies/DiskBox.h"
#include "media/movies/DiskFile.h"
#include "media/movies/MovieFinisher.h"

namespace vellora {
namespace {

/// Seconds, by the "mvhd" that a "moov" begins with as good as always.
double durationIn(const DiskFile& file, const DiskBox& moov) {
  std::array<std::uint8_t, 40> bytes{};
  const auto count = file.read(moov.content, bytes);
  if (!count) return 0;
  BoxReader reader{std::span(bytes).first(*count)};
  reader.number32();
  if (reader.text(4) != "mvhd") return 0;
  const bool isLong = reader.number32() >> 24 != 0;
  reader.take(isLong ? 16 : 8);
  const double timescale = reader.number32();
  const auto duration = static_cast<double>(reader.number(isLong ? 8 : 4));
  return reader.isWhole() && timescale > 0 ? duration / timescale : 0;
}

bool isFragmented(const DiskFile& file, const DiskBox& moov) {
  for (std::uint64_t at = moov.content; at < moov.end;) {
    const auto inner = DiskBox::at(file, at, moov.end);
    if (!inner) return false;
    if (inner->type == "mvex") return true;
    at = inner->end;
  }
  return false;
}

/// A movie with an index; nothing for everything else.
std::optional<RepairedMovie> wholeMovie(const DiskFile& file, std::uint64_t size) {
  constexpr int mostBoxes = 100;
  std::uint64_t at = 0;
  for (int i = 0; i < mostBoxes && at < size; ++i) {
    const auto box = DiskBox::at(file, at, size);
    if (!box || box->end > size) return std::nullopt;
    if (box->type == "moov") {
      if (isFragmented(file, *box)) return std::nullopt;
      return RepairedMovie{.duration = durationIn(file, *box), .wasWhole = true, .bytes = size};
    }
    at = box->end;
  }
  return std::nullopt;
}

}  // namespace

Result<RepairedMovie, MovieFailure> MovieRepair::repair(const std::filesystem::path& path) {
  auto file = DiskFile::open(path);
  if (!file) return failure(std::move(file.error()));
  const auto size = file->size();
  if (!size) return failure(size.error());
  if (const auto whole = wholeMovie(*file, *size)) return *whole;
  return finishMovie(*file, std::nullopt);
}

}  // namespace vellora
