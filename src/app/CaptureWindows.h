#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QPointer>

#include "capture/CaptureCompletion.h"
#include "capture/ui/PictureWindow.h"

namespace vellora {

struct AppServices;

/// The windows captures open in. A capture is in the history from the moment its window opens, so that nothing is lost
/// however the program ends. Main thread.
class CaptureWindows {
 public:
  /// `report` is told what became of the windows' own copy and save commands, `allClosed` when the last window is gone.
  CaptureWindows(AppServices& services, std::function<void(const CaptureOutcome&)> report,
                 std::function<void()> allClosed);
  ~CaptureWindows();

  void openEditor(const CaptureDocument& document) { open(document, Stacking::Normal); }
  void openPin(const CaptureDocument& document) { open(document, Stacking::OnTop); }

  /// Closes every pinned picture.
  void closePins();
  bool hasOpenWindows() const;

 private:
  enum class Stacking { Normal, OnTop };
  void open(const CaptureDocument& document, Stacking stacking);
  void output(const CaptureDocument& document, AfterCaptureAction action);

  AppServices& services_;
  std::function<void(const CaptureOutcome&)> report_;
  std::function<void()> allClosed_;
  std::vector<QPointer<PictureWindow>> windows_;
};

}  // namespace vellora
