#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/ScreenStream.h"

namespace vellora::test {

/// A screen whose frames the test sends.
class ScriptedScreen final : public ScreenStreamService {
 public:
  Result<std::unique_ptr<ScreenStream>, ScreenCaptureError> start(const ScreenStreamConfiguration& configuration,
                                                                  Callbacks callbacks) override {
    if (refusal) return failure(*refusal);
    lastConfiguration = configuration;
    leftOut = configuration.leftOut;
    callbacks_ = std::move(callbacks);
    isStreaming = true;
    return std::make_unique<Stream>(*this);
  }

  void frame(double time, bool isComplete = true) {
    if (!isStreaming) return;
    ++captured;
    auto frame = std::make_shared<ScreenFrame>();
    frame->width = lastConfiguration.area.width;
    frame->height = lastConfiguration.area.height;
    frame->presentationTime = time;
    frame->isComplete = isComplete;
    callbacks_.onFrame(std::move(frame));
  }
  void pointer(const PointerSample& sample) {
    if (isStreaming) callbacks_.onPointer(sample);
  }
  void stopByItself(ScreenCaptureError error) {
    if (isStreaming) callbacks_.onStopped(error);
  }

  std::optional<ScreenCaptureError> refusal;
  ScreenStreamConfiguration lastConfiguration;
  bool isStreaming = false;
  int requests = 0;
  std::uint64_t captured = 0;
  std::function<void()> whileStopping;  ///< what a stream still does when it is told to end
  std::vector<WindowId> leftOut;        ///< as they are by now

 private:
  class Stream final : public ScreenStream {
   public:
    explicit Stream(ScriptedScreen& screen) : screen_(screen) {}
    ~Stream() override { screen_.isStreaming = false; }
    ScreenStreamCounts counts() const override { return {.captured = screen_.captured}; }
    void stop() override {
      if (screen_.whileStopping) screen_.whileStopping();
      screen_.isStreaming = false;
    }
    void requestFrame() override { ++screen_.requests; }
    void setLeftOut(std::vector<WindowId> windows) override { screen_.leftOut = std::move(windows); }

   private:
    ScriptedScreen& screen_;
  };
  Callbacks callbacks_;
};

}  // namespace vellora::test
