#include "editor/ui/compressor/CompressorListView.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>

#include "editor/compressor/CompressionRun.h"
#include "editor/ui/compressor/CompressorListModel.h"
#include "kit/ScrollBars.h"
#include "kit/Theme.h"

namespace vellora {
namespace {

constexpr int thumbnailRest = 60;  // milliseconds without scrolling until thumbnails are asked for
constexpr int turnInterval = 33;
constexpr double secondsPerTurn = 0.9;

QString titleOf(RowAction action) {
  switch (action) {
    case RowAction::Retry:
      return qtTrId("compress.command.retry");
    case RowAction::Reveal:
      return qtTrId("compress.command.reveal");
    case RowAction::Remove:
      return qtTrId("compress.command.remove");
  }
  return {};
}

}  // namespace

CompressorListView::CompressorListView(CompressionRun& run, CompressorListModel& model, QWidget* parent)
    : QListView(parent), run_(run), model_(model), delegate_(new CompressorRowDelegate(model, this)) {
  setModel(&model);
  setItemDelegate(delegate_);
  setUniformItemSizes(true);
  setSelectionMode(ExtendedSelection);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFrameShape(QFrame::NoFrame);
  setMouseTracking(true);
  setResizeMode(Adjust);
  verticalScrollBar()->setSingleStep(CompressorRowDelegate::rowHeight / 2);
  //% "Images"
  setAccessibleName(qtTrId("compress.list"));
  styleScrollBars(*this);
  repaintOnThemeChange(*viewport());
}

std::vector<std::uint64_t> CompressorListView::selectedIds() const {
  std::vector<std::uint64_t> ids;
  for (const QModelIndex& index : selectionModel()->selectedIndexes()) ids.push_back(model_.id(index));
  return ids;
}

std::optional<std::uint64_t> CompressorListView::currentId() const {
  const QModelIndex index = currentIndex();
  return index.isValid() ? std::optional(model_.id(index)) : std::nullopt;
}

QRect CompressorListView::actionRect(const QModelIndex& index, RowAction action) const {
  const CompressionItem* item = model_.item(index);
  if (item == nullptr) return {};
  const RowLayout layout(visualRect(index), layoutDirection());
  if (action == RowAction::Remove) return item->state == CompressionState::running ? QRect() : layout.remove;
  return mainActionOf(*item) == action ? layout.mainAction : QRect();
}

std::optional<RowAction> CompressorListView::actionAt(const QModelIndex& index, QPoint position) const {
  for (const RowAction action : {RowAction::Retry, RowAction::Reveal, RowAction::Remove}) {
    if (actionRect(index, action).contains(position)) return action;
  }
  return std::nullopt;
}

void CompressorListView::touch(QPoint position, bool isPressed) {
  const QModelIndex index = indexAt(position);
  const auto action = actionAt(index, position);
  const auto& before = delegate_->touch();
  if (before.row == index && before.action == action && before.isPressed == isPressed) return;
  const QModelIndex left = before.row;
  delegate_->setTouch({index, action, isPressed});
  if (left.isValid()) update(left);
  if (index.isValid()) update(index);
}

bool CompressorListView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Leave) touch({-1, -1}, false);
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    if (const auto action = actionAt(index, help->pos())) {
      QToolTip::showText(help->globalPos(), titleOf(*action), viewport(), actionRect(index, *action));
      return true;
    }
  }
  return QListView::viewportEvent(event);
}

void CompressorListView::mousePressEvent(QMouseEvent* event) {
  const QPoint position = event->position().toPoint();
  touch(position, event->button() == Qt::LeftButton);
  if (event->button() == Qt::LeftButton && delegate_->touch().action) return;
  QListView::mousePressEvent(event);
}

void CompressorListView::mouseMoveEvent(QMouseEvent* event) {
  const auto& now = delegate_->touch();
  // A button that is held down stays the one, wherever the pointer goes.
  if (now.isPressed && now.action) return;
  touch(event->position().toPoint(), false);
  QListView::mouseMoveEvent(event);
}

