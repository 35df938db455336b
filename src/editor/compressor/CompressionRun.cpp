#include "editor/compressor/CompressionRun.h"

#include <algorithm>
#include <atomic>
#include <set>
#include <string>
#include <thread>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "base/SerialQueue.h"
#include "editor/compressor/AdmittedFile.h"
#include "editor/compressor/CompressionJob.h"
#include "editor/compressor/CompressionWorkers.h"
#include "editor/compressor/PictureFolder.h"
#include "media/pictures/Resampler.h"

namespace vellora {
namespace {

namespace fs = std::filesystem;

constexpr int thumbnailEdge = 96;

int defaultJobs() {
  return static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, 16U));
}

bool isFinished(CompressionState state) {
  return state != CompressionState::waiting && state != CompressionState::running;
}

bool isSuccess(CompressionState state) {
  return state == CompressionState::done || state == CompressionState::unchanged;
}

/// What a result was made for.
struct Wish {
  CompressOptions options;
  CompressDestination destination;
  bool operator==(const Wish&) const = default;
};

struct Glance {
  std::optional<PictureType> type;
  ImageCompressor::Size size;
  Raster thumbnail;
};

/// "a/./b" as "a/b", so that a file is not listed twice. Not "a/../b": where "a" is a link, the way back leads
/// elsewhere.
fs::path withoutDetours(const fs::path& path) {
  return std::ranges::find(path, fs::path("..")) == path.end() ? path.lexically_normal() : path;
}

Raster reduced(const Raster& raster, int edge) {
  const ImageCompressor::Size size = ImageCompressor::resizedSize(raster.width(), raster.height(), edge);
  return resampled(raster, size.width, size.height).value_or(Raster());
}

Glance glanceAt(const fs::path& source, const Raster& image, MemoryGate& gate) {
  if (source.empty()) return {std::nullopt, {image.width(), image.height()}, reduced(image, thumbnailEdge)};
  DecodeOptions decoding;
  decoding.neededEdge = thumbnailEdge;
  const auto file = admit(source, gate, [&](const PictureInfo& info) { return decodedBytesOf(info, decoding); });
  if (!file) return {};
  const auto picture = decodePicture(file->data, decoding);
  return {file->info.type,
          {file->info.width, file->info.height},
          picture ? reduced(picture->raster, thumbnailEdge) : Raster()};
}

/// `before` gets the source as soon as it is decoded.
Result<CompressionRun::Preview, PictureFailure> makePreview(const fs::path& source, const Raster& image,
                                                            const CompressOptions& options,
                                                            const CompressControl& control, MemoryGate& gate,
                                                            const std::function<void(const Raster&)>& before) {
  Result<ImageCompressor::Output, PictureFailure> output = failure(PictureFailure{});
  if (source.empty()) {
    const MemoryGate::Share share(gate, workingBytes(image.bytes()));
    before(image);
    output = ImageCompressor::compress(image, options, control);
  } else {
    const auto file =
        admit(source, gate, [](const PictureInfo& info) { return workingBytes(2 * decodedBytesOf(info)); });
    if (!file) return failure(file.error());
    const auto decoded = decodePicture(file->data);
    if (!decoded) return failure(decoded.error());
    if (control.isCancelled()) return failure(PictureFailure{PictureError::Cancelled});
    before(decoded->raster);
    output = ImageCompressor::compress(file->data, options, control);
  }
  if (!output) return failure(std::move(output.error()));
  auto after = decodePicture(output->data);
  if (!after) return failure(std::move(after.error()));
  return CompressionRun::Preview{std::move(after->raster), output->data.size()};
}

}  // namespace

class CompressionRun::State : public std::enable_shared_from_this<State> {
 public:
  State(RunLoop& runLoop, Callbacks callbacks, int jobs, ThreadQuality quality)
      : runLoop_(runLoop), callbacks_(std::move(callbacks)), jobs_(jobs > 0 ? jobs : defaultJobs()) {
    workers_ = std::make_unique<CompressionWorkers>(jobs_, quality);
    lookingQueue_ = std::make_unique<SerialQueue>("dev.orlo.vellora.compressor-looking", SerialQueue::Quality::Utility);
    previewQueue_ = std::make_unique<SerialQueue>("dev.orlo.vellora.compressor-preview");
  }

  /// Called by the owner: ends the threads, after which nothing is called back any more.
  void end() {
    isEnding_ = true;
    ++cancellation_;
    ++previewNumber_;
    workers_.reset();
    lookingQueue_.reset();
    previewQueue_.reset();
    callbacks_ = {};
  }

