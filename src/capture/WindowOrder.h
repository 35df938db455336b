#pragma once

#include <optional>
#include <vector>

#include "base/Geometry.h"
#include "platform/ScreenCaptureService.h"

namespace vellora {

/// Which window is highlighted: the frontmost one under the pointer, until Tab goes on to those below it and then to
/// all others.
class WindowOrder {
 public:
  /// `content` must outlive the object.
  explicit WindowOrder(const ShareableContent& content) : content_(content) {}

  /// Keeps what Tab chose while the windows under the pointer stay the same.
  void pointAt(PixelPoint position);
  /// Goes to the next (or previous) window, round and round.
  void step(bool forward);
  /// Nothing when no window is under the pointer and Tab has chosen none.
  const WindowInfo* current() const;

 private:
  const ShareableContent& content_;
  std::vector<std::size_t> order_;  // those under the pointer first, each part frontmost first
  std::size_t underPointer_ = 0;
  std::optional<std::size_t> chosen_;
};

}  // namespace vellora
