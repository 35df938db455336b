#include "capture/WindowOrder.h"

#include <algorithm>

#include "capture/SelectionGeometry.h"

namespace vellora {

void WindowOrder::pointAt(PixelPoint position) {
  std::vector<std::size_t> order;
  std::vector<std::size_t> others;
  for (std::size_t i = 0; i < content_.windows.size(); ++i) {
    const PixelRect& frame = content_.windows[i].frame;
    if (!displayIndexFor(content_.displays, frame)) continue;
    (frame.contains(position) ? order : others).push_back(i);
  }
  const std::size_t underPointer = order.size();
  order.insert(order.end(), others.begin(), others.end());
  if (order == order_ && underPointer == underPointer_) return;
  order_ = std::move(order);
  underPointer_ = underPointer;
  chosen_ = underPointer_ > 0 ? std::optional<std::size_t>(0) : std::nullopt;
}

void WindowOrder::step(bool forward) {
  if (order_.empty()) return;
  if (!chosen_) {
    chosen_ = forward ? 0 : order_.size() - 1;
    return;
  }
  chosen_ = (*chosen_ + (forward ? 1 : order_.size() - 1)) % order_.size();
}

const WindowInfo* WindowOrder::current() const {
  return chosen_ ? &content_.windows[order_[*chosen_]] : nullptr;
}

}  // namespace vellora