  void addPaths(std::vector<fs::path> paths, bool recursive, const fs::path& leftOut) {
    lookingQueue_->async([this, paths = std::move(paths), recursive, leftOut] {
      const PictureSearch search{recursive, leftOut, maximumItems, [this] { return isEnding_.load(); }};
      std::vector<CompressionItem> found;
      for (const fs::path& path : paths) {
        if (isEnding_) return;
        std::error_code error;
        const bool isFolder = fs::is_directory(path, error);
        for (const fs::path& file : isFolder ? picturesIn(path, search) : std::vector{path}) {
          if (found.size() >= maximumItems) break;
          CompressionItem item;
          item.sourceURL = withoutDetours(file);
          item.displayName = file.filename().string();
          const std::uintmax_t bytes = fs::file_size(file, error);
          item.originalBytes = error ? 0 : bytes;
          found.push_back(std::move(item));
        }
      }
      post([found = std::move(found)](State& self) mutable { self.add(std::move(found)); });
    });
  }

  void addPixels(Raster raster, std::string displayName) {
    CompressionItem item;
    item.displayName = std::move(displayName);
    item.pixelSize = {raster.width(), raster.height()};
    item.originalBytes = raster.bytes();
    item.image = std::move(raster);
    std::vector<CompressionItem> one;
    one.push_back(std::move(item));
    add(std::move(one));
  }

  void remove(const std::vector<std::uint64_t>& ids) {
    const std::unordered_set<std::uint64_t> unwanted(ids.begin(), ids.end());
    removeIf([&unwanted](const CompressionItem& item) { return unwanted.contains(item.id); });
  }

  void clear() {
    removeIf([](const CompressionItem&) { return true; });
  }

  const std::vector<CompressionItem>& items() const { return items_; }

  const CompressionItem* find(std::uint64_t id) const {
    const auto found = index_.find(id);
    return found == index_.end() ? nullptr : &items_[found->second];
  }

  void requestThumbnail(std::uint64_t id) {
    const CompressionItem* item = find(id);
    if (!item || !item->thumbnail.isNull() || !requested_.insert(id).second) return;
    lookingQueue_->async([this, id, source = item->sourceURL, image = item->image] {
      if (isEnding_) return;
      post([id, glance = glanceAt(source, image, gate_)](State& self) { self.glanced(id, glance); });
    });
  }

  void start(const CompressOptions& options, const CompressDestination& destination) {
    if (isRunning_) return;
    options_ = options;
    destination_ = destination;
    std::vector<std::uint64_t> wanted;
    for (const CompressionItem& item : items_)
      if (isOutstanding(item, {options, destination})) wanted.push_back(item.id);
    if (wanted.empty()) return;
    beginRun();
    progress_.total = wanted.size();
    for (const std::uint64_t id : wanted) enqueue(id);
    tell(callbacks_.onProgress, progress());
  }

  std::size_t outstanding(const CompressOptions& options, const CompressDestination& destination) const {
    const Wish wish{options, destination};
    return static_cast<std::size_t>(
        std::ranges::count_if(items_, [&](const CompressionItem& item) { return isOutstanding(item, wish); }));
  }

  void retry(std::uint64_t id, const std::optional<Wish>& wish = std::nullopt) {
    const auto found = position(id);
    if (found == items_.end() || !isFinished(found->state) || isSuccess(found->state)) return;
    if (!isRunning_) {
      options_ = wish ? wish->options : options_;
      destination_ = wish ? wish->destination : destination_;
      beginRun();
    }
    if (ended_.erase(id) != 0) {
      --progress_.finished;
      if (found->state == CompressionState::failed) --progress_.failed;
    } else {
      ++progress_.total;
    }
    enqueue(id);
    tell(callbacks_.onProgress, progress());
  }

  void cancel() {
    if (isRunning_) ++cancellation_;
  }

  bool isRunning() const { return isRunning_; }

  CompressionProgress progress() const {
    CompressionProgress progress = progress_;
    const double elapsed = runLoop_.hostTime() - startedAt_;
    if (isRunning_ && bytesOver_ > 0 && elapsed > 1) {
      const double rest = elapsed * static_cast<double>(bytesAhead_) / static_cast<double>(bytesOver_);
      progress.remaining = std::chrono::milliseconds(static_cast<std::int64_t>(rest * 1000));
    }
    return progress;
  }

  void preview(std::uint64_t id, const CompressOptions& options, std::function<void(Raster)> before,
               std::function<void(Result<Preview, PictureFailure>)> after) {
    const CompressionItem* item = find(id);
    if (!item) return;
    const std::uint64_t number = ++previewNumber_;
    previewQueue_->async([this, number, source = item->sourceURL, image = item->image, options,
                          before = std::move(before), after = std::move(after)] {
      const CompressControl control{defaultJobs(), [this, number] { return number != previewNumber_; }};
      if (control.isCancelled()) return;
      const auto tellBefore = [&](const Raster& raster) {
        post([number, before, raster](State& self) {
          if (number == self.previewNumber_) before(raster);
        });
      };
      post([number, after, preview = makePreview(source, image, options, control, gate_, tellBefore)](State& self) {
        if (number == self.previewNumber_) after(preview);
      });
    });
  }

