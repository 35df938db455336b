#include "platform/linux/x11/X11FrameBuffers.h"

#include <algorithm>
#include <iterator>
#include <mutex>
#include <optional>

#include "base/PixelMemory.h"

namespace vellora {

X11FrameBuffer X11FrameBuffer::make(X11Connection& connection, PixelSize size) {
  X11FrameBuffer buffer;
  buffer.size = size;
  const std::size_t bytes = buffer.rowBytes() * static_cast<std::size_t>(size.height);
  buffer.segment = X11SharedSegment::create(connection, bytes);
  if (buffer.segment) {
    buffer.memory = buffer.segment->memory();
  } else if (const auto pixels = allocatePixels(bytes)) {
    buffer.memory = std::shared_ptr<std::byte>(pixels, pixels.get());
  }
  buffer.stale.add({0, size.height});
  return buffer;
}

/// The buffers nobody holds, the one used last at the end. Any thread. Outlives the stream with the last frame.
class X11FrameBuffers::Returned {
 public:
  void add(std::size_t index) {
    const std::lock_guard lock(mutex_);
    indices_.push_back(index);
  }
  /// Any but `kept`.
  std::optional<std::size_t> take(std::optional<std::size_t> kept) {
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(indices_.rbegin(), indices_.rend(), [kept](std::size_t i) { return i != kept; });
    if (found == indices_.rend()) return std::nullopt;
    const std::size_t index = *found;
    indices_.erase(std::next(found).base());
    return index;
  }

 private:
  std::mutex mutex_;
  std::vector<std::size_t> indices_;
};

class X11FrameBuffers::Frame final : public ScreenFrame {
 public:
  Frame(std::shared_ptr<Returned> returned, std::size_t index, const X11FrameBuffer& buffer)
      : returned_(std::move(returned)), index_(index), memory_(buffer.memory) {
    width = buffer.size.width;
    height = buffer.size.height;
    bytesPerRow = static_cast<std::ptrdiff_t>(buffer.rowBytes());
    pixels = reinterpret_cast<const std::uint8_t*>(memory_.get());
  }
  ~Frame() override { returned_->add(index_); }

 private:
  std::shared_ptr<Returned> returned_;
  std::size_t index_;
  std::shared_ptr<std::byte> memory_;
};

X11FrameBuffers::X11FrameBuffers(X11Connection& connection, PixelSize size, int limit)
    : connection_(connection),
      size_(size),
      limit_(static_cast<std::size_t>(std::max(limit, 1))),
      returned_(std::make_shared<Returned>()) {}

X11FrameBuffers::~X11FrameBuffers() = default;

bool X11FrameBuffers::prepare() {
  if (make() == nullptr) return false;
  returned_->add(buffers_.size() - 1);
  return true;
}

X11FrameBuffer* X11FrameBuffers::make() {
  auto buffer = std::make_unique<X11FrameBuffer>(X11FrameBuffer::make(connection_, size_));
  return buffer->memory ? buffers_.emplace_back(std::move(buffer)).get() : nullptr;
}

std::size_t X11FrameBuffers::indexOf(const X11FrameBuffer& buffer) const {
  const auto at = std::ranges::find(buffers_, &buffer, &std::unique_ptr<X11FrameBuffer>::get);
  return static_cast<std::size_t>(at - buffers_.begin());
}

X11FrameBuffer* X11FrameBuffers::take() {
  const auto kept = latest_ != nullptr ? std::optional(indexOf(*latest_)) : std::nullopt;
  if (const auto index = returned_->take(kept)) return buffers_[*index].get();
  if (buffers_.size() < limit_) {
    if (X11FrameBuffer* made = make()) return made;
  }
  const auto index = returned_->take(std::nullopt);
  if (!index) return nullptr;
  latest_ = nullptr;
  return buffers_[*index].get();
}

void X11FrameBuffers::release(const X11FrameBuffer& buffer) {
  returned_->add(indexOf(buffer));
}

std::shared_ptr<ScreenFrame> X11FrameBuffers::frame(const X11FrameBuffer& buffer) {
  latest_ = &buffer;
  return std::make_shared<Frame>(returned_, indexOf(buffer), buffer);
}

void X11FrameBuffers::markStale(RowBand rows) {
  for (const auto& buffer : buffers_) buffer->stale.add(rows);
}

}  // namespace vellora
