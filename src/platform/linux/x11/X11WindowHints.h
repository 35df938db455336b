#pragma once

#include <memory>

#include "platform/WindowHints.h"

namespace vellora {

class X11Connection;

/// Window hints by the Extended Window Manager Hints and the SHAPE extension, over a connection of its own that is made
/// with the first call. Windows that have gone are no error.
class X11WindowHints final : public WindowHints {
 public:
  X11WindowHints();
  ~X11WindowHints() override;

  void keepEverywhere(std::uint64_t window) override;
  void limitInput(std::uint64_t window, const std::vector<PixelRect>& regions) override;
  void limitVisible(std::uint64_t window, const std::vector<PixelRect>& regions) override;
  void setShadowMargin(std::uint64_t window, int margin) override;
  std::uint64_t activeWindow() override;
  void activate(std::uint64_t window) override;

 private:
  void setShape(std::uint64_t window, const std::vector<PixelRect>& regions, unsigned kind);
  X11Connection* connection();

  bool tried_ = false;
  std::unique_ptr<X11Connection> connection_;
};

}  // namespace vellora
