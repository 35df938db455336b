#pragma once

#include <string>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "base/SerialQueue.h"
#include "platform/Pasteboard.h"

namespace vellora {

/// The clipboard of an X desktop. What is written lives in a small process of its own from the start, so it goes on
/// pasting however this process ends, with or without a clipboard manager. That process also makes
/// the TIFF form, when a program asks for it.
class DesktopPasteboard final : public Pasteboard {
 public:
  explicit DesktopPasteboard(RunLoop& runLoop);
  /// With the holder's executable in another place than usual.
  DesktopPasteboard(RunLoop& runLoop, std::string holderProgram);
  /// Ends a reading under way at once.
  ~DesktopPasteboard() override;

  bool write(PasteboardContent content) override;
  void readImage(std::function<void(std::optional<ImageOffer>)> done) override;

 private:
  RunLoop& runLoop_;
  const std::string holderProgram_;
  const int cancel_;  ///< readable once this object goes
  SerialQueue queue_{"dev.orlo.vellora.pasteboard"};
  Lifetime lifetime_;
};

}  // namespace vellora