 private:
  std::vector<CompressionItem>::iterator position(std::uint64_t id) {
    const auto found = index_.find(id);
    return found == index_.end() ? items_.end() : items_.begin() + static_cast<std::ptrdiff_t>(found->second);
  }

  bool isOutstanding(const CompressionItem& item, const Wish& wish) const {
    if (!isSuccess(item.state)) return true;
    const auto last = doneWith_.find(item.id);
    return last == doneWith_.end() || last->second != wish;
  }

  template <class Condition>
  void removeIf(const Condition& isUnwanted) {
    std::erase_if(items_, [&](const CompressionItem& item) {
      if (item.state == CompressionState::running || !isUnwanted(item)) return false;
      forget(item);
      return true;
    });
    reindex();
    tell(callbacks_.onListChanged);
    finishIfDone();
  }

  void reindex() {
    index_.clear();
    for (std::size_t i = 0; i < items_.size(); ++i) index_[items_[i].id] = i;
  }

  template <class Callback, class... Arguments>
  void tell(const Callback& callback, Arguments&&... arguments) {
    if (const auto copy = callback) copy(std::forward<Arguments>(arguments)...);
  }

  /// Comes back from a thread; nothing happens once the owner has gone.
  template <class Task>
  void post(Task task) {
    runLoop_.post([weak = weak_from_this(), task = std::move(task)]() mutable {
      if (const auto self = weak.lock(); self && !self->isEnding_) task(*self);
    });
  }

  void add(std::vector<CompressionItem> found) {
    std::unordered_set<std::string> known;
    for (const CompressionItem& item : items_)
      if (!item.sourceURL.empty()) known.insert(item.sourceURL.string());
    for (CompressionItem& item : found) {
      if (items_.size() >= maximumItems) break;
      if (!item.sourceURL.empty() && !known.insert(item.sourceURL.string()).second) continue;
      item.id = ++lastId_;
      items_.push_back(std::move(item));
      index_[lastId_] = items_.size() - 1;
    }
    tell(callbacks_.onListChanged);
  }

  void glanced(std::uint64_t id, const Glance& glance) {
    const auto item = position(id);
    if (item == items_.end() || glance.size.width == 0) return;
    item->pixelSize = glance.size;
    item->thumbnail = glance.thumbnail;
    if (glance.type) item->sourceUTType = glance.type;
    tell(callbacks_.onItemChanged, id);
  }

  void beginRun() {
    ++cancellation_;
    progress_ = {};
    ended_.clear();
    bytesOver_ = 0;
    bytesAhead_ = 0;
    isRunning_ = true;
    startedAt_ = runLoop_.hostTime();
  }

  void enqueue(std::uint64_t id) {
    const auto item = position(id);
    item->state = CompressionState::waiting;
    item->failure.reset();
    bytesAhead_ += item->originalBytes;
    const auto isRemoved = std::make_shared<std::atomic<bool>>(false);
    pending_[id] = isRemoved;
    CompressionJob job;
    job.source = item->sourceURL;
    job.displayName = item->displayName;
    job.image = item->image;
    job.options = options_;
    job.destination = destination_;
    const int together = std::min(jobs_, static_cast<int>(std::min<std::size_t>(progress_.total, 64)));
    job.threads = std::max(1, defaultJobs() / std::max(1, together));
    job.isCancelled = [this, number = cancellation_.load(), isRemoved] {
      return number != cancellation_ || *isRemoved;
    };
    workers_->add([this, id, job = std::move(job)] {
      if (!job.isCancelled()) post([id](State& self) { self.began(id); });
      auto result = carryOut(job, gate_);
      post([id, wish = Wish{job.options, job.destination}, result = std::move(result)](State& self) mutable {
        self.ended(id, wish, std::move(result));
      });
    });
    tell(callbacks_.onItemChanged, id);
  }

  /// An item that goes before its turn has come.
  void forget(const CompressionItem& item) {
    const auto pending = pending_.find(item.id);
    if (pending == pending_.end()) return;
    *pending->second = true;
    pending_.erase(pending);
    ++progress_.finished;
    bytesAhead_ -= std::min(bytesAhead_, item.originalBytes);
  }

  void began(std::uint64_t id) {
    const auto item = position(id);
    if (item == items_.end()) return;
    item->state = CompressionState::running;
    tell(callbacks_.onItemChanged, id);
  }

