#pragma once

#include <optional>

#include <QCache>
#include <QPixmap>
#include <QStyledItemDelegate>

#include "editor/compressor/CompressionItem.h"

namespace vellora {

class CompressorListModel;

/// What can be done with a row by a click into it.
enum class RowAction { Retry, Reveal, Remove };

/// Where the parts of a row are, in the view's coordinates.
struct RowLayout {
  RowLayout(const QRect& row, Qt::LayoutDirection direction);

  QRect ground;
  QRect thumbnail;
  QRect upper;       ///< the line of the name and the sizes
  QRect lower;       ///< the line of what is known about it and of its state
  QRect sign;        ///< of the state, at the end of its line
  QRect mainAction;  ///< Retry or Reveal, whichever makes sense
  QRect remove;
};

/// Retry for what failed, Reveal for what has a result; nothing else.
std::optional<RowAction> mainActionOf(const CompressionItem& item);

/// Draws the rows of the compressor's list. The view tells what the pointer does.
class CompressorRowDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  static constexpr int rowHeight = 60;

  CompressorRowDelegate(const CompressorListModel& model, QObject* parent);

  /// The action under the pointer, drawn touched in its row.
  struct Touch {
    QPersistentModelIndex row{};
    std::optional<RowAction> action{};
    bool isPressed = false;
  };
  void setTouch(const Touch& touch) { touch_ = touch; }
  const Touch& touch() const { return touch_; }
  void setKeyboardFocus(bool visible) { focusVisible_ = visible; }
  /// Where the turning sign of running rows stands, from 0 to 1.
  void setTurn(double turn) { turn_ = turn; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  QPixmap thumbnailOf(const CompressionItem& item, double ratio) const;
  void paintThumbnail(QPainter& painter, const QRect& rect, const CompressionItem& item) const;
  void paintSign(QPainter& painter, const QRect& rect, const CompressionItem& item) const;
  void paintAction(QPainter& painter, const QRect& rect, RowAction action, bool isHere) const;
  void paintTexts(QPainter& painter, const RowLayout& layout, const CompressionItem& item,
                  Qt::LayoutDirection direction) const;

  const CompressorListModel& model_;
  Touch touch_;
  bool focusVisible_ = false;
  double turn_ = 0;
  mutable QCache<std::uint64_t, QPixmap> thumbnails_;
};

}  // namespace vellora
