#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "base/Lifetime.h"
#include "capture/CaptureOrigin.h"
#include "capture/CaptureOutput.h"
#include "capture/CapturedImage.h"
#include "editor/SessionStore.h"
#include "preferences/Settings.h"

namespace vellora {

/// A finished capture on its way to a window.
struct CaptureDocument {
  CapturedImage picture;
  std::shared_ptr<SharedPng> png;
  std::optional<CaptureOrigin> origin;  ///< the window is centred on it when present
  Date capturedAt;
};

/// Where every image capture ends: carries out the after-capture actions. Main thread.
class CaptureCompletion {
 public:
  /// The windows a capture may open in, given by whoever owns them.
  struct Windows {
    std::function<void(const CaptureDocument&)> openEditor;
    std::function<void(const CaptureDocument&)> openPin;
  };
  using Report = std::function<void(const CaptureOutcome&)>;

  /// What a single capture is to do instead of the stored actions; `actions` empty: nothing but the output file.
  struct Override {
    std::optional<AfterCaptureActions> actions;
    QString outputFile;
  };

  CaptureCompletion(Settings& settings, SessionStore& store, CaptureOutput& output, RunLoop& runLoop, Windows windows,
                    std::function<void()> cancelSessions, Report report);

  /// Carries out the stored actions, or `override`'s. Editor or pin open at once; without either the capture enters the
  /// history. Copy and save run behind; `done` (may be empty) then gets their outcome, at once when neither is asked
  /// for.
  void completeCapture(const CapturedImage& image, const std::optional<CaptureOrigin>& origin,
                       const std::optional<Override>& override = std::nullopt, Report done = {});

 private:
  Settings& settings_;
  SessionStore& store_;
  CaptureOutput& output_;
  RunLoop& runLoop_;
  Windows windows_;
  std::function<void()> cancelSessions_;
  Report report_;
};

/// The history's record of a capture nobody has drawn on: one piece, no annotations, the default backdrop.
void pushUneditedCapture(SessionStore& store, const CaptureDocument& document);

}  // namespace vellora
