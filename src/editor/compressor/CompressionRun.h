#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "base/RunLoop.h"
#include "base/ThreadQuality.h"
#include "editor/compressor/CompressOptions.h"
#include "editor/compressor/CompressionItem.h"

namespace vellora {

enum class CompressOutputMode : std::uint8_t { sourceFolder, customFolder };

/// Where results go: "name-compressed.ext" beside the source, or "name.ext" in a folder of one's own; the next free
/// name when that is taken. The source is never overwritten; beside a link to a file means beside the link. Results are
/// for no more people's eyes than their sources.
struct CompressDestination {
  CompressOutputMode mode = CompressOutputMode::sourceFolder;
  std::filesystem::path folder{};        ///< for customFolder
  std::filesystem::path pastedFolder{};  ///< for pasted pixels in sourceFolder mode
  bool operator==(const CompressDestination&) const = default;
};

struct CompressionProgress {
  std::size_t finished = 0;  ///< done, unchanged, failed or cancelled, of this run
  std::size_t total = 0;
  std::size_t failed = 0;
  std::uintmax_t bytesBefore = 0;  ///< of those done or unchanged
  std::uintmax_t bytesAfter = 0;
  std::optional<std::chrono::milliseconds> remaining{};  ///< once it can be estimated
};

/// The list of pictures and its runs: several at once, within a bound of decoded bytes. Lives on the thread of the run
/// loop; the work happens on threads of its own and comes back through the loop. Files are written atomically.
class CompressionRun {
 public:
  /// Decoded bytes of all pictures in work at once; a larger picture runs alone.
  static constexpr std::size_t maximumDecodedBytes = std::size_t{320} << 20;
  /// Files a folder dropped on the list may bring.
  static constexpr std::size_t maximumItems = 100000;

  struct Callbacks {
    std::function<void()> onListChanged{};                  ///< items were added or removed
    std::function<void(std::uint64_t id)> onItemChanged{};  ///< state, size, thumbnail or output
    std::function<void(const CompressionProgress&)> onProgress{};
    std::function<void(const CompressionProgress&)> onFinished{};
  };

  /// `jobs`: pictures at a time; 0 for as many as the machine has cores. `quality` is that of the threads they are made
  /// on: a window must stay quick though they take every core.
  CompressionRun(RunLoop& runLoop, Callbacks callbacks, int jobs = 0, ThreadQuality quality = ThreadQuality::Normal);
  ~CompressionRun();

  /// Files, and the picture files in folders (one level, or all below when `recursive`, but never those in `leftOut`);
  /// looking into them happens on a thread, and `onListChanged` tells when it is done, also when nothing was found.
  /// Files that are no picture by their content become items that fail when their turn comes; of those in folders, only
  /// the ones whose names promise a picture.
  void addPaths(std::vector<std::filesystem::path> paths, bool recursive, const std::filesystem::path& leftOut = {});
  void addPixels(Raster raster, std::string displayName);
  void remove(std::uint64_t id);
  /// Several at once; those in work stay.
  void remove(const std::vector<std::uint64_t>& ids);
  void clear();

  const std::vector<CompressionItem>& items() const;
  const CompressionItem* find(std::uint64_t id) const;

  /// Reads size and thumbnail of an item that has none yet, for a row that is seen; on a thread, told by
  /// `onItemChanged`.
  void requestThumbnail(std::uint64_t id);

  /// Runs every item but those done with the same options for the same destination; nothing while running.
  void start(const CompressOptions& options, const CompressDestination& destination);
  /// How many items that would be.
  std::size_t outstanding(const CompressOptions& options, const CompressDestination& destination) const;
  /// Failed or cancelled items again, also while others run, which then counts them as not finished yet.
  void retry(std::uint64_t id);
  /// With other options for another destination, unless a run goes on, which keeps its own.
  void retry(std::uint64_t id, const CompressOptions& options, const CompressDestination& destination);
  /// Running items stop soon; only whole files stay.
  void cancel();
  bool isRunning() const;
  CompressionProgress progress() const;

  /// What a picture would become.
  struct Preview {
    Raster picture;
    std::uintmax_t bytes = 0;
  };
  /// Makes the result of `id` for the comparison, encoded and decoded again, on a thread, the newest request winning.
  /// `before` gets the source as soon as it is decoded, `after` the result or a failure; both 8-bit rasters.
  void preview(std::uint64_t id, const CompressOptions& options, std::function<void(Raster)> before,
               std::function<void(Result<Preview, PictureFailure>)> after);

 private:
  class State;
  std::shared_ptr<State> state_;
};

}  // namespace vellora