  void ended(std::uint64_t id, const Wish& wish, Result<CompressionResult, PictureFailure> result) {
    const auto item = position(id);
    if (item == items_.end() || pending_.erase(id) == 0) return;
    ++progress_.finished;
    ended_.insert(id);
    bytesAhead_ -= std::min(bytesAhead_, item->originalBytes);
    bytesOver_ += item->originalBytes;
    if (result) {
      item->state = result->isOriginal ? CompressionState::unchanged : CompressionState::done;
      item->pixelSize = result->sourceSize;
      item->originalBytes = result->sourceBytes;
      if (result->sourceType) item->sourceUTType = result->sourceType;
      progress_.bytesBefore += result->sourceBytes;
      progress_.bytesAfter += result->output.bytes;
      item->lastOutput = std::move(result->output);
      doneWith_[id] = wish;
    } else if (result.error().error == PictureError::Cancelled) {
      item->state = CompressionState::cancelled;
    } else {
      item->state = CompressionState::failed;
      item->failure = std::move(result.error());
      ++progress_.failed;
    }
    tell(callbacks_.onItemChanged, id);
    tell(callbacks_.onProgress, progress());
    finishIfDone();
  }

  void finishIfDone() {
    if (!isRunning_ || !pending_.empty()) return;
    isRunning_ = false;
    tell(callbacks_.onFinished, progress_);
  }

  RunLoop& runLoop_;
  Callbacks callbacks_;
  const int jobs_;
  std::vector<CompressionItem> items_;
  std::unordered_map<std::uint64_t, std::size_t> index_;
  std::uint64_t lastId_ = 0;
  std::set<std::uint64_t> requested_;

  CompressOptions options_;
  CompressDestination destination_;
  std::unordered_map<std::uint64_t, Wish> doneWith_;
  /// The items of this run that are not finished; true takes one out that has not begun.
  std::unordered_map<std::uint64_t, std::shared_ptr<std::atomic<bool>>> pending_;
  std::unordered_set<std::uint64_t> ended_;  ///< the items of this run that are over
  bool isRunning_ = false;
  double startedAt_ = 0;
  CompressionProgress progress_;
  std::uintmax_t bytesOver_ = 0;
  std::uintmax_t bytesAhead_ = 0;

  std::atomic<bool> isEnding_ = false;
  std::atomic<std::uint64_t> cancellation_ = 0;
  std::atomic<std::uint64_t> previewNumber_ = 0;
  MemoryGate gate_{maximumDecodedBytes};
  std::unique_ptr<SerialQueue> lookingQueue_;
  std::unique_ptr<SerialQueue> previewQueue_;
  std::unique_ptr<CompressionWorkers> workers_;
};

CompressionRun::CompressionRun(RunLoop& runLoop, Callbacks callbacks, int jobs, ThreadQuality quality)
    : state_(std::make_shared<State>(runLoop, std::move(callbacks), jobs, quality)) {}

CompressionRun::~CompressionRun() {
  state_->end();
}

void CompressionRun::addPaths(std::vector<fs::path> paths, bool recursive, const fs::path& leftOut) {
  state_->addPaths(std::move(paths), recursive, leftOut);
}

void CompressionRun::addPixels(Raster raster, std::string displayName) {
  state_->addPixels(std::move(raster), std::move(displayName));
}

void CompressionRun::remove(std::uint64_t id) {
  state_->remove({id});
}

void CompressionRun::remove(const std::vector<std::uint64_t>& ids) {
  state_->remove(ids);
}

void CompressionRun::clear() {
  state_->clear();
}

const std::vector<CompressionItem>& CompressionRun::items() const {
  return state_->items();
}

const CompressionItem* CompressionRun::find(std::uint64_t id) const {
  return state_->find(id);
}

void CompressionRun::requestThumbnail(std::uint64_t id) {
  state_->requestThumbnail(id);
}

void CompressionRun::start(const CompressOptions& options, const CompressDestination& destination) {
  state_->start(options, destination);
}

std::size_t CompressionRun::outstanding(const CompressOptions& options, const CompressDestination& destination) const {
  return state_->outstanding(options, destination);
}

void CompressionRun::retry(std::uint64_t id) {
  state_->retry(id);
}

void CompressionRun::retry(std::uint64_t id, const CompressOptions& options, const CompressDestination& destination) {
  state_->retry(id, Wish{options, destination});
}

void CompressionRun::cancel() {
  state_->cancel();
}

bool CompressionRun::isRunning() const {
  return state_->isRunning();
}

CompressionProgress CompressionRun::progress() const {
  return state_->progress();
}

void CompressionRun::preview(std::uint64_t id, const CompressOptions& options, std::function<void(Raster)> before,
                             std::function<void(Result<Preview, PictureFailure>)> after) {
  state_->preview(id, options, std::move(before), std::move(after));
}

}  // namespace vellora
