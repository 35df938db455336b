#pragma once

#include <string>
#include <vector>

#include "capture/OverlayPresenter.h"

namespace vellora::test {

/// Overlays nobody sees: remembers what was asked, and hands the test the session's input.
class FakeOverlayPresenter final : public OverlayPresenter {
 public:
  std::vector<std::string> calls;  ///< without the updates
  std::vector<DisplayInfo> displays;
  OverlayScene scene;
  OverlayInput* input = nullptr;
  KeyModifiers held;

  bool isVisible() const { return visible_; }

  void prepare(const std::vector<DisplayInfo>& onDisplays) override {
    calls.emplace_back("prepare");
    displays = onDisplays;
  }
  void show(const OverlayScene& first, OverlayInput& to) override {
    calls.emplace_back("show");
    scene = first;
    input = &to;
    visible_ = true;
  }
  void update(const OverlayScene& next) override { scene = next; }
  void hide() override {
    calls.emplace_back("hide");
    visible_ = false;
  }
  void close() override {
    calls.emplace_back("close");
    visible_ = false;
    input = nullptr;
  }
  KeyModifiers modifiers() const override { return held; }

 private:
  bool visible_ = false;
};

}  // namespace vellora::test
