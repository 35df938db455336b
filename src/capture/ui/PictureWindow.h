#pragma once

#include <QFlags>
#include <QWidget>

#include "base/Geometry.h"
#include "capture/CapturedImage.h"

class QLabel;
class QScreen;

namespace vellora {

class PictureView;

/// A window that shows one captured picture at its point size, with copy, save and close. Delete it, or let it delete
/// itself when it is closed (WA_DeleteOnClose is set).
class PictureWindow final : public QWidget {
  Q_OBJECT

 public:
  enum class Option { None = 0, StayOnTop = 1 };
  Q_DECLARE_FLAGS(Options, Option)

  explicit PictureWindow(CapturedImage picture, const QString& title, Options options = Option::None);

  const CapturedImage& picture() const { return picture_; }

  /// Shows the window with the picture's middle at `center` (the screen's own coordinates) as far as the screen has
  /// room; without one in the middle of the screen. A null screen is the primary one.
  void present(QScreen* screen, const QPoint* center = nullptr);

 signals:
  void copyRequested();
  void saveRequested();
  void closed();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* makeBar();
  void updateStatus();

  const CapturedImage picture_;
  PictureView* view_;  // owned by Qt, as all children
  QLabel* status_ = nullptr;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(PictureWindow::Options)

}  // namespace vellora
