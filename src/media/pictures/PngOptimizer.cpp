#include "media/pictures/PngOptimizer.h"

#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <new>
#include <span>
#include <string_view>
#include <thread>
#include <vector>

#include "media/pictures/PngFilters.h"
#include "media/pictures/PngRows.h"

namespace vellora {
namespace {

using Clock = std::chrono::steady_clock;
using Bytes = std::vector<std::uint8_t>;

/// Quick deflating tells which filters are promising; then those are deflated as well as can be.
constexpr int quickLevel = 5;
constexpr std::array thoroughLevels{9, 12};
/// What level 12 takes of a second for each million bytes, about: where the time is too short for it 9 has to do.
constexpr double secondsPerMegabyte = 0.16;
constexpr std::chrono::milliseconds leastBudget{300};
/// What the filtered rows of all trials that run at a time may take, in bytes.
constexpr std::size_t mostFiltered = std::size_t{192} << 20;
constexpr std::size_t roomForChunks = 1024;
constexpr std::string_view signature("\x89PNG\r\n\x1a\n", 8);

struct Trial {
  std::size_t kind = 0;
  PngFilterChoice choice = PngFilterChoice::none;
  std::size_t size = 0;
};

/// A zlib stream, in memory for the longest there could be; only what it fills is really taken from the system.
struct Deflated {
  std::unique_ptr<std::uint8_t[]> bytes;
  std::size_t size = 0;
};

class Compressor {
 public:
  explicit Compressor(int level) : compressor_(libdeflate_alloc_compressor(level), libdeflate_free_compressor) {
    if (!compressor_) throw std::bad_alloc();
  }
  Deflated deflate(const Bytes& bytes) const {
    const std::size_t longest = libdeflate_zlib_compress_bound(compressor_.get(), bytes.size());
    Deflated result{std::make_unique_for_overwrite<std::uint8_t[]>(longest)};
    result.size = libdeflate_zlib_compress(compressor_.get(), bytes.data(), bytes.size(), result.bytes.get(), longest);
    return result;
  }

 private:
  std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor_;
};

void appendBig(Bytes& bytes, std::size_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<std::uint8_t>(number >> shift));
}

void appendChunk(Bytes& file, std::string_view type, std::span<const std::uint8_t> data) {
  appendBig(file, data.size());
  const std::size_t start = file.size();
  file.insert(file.end(), type.begin(), type.end());
  file.insert(file.end(), data.begin(), data.end());
  appendBig(file, libdeflate_crc32(0, &file[start], file.size() - start));
}

std::vector<std::byte> fileOf(const PngRows& rows, std::span<const std::uint8_t> deflated) {
  Bytes file;
  file.reserve(deflated.size() + rows.palette.size() + roomForChunks);
  file.assign(signature.begin(), signature.end());
  Bytes header;
  appendBig(header, static_cast<std::size_t>(rows.width));
  appendBig(header, static_cast<std::size_t>(rows.height));
  for (const int value : {rows.depth, static_cast<int>(rows.color), 0, 0, 0})
    header.push_back(static_cast<std::uint8_t>(value));
  appendChunk(file, "IHDR", header);
  if (!rows.palette.empty()) appendChunk(file, "PLTE", rows.palette);
  if (!rows.transparency.empty()) appendChunk(file, "tRNS", rows.transparency);
  constexpr std::size_t longestChunk = 0x7FFFFFFF;
  for (std::size_t at = 0; at < deflated.size(); at += longestChunk)
    appendChunk(file, "IDAT", deflated.subspan(at, std::min(longestChunk, deflated.size() - at)));
  appendChunk(file, "IEND", {});
  const auto bytes = std::as_bytes(std::span(file));
  return {bytes.begin(), bytes.end()};
}

/// What a kind of pixels needs beside them.
std::size_t overheadOf(const PngRows& rows) {
  return rows.palette.size() + rows.transparency.size();
}

/// Runs `work(i)` for 0 to `count` - 1 on some threads.
template <class Work>
void inParallel(std::size_t count, int threads, Work work) {
  std::atomic<std::size_t> next = 0;
  std::atomic<bool> isShortOfMemory = false;
  const auto run = [&] {
    try {
      for (std::size_t i = next++; i < count; i = next++) work(i);
    } catch (const std::bad_alloc&) {
      isShortOfMemory = true;
    }
  };
  {
    std::vector<std::jthread> others;
    for (int i = 1; i < std::min(threads, static_cast<int>(count)); ++i) others.emplace_back(run);
    run();
  }
  if (isShortOfMemory) throw std::bad_alloc();
}

class Search {
 public:
  Search(const Raster& raster, const PngOptimizerOptions& options)
      : options_(options), kinds_(exactRows(raster, options.allowsGrey)) {
    const double megapixels = static_cast<double>(raster.width()) * raster.height() / 1e6;
    const auto budget = std::chrono::duration_cast<std::chrono::milliseconds>(options.budgetPerMegapixel * megapixels);
    end_ = Clock::now() + std::max(budget, leastBudget);
  }

