#pragma once

#include <functional>

#include <QWidget>

class QVBoxLayout;

namespace vellora {

class Button;
class CompressSettings;
class ElidedLabel;
class MenuButton;
class SegmentedControl;
class Slider;
class Switch;
class TextField;
class TextLabel;

/// How pictures are compressed and where they go. Every change is stored at once. Main thread.
class CompressorOptionsPanel final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int panelWidth = 304;

  explicit CompressorOptionsPanel(CompressSettings& settings, QWidget* parent = nullptr);

  /// Whether quality means something for what is in the list; else the slider is off and a text says why.
  void setQualityUsed(bool used);
  /// Reads the settings anew.
  void refresh();
  /// Lets the person choose the folder for results.
  void chooseFolder();

 signals:
  /// A setting is another one.
  void changed();
  /// The quality moved; more movements may follow.
  void qualityMoved();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void addFormat(QVBoxLayout& column);
  void addQuality(QVBoxLayout& column);
  void addResize(QVBoxLayout& column);
  void addOutput(QVBoxLayout& column);
  void addSwitches(QVBoxLayout& column);
  Switch* addSwitch(QVBoxLayout& column, const QString& title, const QString& help, std::function<void(bool)> store);
  void readEdge();
  void pickOutput(int mode);

  CompressSettings& settings_;
  bool isQualityUsed_ = true;
  // The widgets are owned by Qt.
  SegmentedControl* format_ = nullptr;
  TextLabel* qualityTitle_ = nullptr;
  TextLabel* qualityNumber_ = nullptr;
  TextLabel* qualityNote_ = nullptr;
  Slider* quality_ = nullptr;
  MenuButton* resize_ = nullptr;
  QWidget* edgeRow_ = nullptr;
  TextField* edge_ = nullptr;
  MenuButton* output_ = nullptr;
  QWidget* folderRow_ = nullptr;
  ElidedLabel* folder_ = nullptr;
  Button* choose_ = nullptr;
  Switch* keepMetadata_ = nullptr;
  Switch* keepDates_ = nullptr;
};

}  // namespace vellora