void CompressorListView::mouseReleaseEvent(QMouseEvent* event) {
  const auto pressed = delegate_->touch();
  touch(event->position().toPoint(), false);
  if (event->button() == Qt::LeftButton && pressed.isPressed && pressed.action) {
    const auto& now = delegate_->touch();
    if (now.row == pressed.row && now.action == pressed.action)
      emit actionRequested(*pressed.action, model_.id(pressed.row));
    return;
  }
  QListView::mouseReleaseEvent(event);
}

void CompressorListView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint position = event->position().toPoint();
  const QModelIndex index = indexAt(position);
  if (event->button() != Qt::LeftButton || actionAt(index, position)) return mousePressEvent(event);
  if (index.isValid()) emit comparisonRequested();
}

void CompressorListView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
    emit comparisonRequested();
    return;
  }
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Escape) {
    event->ignore();  // the window's
    return;
  }
  QListView::keyPressEvent(event);
}

void CompressorListView::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Keyboard && currentIndex().isValid()) {
    emit menuRequested(viewport()->mapToGlobal(visualRect(currentIndex()).center()));
  } else {
    emit menuRequested(event->globalPos());
  }
}

void CompressorListView::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  delegate_->setKeyboardFocus(focus_.visible());
  QListView::focusInEvent(event);
  if (!currentIndex().isValid() && model_.rowCount() > 0 && focus_.visible()) setCurrentIndex(model_.index(0));
  viewport()->update();
}

void CompressorListView::focusOutEvent(QFocusEvent* event) {
  if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) focus_.focusOut();
  QListView::focusOutEvent(event);
}

void CompressorListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QListView::selectionChanged(selected, deselected);
  emit selectionMoved();
}

void CompressorListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QListView::currentChanged(current, previous);
  emit selectionMoved();
}

std::pair<int, int> CompressorListView::visibleRows() const {
  const int height = CompressorRowDelegate::rowHeight;
  const int offset = verticalOffset();
  return {offset / height, std::min((offset + viewport()->height()) / height, model_.rowCount() - 1)};
}

void CompressorListView::scrollContentsBy(int dx, int dy) {
  QListView::scrollContentsBy(dx, dy);
  thumbnailRest_.start(thumbnailRest, this);
  if (!delegate_->touch().isPressed) touch(viewport()->mapFromGlobal(QCursor::pos()), false);
}

void CompressorListView::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (!thumbnailRest_.isActive()) thumbnailRest_.start(thumbnailRest, this);
  if (run_.isRunning() && !turning_.isActive()) {
    turningSince_.start();
    turning_.start(turnInterval, this);
  }
}

void CompressorListView::timerEvent(QTimerEvent* event) {
  if (event->timerId() == thumbnailRest_.timerId()) {
    thumbnailRest_.stop();
    requestThumbnails();
  } else if (event->timerId() == turning_.timerId()) {
    turnSigns();
  } else {
    QListView::timerEvent(event);
  }
}

void CompressorListView::requestThumbnails() {
  const auto [first, last] = visibleRows();
  for (int row = first; row <= last; ++row) {
    const CompressionItem* item = model_.item(model_.index(row));
    if (item != nullptr && item->thumbnail.isNull()) run_.requestThumbnail(item->id);
  }
}

void CompressorListView::turnSigns() {
  if (!run_.isRunning()) return turning_.stop();
  const double turns = static_cast<double>(turningSince_.elapsed()) / (1000 * secondsPerTurn);
  delegate_->setTurn(Theme::shared().reducedMotion() ? 0 : turns - std::floor(turns));
  const auto [first, last] = visibleRows();
  for (int row = first; row <= last; ++row) {
    const QModelIndex index = model_.index(row);
    const CompressionItem* item = model_.item(index);
    if (item == nullptr || item->state != CompressionState::running) continue;
    viewport()->update(RowLayout(visualRect(index), layoutDirection()).sign.adjusted(-1, -1, 1, 1));
  }
}

}  // namespace vellora
