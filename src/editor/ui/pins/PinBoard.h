#pragma once

#include <memory>
#include <vector>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "base/SerialQueue.h"
#include "editor/PinModel.h"
#include "editor/ui/pins/PinContent.h"

class QTimer;

namespace vellora {

class PinWindowController;
class PreferenceStore;
class WindowHints;

/// All pinned pictures. Main thread; what takes long is done on the queue "dev.orlo.vellora.pins".
class PinBoard {
 public:
  /// `hints` may be null where the desktop takes none. Everything outlives the board.
  PinBoard(RunLoop& runLoop, PreferenceStore& preferences, WindowHints* hints, PinActions actions);
  /// Closes what is open, telling `closed` for each.
  ~PinBoard();
  PinBoard(const PinBoard&) = delete;
  PinBoard& operator=(const PinBoard&) = delete;

  /// Pins a picture, without taking the focus. The pin belongs to the board and is gone once it is closed; null when
  /// there is no picture to show.
  PinWindowController* open(PinContent content, const PinPlacement& placement = {});

  /// In the order they were opened.
  std::vector<PinWindowController*> pins() const;
  bool isEmpty() const { return pins_.empty(); }
  void closeAll();

  /// Whether some pin lets clicks through, and the way back for all of them.
  bool hasClickThrough() const;
  void endClickThrough();

 private:
  friend class PinWindowController;
  static std::vector<PinScreen> screens();
  std::vector<Rect> picturesBeside(const PinWindowController& pin) const;
  void remove(PinWindowController* pin);
  void deleteLeaving();
  void changed();
  void screensChanged();

  RunLoop& runLoop_;
  PreferenceStore& preferences_;
  WindowHints* const hints_;
  const PinActions actions_;
  std::unique_ptr<QTimer> screensTimer_;
  std::vector<std::unique_ptr<PinWindowController>> pins_;
  std::vector<std::unique_ptr<PinWindowController>> leaving_;
  Lifetime lifetime_;
  SerialQueue queue_{"dev.orlo.vellora.pins"};
};

}  // namespace vellora
