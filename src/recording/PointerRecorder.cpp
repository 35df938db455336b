#include "recording/PointerRecorder.h"

namespace vellora {
namespace {

/// Left, middle, right.
constexpr int buttonCount = 3;

}  // namespace

void PointerRecorder::receive(const PointerSample& sample, std::optional<double> position) {
  sample_ = sample;
  if (position) write(*position);
}

void PointerRecorder::enter(double position) {
  if (sample_) write(position);
}

void PointerRecorder::write(double position) {
  PointerEntry entry{
      .time = position, .x = static_cast<double>(sample_->position.x), .y = static_cast<double>(sample_->position.y)};
  if (shape_ != sample_->shape) entry.shape = shape_ = sample_->shape;
  const std::uint32_t changed = buttons_ ^ sample_->buttons;
  buttons_ = sample_->buttons;
  for (int number = 0; number < buttonCount; ++number) {
    if ((changed >> number & 1U) == 0) continue;
    entry.button = PointerEntry::Button{number, (buttons_ >> number & 1U) != 0};
    track_->append(entry);
    entry.shape.reset();
  }
  if (!entry.button) track_->append(entry);
}

}  // namespace vellora
