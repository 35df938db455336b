#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include <QBasicTimer>
#include <QWidget>

#include "base/Lifetime.h"
#include "base/SerialQueue.h"
#include "editor/compressor/CompressSettings.h"
#include "editor/ui/compressor/CompressorWindowController.h"

class QAction;
class QMenu;
class QMimeData;
class QSplitter;
class QStackedWidget;

namespace vellora {

class Button;
class ComparisonFeed;
class ComparisonView;
class CompressorDropZone;
class CompressorFooter;
class CompressorListModel;
class CompressorListView;
class CompressorOptionsPanel;
class DropHighlight;
class TextLabel;
enum class RowAction;

/// The compressor's window: pictures left, settings right, the button below. Takes files and folders dropped anywhere
/// on it and pictures pasted. Main thread.
class CompressorWindow final : public QWidget {
  Q_OBJECT

 public:
  CompressorWindow(CompressionRun& run, const CompressorWindowController::Services& services);
  ~CompressorWindow() override;

  /// Shows the window, or brings it to the front.
  void present();

  void addFiles(std::vector<std::filesystem::path> files);
  void addPixels(const Bitmap& picture, const QString& name);
  void paste();
  void start();
  void setComparisonShown(bool shown);

  // What the run tells.
  void listChanged();
  void itemChanged(std::uint64_t id);
  void progressChanged(const CompressionProgress& progress);
  void runEnded();

  CompressorListView& list() { return *list_; }
  ComparisonView& comparison() { return *comparison_; }

 signals:
  void closed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  /// Everything that can be asked for by menu, key or button.
  struct Commands {
    QAction* addImages = nullptr;
    QAction* addFolder = nullptr;
    QAction* paste = nullptr;
    QAction* compare = nullptr;
    QAction* retry = nullptr;
    QAction* reveal = nullptr;
    QAction* remove = nullptr;
    QAction* clear = nullptr;
    QAction* settings = nullptr;
  };

  void makeCommands();
  QWidget* makeBar();
  void connectParts();
  void chooseImages();
  void chooseFolder();
  void openAddMenu();
  void addCaptures(QMenu& menu);
  void openRowMenu(QPoint at);
  void perform(RowAction action, std::uint64_t id);
  void retrySelected();
  void revealCurrent();
  void removeSelected();
  void clearList();
  bool take(const QMimeData& offer);
  void setHot(bool hot);

  void refreshSoon();
  void refresh();
  void refreshCommands();
  void updateComparison();
  QString summary() const;
  CompressDestination destination() const;

  CompressionRun& run_;
  CompressorWindowController::Services services_;
  CompressSettings settings_;
  Commands commands_;
  std::unique_ptr<CompressorListModel> model_;
  std::unique_ptr<ComparisonFeed> feed_;
  // The widgets are owned by Qt.
  Button* add_ = nullptr;
  TextLabel* summary_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  CompressorDropZone* dropZone_ = nullptr;
  QSplitter* splitter_ = nullptr;
  CompressorListView* list_ = nullptr;
  ComparisonView* comparison_ = nullptr;
  CompressorOptionsPanel* options_ = nullptr;
  CompressorFooter* footer_ = nullptr;
  DropHighlight* highlight_ = nullptr;
  QBasicTimer refreshing_;
  int looking_ = 0;  ///< files and folders that are looked into
  std::size_t countBefore_ = 0;
  bool isRemoving_ = false;
  int pastedCount_ = 0;
  Lifetime lifetime_;
  SerialQueue queue_{"dev.orlo.vellora.compressor-pasting"};
};

}  // namespace vellora
