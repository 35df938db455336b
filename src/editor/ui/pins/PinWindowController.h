#pragma once

#include <memory>

#include <QObject>

#include "base/Lifetime.h"
#include "editor/PinModel.h"
#include "editor/ui/pins/PinContent.h"

namespace vellora {

class PinBoard;
class PinWindow;

/// One pinned picture: its content, its window and what a person may ask of it. Owned by its PinBoard; main thread.
class PinWindowController final : public QObject {
  Q_OBJECT

 public:
  PinWindowController(PinBoard& board, PinContent content);
  ~PinWindowController() override;

  const PinContent& content() const { return content_; }
  const PinModel& model() const { return model_; }
  PinWindow& window() const { return *window_; }
  /// The picture as PNG, for every user the same object.
  std::shared_ptr<SharedPng> pngCache();

  void show(const PinPlacement& placement);

  void setScale(double scale);
  void copy();
  void save();
  /// Hands the picture to an editor; the pin goes when one has taken it over.
  void edit();
  /// Begins to drag the picture out of the window into another program; returns when it was dropped.
  void dragOut();
  void toggleShadow();
  void toggleRoundedCorners();
  void setOpacity(double opacity);
  /// Whether clicks go through the picture to what lies below it. The window cannot be asked back then: the program's
  /// menu has to offer it.
  void setClickThrough(bool on);
  void toggleClickThrough() { setClickThrough(!model_.isClickThrough()); }
  /// Ends the pin, telling `closed`; this object is deleted soon after.
  void close();
  void closeAll();

 private:
  friend class PinBoard;
  void output(bool copy, bool save);
  void followScreens(const std::vector<PinScreen>& screens);
  void openMenu(const QPoint& position);
  void leave();

  PinBoard& board_;
  PinContent content_;
  PinModel model_;
  std::unique_ptr<PinWindow> window_;
  bool leaving_ = false;
  bool dragging_ = false;
  Lifetime lifetime_;
};

}  // namespace vellora
