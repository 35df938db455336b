#pragma once

#include <QStringList>
#include <QWidget>

class QStackedWidget;

namespace vellora {

class Button;
class PrimaryButton;
class TextLabel;
struct CompressionProgress;

/// The lower edge of the compressor's window: the settings in short and the one button; while a run goes on its
/// progress and Cancel.
class CompressorFooter final : public QWidget {
  Q_OBJECT

 public:
  explicit CompressorFooter(QWidget* parent = nullptr);

  /// What the next run would do, in a few words each.
  void setBadges(const QStringList& badges);
  /// Pictures the button would compress.
  void setOutstanding(std::size_t count);
  /// Shows the progress instead.
  void setProgress(const CompressionProgress& progress);
  void setRunning(bool running);

 signals:
  void startRequested();
  void cancelRequested();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  class Badges;
  class Track;

  QStackedWidget* texts_;  // the children are owned by Qt
  Badges* badges_;
  TextLabel* progressText_;
  Track* track_;
  PrimaryButton* start_;
  Button* cancel_;
};

}  // namespace vellora
