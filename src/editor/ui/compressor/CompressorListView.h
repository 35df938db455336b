#pragma once

#include <optional>
#include <vector>

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QListView>

#include "editor/ui/compressor/CompressorRow.h"
#include "kit/Paint.h"

namespace vellora {

class CompressorListModel;
class CompressionRun;

/// The list of pictures: rows with buttons in them, thumbnails made for rows that are seen. Main thread.
class CompressorListView final : public QListView {
  Q_OBJECT

 public:
  CompressorListView(CompressionRun& run, CompressorListModel& model, QWidget* parent = nullptr);

  std::vector<std::uint64_t> selectedIds() const;
  std::optional<std::uint64_t> currentId() const;
  /// Where to click for an action; empty when the row does not offer it.
  QRect actionRect(const QModelIndex& index, RowAction action) const;

 signals:
  void actionRequested(RowAction action, std::uint64_t id);
  /// Space, or a double click on a row.
  void comparisonRequested();
  void menuRequested(QPoint globalPosition);
  /// The row that has the focus or what is selected is another.
  void selectionMoved();

 protected:
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  std::optional<RowAction> actionAt(const QModelIndex& index, QPoint position) const;
  void touch(QPoint position, bool isPressed);
  std::pair<int, int> visibleRows() const;
  void requestThumbnails();
  void turnSigns();

  CompressionRun& run_;
  CompressorListModel& model_;
  CompressorRowDelegate* delegate_;  // owned by this as a child
  QBasicTimer thumbnailRest_;
  QBasicTimer turning_;
  QElapsedTimer turningSince_;
  KeyboardFocus focus_;
};

}  // namespace vellora
