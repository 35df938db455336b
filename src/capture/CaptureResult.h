#pragma once

#include <optional>

#include <QString>

#include "base/Json.h"
#include "capture/CaptureError.h"
#include "capture/CaptureOrigin.h"
#include "capture/CaptureOutput.h"

namespace vellora {

/// How a capture ended.
struct CaptureResult {
  enum class End {
    Done,        ///< there is a picture
    Cancelled,   ///< the person left
    Busy,        ///< another capture is under way
    NotAllowed,  ///< the desktop does not let us
    Failed,
  };
  End end = End::Done;
  std::optional<CaptureError> error;  ///< when Failed
  PixelSize size;
  double scale = 1;
  CaptureOrigin origin;
  CaptureOutcome outcome;
};

/// What the command line prints with --json.
Json captureResultJson(const CaptureResult& result);

/// What went wrong, in English for a terminal; empty when all that was asked for is done.
QString captureResultMessage(const CaptureResult& result);

}  // namespace vellora