  Result<std::vector<std::byte>, PictureFailure> best() {
    std::vector<Trial> trials = quickTrials();
    if (isCancelled()) return failure(PictureFailure{PictureError::Cancelled});
    std::sort(trials.begin(), trials.end(), [](const Trial& a, const Trial& b) { return a.size < b.size; });
    // The first one always, more while there is time; each needs about as long as the first.
    Deflated smallest;
    std::size_t smallestKind = 0;
    const std::size_t worth = std::min<std::size_t>(trials.size(), 3);
    std::chrono::nanoseconds longest{};
    for (std::size_t i = 0; i < worth; ++i) {
      if (i > 0 && Clock::now() + longest > end_) break;
      const Trial& trial = trials[i];
      const Clock::time_point start = Clock::now();
      const Bytes filtered = filteredRows(kinds_[trial.kind], trial.choice);
      Deflated deflated = Compressor(levelFor(filtered.size())).deflate(filtered);
      longest = std::max(longest, Clock::now() - start);
      const auto sizeOf = [this](const Deflated& stream, std::size_t kind) {
        return stream.size + overheadOf(kinds_[kind]);
      };
      if (!smallest.bytes || sizeOf(deflated, trial.kind) < sizeOf(smallest, smallestKind)) {
        smallest = std::move(deflated);
        smallestKind = trial.kind;
      }
      if (isCancelled()) return failure(PictureFailure{PictureError::Cancelled});
    }
    return fileOf(kinds_[smallestKind], {smallest.bytes.get(), smallest.size});
  }

 private:
  bool isCancelled() const { return options_.isCancelled && options_.isCancelled(); }

  int levelFor(std::size_t bytes) const {
    const double left = std::chrono::duration<double>(end_ - Clock::now()).count();
    return thoroughLevels[left > static_cast<double>(bytes) / 1e6 * secondsPerMegabyte ? 1 : 0];
  }

  std::vector<Trial> quickTrials() {
    std::vector<Trial> trials;
    for (std::size_t kind = 0; kind < kinds_.size(); ++kind)
      for (int choice = 0; choice < filterChoices; ++choice)
        trials.push_back({kind, static_cast<PngFilterChoice>(choice), SIZE_MAX});
    // Half of the time is for these; those that do not get their turn stay the least promising ones.
    const Clock::time_point half = Clock::now() + (end_ - Clock::now()) / 2;
    std::vector<Trial*> order;
    for (const PngFilterChoice choice :
         {PngFilterChoice::none, PngFilterChoice::leastSum, PngFilterChoice::bigrams, PngFilterChoice::up,
          PngFilterChoice::sub, PngFilterChoice::paeth, PngFilterChoice::entropy, PngFilterChoice::average})
      for (Trial& trial : trials)
        if (trial.choice == choice) order.push_back(&trial);
    const std::size_t largest = std::max<std::size_t>(1, kinds_.back().bytes.size());
    const auto together = static_cast<int>(std::clamp<std::size_t>(mostFiltered / largest, 1, order.size()));
    std::atomic<bool> hasOne = false;
    inParallel(order.size(), std::min(options_.threads, together), [&](std::size_t i) {
      if (isCancelled() || (hasOne && Clock::now() > half)) return;
      const Bytes filtered = filteredRows(kinds_[order[i]->kind], order[i]->choice);
      order[i]->size = Compressor(quickLevel).deflate(filtered).size + overheadOf(kinds_[order[i]->kind]);
      hasOne = true;
    });
    return trials;
  }

  const PngOptimizerOptions& options_;
  const std::vector<PngRows> kinds_;
  Clock::time_point end_;
};

}  // namespace

Result<std::vector<std::byte>, PictureFailure> optimizedPng(const Raster& raster, const PngOptimizerOptions& options) {
  if (raster.isNull()) return failure(PictureFailure{PictureError::CannotEncode, "an empty picture"});
  try {
    return Search(raster, options).best();
  } catch (const std::bad_alloc&) {
    return failure(PictureFailure{PictureError::OutOfMemory});
  }
}

}  // namespace vellora
