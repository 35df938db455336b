#pragma once

#include <memory>
#include <string>

#include "platform/ScreenStream.h"

namespace vellora {

/// Streams of an X desktop. Each has a connection and a thread of its own.
///
/// The server tells that something was drawn (DAMAGE); only then, and when the frame clock allows, the rows that
/// changed are read into the next of a few buffers the server writes into itself (MIT-SHM). The cursor is drawn by us.
/// A still screen costs ten short questions a second: where the pointer is, because programs may move it unseen.
class X11ScreenStreamService final : public ScreenStreamService {
 public:
  /// `display` as in DISPLAY (":0"); empty takes DISPLAY.
  explicit X11ScreenStreamService(std::string display = {}) : display_(std::move(display)) {}

  Result<std::unique_ptr<ScreenStream>, ScreenCaptureError> start(const ScreenStreamConfiguration& configuration,
                                                                  Callbacks callbacks) override;

 private:
  std::string display_;
};

}  // namespace vellora
