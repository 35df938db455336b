#include "platform/linux/x11/X11ScreenStream.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <optional>
#include <thread>

#include "base/Log.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Cursor.h"
#include "platform/linux/x11/X11FrameBuffers.h"
#include "platform/linux/x11/X11FrameClock.h"
#include "platform/linux/x11/X11FrameSource.h"
#include "platform/linux/x11/X11FrameSourceArea.h"
#include "platform/linux/x11/X11FrameSourceWindow.h"

namespace vellora {
namespace {

using Callbacks = ScreenStreamService::Callbacks;

/// How often a still screen is asked where the pointer is; seconds.
constexpr double slowLook = 0.1;
/// Changes beyond this many rectangles are united.
constexpr std::size_t mostChanges = 16;
/// Frames in a row that the server may refuse before the stream gives up: two seconds.
constexpr int mostRefusals = 120;
/// How long the end of a stream waits for a server that does not answer.
constexpr std::chrono::milliseconds patience{500};

double hostTime() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

class X11ScreenStream final : public ScreenStream {
 public:
  X11ScreenStream(std::unique_ptr<X11Connection> connection, std::unique_ptr<X11FrameSource> source,
                  const ScreenStreamConfiguration& configuration, Callbacks callbacks)
      : connection_(std::move(connection)),
        callbacks_(std::move(callbacks)),
        showsCursor_(configuration.showsCursor),
        clock_(configuration.minimumFrameInterval),
        source_(std::move(source)),
        buffers_(std::in_place, *connection_, source_->size(), configuration.queueDepth),
        wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (showsCursor_ || callbacks_.onPointer) pointer_.emplace(*connection_);
  }
  ~X11ScreenStream() override {
    X11ScreenStream::stop();
    // What lives on the server goes before the connection to it.
    pointer_.reset();
    buffers_.reset();
    source_.reset();
    if (wake_ >= 0) close(wake_);
  }

  /// False when there is no memory.
  bool begin() {
    if (wake_ < 0 || !buffers_->prepare()) return false;
    thread_ = std::thread([this] {
      run();
      const std::lock_guard lock(mutex_);
      ended_ = true;
      changed_.notify_all();
    });
    return true;
  }

  ScreenStreamCounts counts() const override { return {captured_, dropped_, late_}; }

  void stop() override {
    if (!thread_.joinable()) return;
    stopping_ = true;
    wake();
    {
      std::unique_lock lock(mutex_);
      const bool ended = changed_.wait_for(lock, patience, [this] { return ended_; });
      // The thread waits for an answer that does not come; without a connection it does not.
      if (!ended) shutdown(xcb_get_file_descriptor(connection_->get()), SHUT_RDWR);
    }
    thread_.join();
  }

  void requestFrame() override {
    requested_ = true;
    wake();
  }

  void setLeftOut(std::vector<WindowId> windows) override {
    {
      const std::lock_guard lock(mutex_);
      leftOut_ = std::move(windows);
    }
    wake();
  }

 private:
  void wake() const {
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(wake_, &one, sizeof one);
  }

  void run() {
    while (!stopping_) {
      leaveOut();
      readEvents();
      if (connection_->isBroken()) return endByItself(ScreenCaptureError::NotAvailable);
      const double now = hostTime();
      if (pointer_ && now >= nextLook_) pointerMayDiffer_ = true;
      if (!isWanted()) {
        wait(pointer_ ? std::optional(nextLook_) : std::nullopt, true);
        continue;
      }
      const double due = std::max(clock_.due(), notBefore_);
      if (now < due) {
        wait(due, false);
        continue;
      }
      if (const auto error = tick()) return endByItself(*error);
    }
  }

  void leaveOut() {
    std::optional<std::vector<WindowId>> windows;
    {
      const std::lock_guard lock(mutex_);
      windows.swap(leftOut_);
    }
    if (windows) source_->leaveOut(*windows);
  }

  void endByItself(ScreenCaptureError error) {
    if (!stopping_ && callbacks_.onStopped) callbacks_.onStopped(error);
  }

  bool isWanted() const { return source_->isDirty() || pointerMayDiffer_ || requested_ || isOwed_; }

