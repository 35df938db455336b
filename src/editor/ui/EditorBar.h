#pragma once

#include <vector>

#include <QWidget>

#include "editor/Tool.h"
#include "editor/ui/EditorCommands.h"

namespace vellora {

class IconButton;
class StyleStrip;
struct StyleContext;

/// The bar on top of an editor: tools, undo and redo to the left, the style in the middle, what becomes of the picture
/// to the right. Where there is little room the style folds first, then what is in the menu anyway, then the tools used
/// least, into a menu of their own; nothing is ever cut off.
class EditorBar final : public QWidget {
  Q_OBJECT

 public:
  EditorBar(StyleContext& context, QWidget* parent);

  /// Shows the tool, whether it is locked, and the style of the moment.
  void refresh();
  /// Shows that the clipboard holds an older state of the picture.
  void setCopyOutdated(bool outdated);
  bool isCopyOutdated() const { return copyOutdated_; }

  /// Gives the keyboard focus to the tool in use.
  void takeFocus();
  IconButton* moreButton() const { return more_; }
  IconButton* dragButton() const { return drag_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// A tool was double-clicked: it stays after drawing.
  void toolLocked(vellora::Tool tool);
  /// The handle for dragging the picture out was pressed.
  void dragPressed();
  /// … and moved far enough for a drag.
  void dragStarted();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct ToolButton {
    EditorCommand command;
    Tool tool;
    IconButton* button;
  };
  void layOut();
  void openOverflow();
  /// The pointer on the handle from which the picture is dragged out. True when it is not to go further.
  bool takesDrag(const QMouseEvent& mouse);

  StyleContext& context_;
  std::vector<ToolButton> tools_;  // the widgets are owned by Qt
  IconButton* crop_;
  IconButton* overflow_;
  IconButton* undo_;
  IconButton* redo_;
  StyleStrip* style_;
  IconButton* backdrop_;
  IconButton* drag_;
  IconButton* pin_;
  IconButton* save_;
  IconButton* copy_;
  IconButton* more_;
  std::size_t shownTools_ = 0;
  std::vector<int> dividers_;  // where the lines between the groups stand
  bool copyOutdated_ = false;
  QPoint dragFrom_;
  bool dragging_ = false;
};

}  // namespace vellora