  void readEvents() {
    while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())}) {
      source_->handle(*event);
      if (pointer_ && pointer_->handle(*event)) pointerMayDiffer_ = true;
    }
  }

  /// Sleeps until `deadline`, a call of `wake`, or an event of the server if `forEvents`. When the frame is not due yet
  /// nothing the server says can change that, and it may say a lot.
  void wait(std::optional<double> deadline, bool forEvents) {
    if (forEvents) wasBusy_ = false;
    xcb_flush(connection_->get());
    timespec left{};
    if (deadline) {
      const double seconds = std::max(*deadline - hostTime(), 0.0);
      left.tv_sec = static_cast<time_t>(seconds);
      left.tv_nsec = static_cast<long>((seconds - std::floor(seconds)) * 1e9);
    }
    pollfd watched[] = {{wake_, POLLIN, 0}, {xcb_get_file_descriptor(connection_->get()), POLLIN, 0}};
    ppoll(watched, forEvents ? 2 : 1, deadline ? &left : nullptr, nullptr);
    std::uint64_t ignored = 0;
    if (watched[0].revents != 0) [[maybe_unused]]
      const auto got = read(wake_, &ignored, sizeof ignored);
  }

  /// One moment of the frame clock: looks at everything, and takes a frame if something is different.
  std::optional<ScreenCaptureError> tick() {
    const double begun = hostTime();
    std::optional<X11ServerGrab> held;
    if (isSecondTry_) {
      held.emplace(*connection_);
      connection_->rootSize();  // when this has come, nobody else moves anything
      readEvents();
    }
    if (pointer_) pointer_->ask();
    auto changes = source_->changes();
    if (!changes) return changes.error();
    for (const PixelRect& rect : *changes) buffers_->markStale(rowsOf(rect));
    const bool isNew = !changes->empty();
    changes_.insert(changes_.end(), changes->begin(), changes->end());
    const bool cursorMoved = pointer_ && lookAtPointer();
    const bool wanted = requested_.exchange(false) || isFirst_;
    if (!wanted && !cursorMoved && changes_.empty()) {
      isOwed_ = false;
      // Drawing outside the picture is looked at less often than it may happen.
      notBefore_ = begun + clock_.interval() / 4;
      return std::nullopt;
    }
    X11FrameBuffer* buffer = buffers_->take();
    if (buffer == nullptr) {
      if (isNew || cursorMoved || wanted) ++dropped_;
      isOwed_ = true;
      requested_ = requested_ || wanted;
      clock_.frameTaken(begun);
      return std::nullopt;
    }
    return take(*buffer, begun);
  }

  /// Whether the cursor in the picture is another one than in the last frame.
  bool lookAtPointer() {
    const X11Pointer pointer = pointer_->receive();
    pointerMayDiffer_ = false;
    const double now = hostTime();
    nextLook_ = now + slowLook;
    cursor_ = source_->cursor(pointer);
    if (callbacks_.onPointer) {
      const PointerSample sample{now, cursor_.position, pointer_->image().shape, pointer.buttons};
      const bool same = sample_ && sample_->position == sample.position && sample_->shape == sample.shape &&
                        sample_->buttons == sample.buttons;
      if (!same) callbacks_.onPointer(sample);
      sample_ = sample;
    }
    const PixelRect frame = cursorFrame();
    return frame != drawnCursor_ || (!frame.isEmpty() && pointer_->image().shape != drawnShape_);
  }

  /// Where the cursor is to be drawn; empty when it is not.
  PixelRect cursorFrame() const {
    if (!showsCursor_ || !cursor_.isShown) return {};
    const PixelSize size = source_->size();
    const PixelRect visible =
        pointer_->image().frame(cursor_.position, cursor_.scale).intersected({0, 0, size.width, size.height});
    return visible.isEmpty() ? PixelRect{} : visible;
  }

  std::optional<ScreenCaptureError> take(X11FrameBuffer& buffer, double begun) {
    late_ += isFirst_ || !wasBusy_ ? 0 : clock_.missed(begun);
    const double presentationTime = hostTime();
    const RowBands read = buffer.stale;
    if (source_->isFrozen()) {
      repeat(buffer);
      finish(buffer, presentationTime, begun, {});
      return std::nullopt;
    }
    const auto late = source_->read(read.bands(), buffer);
    if (!late) {
      buffers_->release(buffer);
      isOwed_ = true;
      clock_.frameTaken(begun);
      if (connection_->isBroken()) return ScreenCaptureError::NotAvailable;
      return ++refusals_ < mostRefusals ? std::nullopt : std::optional(ScreenCaptureError::Failed);
    }
    refusals_ = 0;
    buffer.stale.clear();
    std::vector<PixelRect> carried;
    for (const PixelRect& rect : *late) {
      changes_.push_back(rect);
      if (!read.contain(rowsOf(rect))) carried.push_back(rect);
      buffers_->markStale(rowsOf(rect));
    }
    readEvents();
    if (!source_->isCurrent() && !std::exchange(isSecondTry_, true)) {
      for (const RowBand& band : read.bands()) buffer.stale.add(band);
      buffers_->release(buffer);
      isOwed_ = true;
      return std::nullopt;
    }
    finish(buffer, presentationTime, begun, std::move(carried));
    return std::nullopt;
  }

  /// Puts the last picture into the buffer once more.
  void repeat(X11FrameBuffer& buffer) {
    const X11FrameBuffer* latest = buffers_->latest();
    for (const RowBand& band : buffer.stale.bands()) {
      const std::size_t bytes = buffer.rowBytes() * static_cast<std::size_t>(band.bottom - band.top);
      if (latest != nullptr) std::memcpy(buffer.row(band.top), latest->row(band.top), bytes);
    }
    buffer.stale.clear();
  }

  void finish(X11FrameBuffer& buffer, double presentationTime, double begun, std::vector<PixelRect> carried) {
    isSecondTry_ = false;
    deliver(buffer, presentationTime);
    changes_ = std::move(carried);
    isOwed_ = !changes_.empty();
    isFirst_ = false;
    wasBusy_ = true;
    clock_.frameTaken(begun);
  }

  void deliver(X11FrameBuffer& buffer, double presentationTime) {
    const PixelRect cursor = cursorFrame();
    const std::uint64_t shape = pointer_ ? pointer_->image().shape : 0;
    if (cursor != drawnCursor_ || shape != drawnShape_) {
      changes_.push_back(drawnCursor_);
      changes_.push_back(cursor);
    }
    drawnCursor_ = cursor;
    drawnShape_ = shape;
    if (!cursor.isEmpty()) {
      drawCursor(pointer_->image(), cursor_.position, cursor_.scale, buffer);
      buffer.stale.add(rowsOf(cursor));
    }
    const auto frame = buffers_->frame(buffer);
    frame->presentationTime = presentationTime;
    frame->changes = changes_;
    if (isFirst_) frame->changes = {{0, 0, frame->width, frame->height}};
    mergeRects(frame->changes, mostChanges);
    ++captured_;
    if (callbacks_.onFrame) callbacks_.onFrame(frame);
  }

  const std::unique_ptr<X11Connection> connection_;
  const Callbacks callbacks_;
  const bool showsCursor_;

  // Used by the thread only:
  X11FrameClock clock_;
  std::unique_ptr<X11FrameSource> source_;
  std::optional<X11FrameBuffers> buffers_;
  std::optional<X11PointerTracker> pointer_;
  X11FrameSource::Cursor cursor_;
  std::optional<PointerSample> sample_;
  PixelRect drawnCursor_;  ///< in the last frame
  std::uint64_t drawnShape_ = 0;
  std::vector<PixelRect> changes_;  ///< since the last frame
  bool pointerMayDiffer_ = true;
  bool isFirst_ = true;
  bool isOwed_ = false;  ///< a frame could not be taken although something had changed
  bool isSecondTry_ = false;
  bool wasBusy_ = false;  ///< no rest since the last frame
  double nextLook_ = 0;   ///< when the pointer is looked at though nothing happened
  double notBefore_ = 0;  ///< when anything is looked at again
  int refusals_ = 0;

  const int wake_;
  std::atomic<bool> stopping_ = false;
  std::atomic<bool> requested_ = false;
  std::atomic<std::uint64_t> captured_ = 0;
  std::atomic<std::uint64_t> dropped_ = 0;
  std::atomic<std::uint64_t> late_ = 0;
  std::mutex mutex_;
  std::condition_variable changed_;
  // Guarded by mutex_:
  bool ended_ = false;
  std::optional<std::vector<WindowId>> leftOut_;  ///< that the source is not told of yet
  std::thread thread_;
};

}  // namespace

Result<std::unique_ptr<ScreenStream>, ScreenCaptureError> X11ScreenStreamService::start(
    const ScreenStreamConfiguration& configuration, Callbacks callbacks) {
  auto connection = X11Connection::open(display_);
  if (!connection) return failure(ScreenCaptureError::NotAvailable);
  auto source = X11FrameSource::make(*connection, configuration);
  if (!source) return failure(source.error());
  auto stream =
      std::make_unique<X11ScreenStream>(std::move(connection), std::move(*source), configuration, std::move(callbacks));
  if (!stream->begin()) {
    log::warning(QStringLiteral("screen stream failed: no memory"));
    return failure(ScreenCaptureError::Failed);
  }
  return stream;
}

Result<std::unique_ptr<X11FrameSource>, ScreenCaptureError> X11FrameSource::make(
    X11Connection& connection, const ScreenStreamConfiguration& configuration) {
  return configuration.window ? X11FrameSourceWindow::make(connection, configuration)
                              : X11FrameSourceArea::make(connection, configuration);
}

}  // namespace vellora
