#include "editor/ui/EditorWindow.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "editor/Palette.h"
#include "editor/canvas/CanvasModel.h"
#include "editor/painting/TextLayout.h"
#include "editor/rendering/DocumentRenderer.h"
#include "editor/ui/DocumentDelivery.h"
#include "editor/ui/EditorBar.h"
#include "editor/ui/EditorCommands.h"
#include "editor/ui/EditorMenus.h"
#include "editor/ui/ShortcutsSheet.h"
#include "editor/ui/SidePanel.h"
#include "editor/ui/StatusLine.h"
#include "editor/ui/StyleSection.h"
#include "editor/ui/WidthSection.h"
#include "editor/ui/backdrop/BackdropPanel.h"
#include "editor/ui/canvas/CanvasView.h"
#include "kit/Button.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"
#include "media/codecs/ImageConversion.h"

namespace vellora {
namespace {

constexpr double mostOfScreen = 0.92;
constexpr QSize leastSize{520, 340};
constexpr QSize usefulSize{940, 560};
constexpr int canvasMargin = tokens::space6;  // around the picture in a window that opens
constexpr int ghostSide = 160;

using Command = EditorCommand;

int rounded(double value) {
  return static_cast<int>(std::lround(std::clamp(value, -1e6, 1e6)));
}

}  // namespace

struct EditorWindow::Private {
  Private(EditorWindow& owner, EditorContent content, const EditorServices& given, EditorActions asked)
      : window(owner),
        services(given),
        actions(std::move(asked)),
        capturedAt(content.capturedAt),
        text(makeTextMeasurer()),
        model(std::move(content.document), {*text, given.toolStyles, given.editorSettings}),
        commands(owner),
        style{model, given.customColors, commands,
              [this](std::function<void(ColorComponents)> picked) { pickColor(std::move(picked)); },
              [this] { bar->refresh(); }} {}

  void build();
  void connectCommands();
  void connectStyleCommands();
  void connectArrangeCommands();
  void changed(CanvasChange change);
  void refresh();
  void refreshCommands();
  void refreshStatus();
  void paste();
  void copy();
  void pickColor(std::function<void(ColorComponents)> picked);
  void toggleSketch();
  void toggleFill();
  void nextBlurStyle();
  void toggleBackdrop();
  void focusNextPart();
  EditorActions::PieceReceiver receiver(std::optional<Point> center);
  Point middle() const;
  QRect shownDocument() const;

  EditorWindow& window;
  EditorServices services;
  EditorActions actions;
  const Date capturedAt;
  std::unique_ptr<TextMeasurer> text;
  CanvasModel model;
  EditorCommands commands;
  StyleContext style;
  EditorBar* bar = nullptr;  // the widgets are owned by Qt
  CanvasView* canvas = nullptr;
  SidePanel* side = nullptr;
  BackdropPanel* backdrop = nullptr;  // made when it is first opened
  StatusLine* status = nullptr;
  DocumentDelivery* delivery = nullptr;
  bool refreshPending = false;
  bool styleChanged = false;
  bool isClosed = false;
  bool becamePin = false;
  Lifetime lifetime;
};

EditorWindow::EditorWindow(EditorContent content, const EditorServices& services, EditorActions actions)
    : QWidget(nullptr, Qt::Window) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(content.title);
  setMinimumSize(leastSize);
  followTheme(*this);
  d_ = std::make_unique<Private>(*this, std::move(content), services, std::move(actions));
  d_->build();
}

EditorWindow::~EditorWindow() {
  // The widgets show the model, which goes with d_.
  for (QWidget* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) delete child;
  delete d_->delivery;
}

void EditorWindow::Private::build() {
  canvas = new CanvasView(model, &window);
  bar = new EditorBar(style, &window);
  side = new SidePanel(&window);
  status = new StatusLine(&window);
  delivery = new DocumentDelivery(window, model, services, actions, capturedAt, *status);
  auto* column = new QVBoxLayout(&window);
  column->setContentsMargins({});
  column->setSpacing(0);
  column->addWidget(bar);
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  row->addWidget(canvas, 1);
  row->addWidget(side);
  column->addLayout(row, 1);
  column->addWidget(status);

  connect(canvas, &CanvasView::modelChanged, &window, [this](CanvasChange change) { changed(change); });
  connect(canvas, &CanvasView::zoomChanged, &window, [this](double zoom) { status->setZoom(zoom); });
  connect(canvas, &CanvasView::hintChanged, status, &StatusLine::setHint);
  connect(canvas, &CanvasView::contextMenuRequested, &window,
          [this](QPoint at) { makeContextMenu(commands, model, &window)->popup(at); });
  connect(canvas, &CanvasView::filesDropped, &window, [this](const QList<QUrl>& files, Point at) {
    if (delivery->isDragging() || !actions.loadPicture) return;
    for (const QUrl& file : files) {
      if (file.isLocalFile()) actions.loadPicture(file.toLocalFile(), receiver(at));
    }
  });
  connect(canvas, &CanvasView::imageDropped, &window, [this](const QImage& image, Point at) {
    if (delivery->isDragging()) return;
    if (const Bitmap bitmap = toBitmap(image); !bitmap.isNull()) model.addPiece(makePiece(bitmap, 1), at);
  });
  connect(bar, &EditorBar::toolLocked, &window, [this](Tool tool) { model.setTool(tool, true); });
  connect(bar, &EditorBar::dragPressed, delivery, &DocumentDelivery::prepareDrag);
  connect(bar, &EditorBar::dragStarted, &window, [this] {
    const QRect shown = shownDocument();
    if (shown.isEmpty()) return;
    const QPixmap ghost = canvas->grab(shown);
    const double ratio = ghost.devicePixelRatio();
    delivery->drag(*bar->dragButton(),
                   ghost.scaled(QSize(ghostSide, ghostSide) * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation));
  });
  connect(delivery, &DocumentDelivery::copyStateChanged, &window,
          [this] { bar->setCopyOutdated(delivery->isCopyOutdated()); });
  connect(status, &StatusLine::zoomMenuRequested, &window,
          [this] { openAt(makeZoomMenu(commands, *canvas, &window), *status->zoomButton()); });
  connectCommands();
  connectStyleCommands();
  connectArrangeCommands();
  status->setZoom(canvas->zoom());
  styleChanged = true;
  refresh();
  canvas->setFocus();
}

void EditorWindow::Private::connectCommands() {
  for (const Tool tool : allTools) {
    commands[commandOf(tool)].setCheckable(true);
    commands.on(commandOf(tool), [this, tool] {
      model.endCrop();
      model.setTool(tool);
      canvas->setFocus();
      // The action toggles itself also where nothing changes.
      bar->refresh();
    });
  }
  commands[Command::Crop].setCheckable(true);
  commands.on(Command::Crop, [this] {
    if (model.isCropping()) {
      model.endCrop();
    } else {
      model.beginCrop();
    }
    styleChanged = true;
    refresh();
  });
  commands.on(Command::ResetCrop, [this] { model.resetCrop(); });
  commands.on(Command::Undo, [this] { model.undo(); });
  commands.on(Command::Redo, [this] { model.redo(); });
  commands.on(Command::Cut, [this] {
    delivery->copySelection();
    model.deleteSelection();
  });
  commands.on(Command::Copy, [this] { copy(); });
  commands.on(Command::Paste, [this] { paste(); });
  commands.on(Command::Duplicate, [this] { model.duplicateSelection(); });
  commands.on(Command::Delete, [this] { model.deleteSelection(); });
  commands.on(Command::SelectAll, [this] { model.selectAll(); });
  commands.on(Command::CopyPicture, [this] { delivery->copy(); });
  commands.on(Command::Save, [this] { delivery->save(); });
  commands.on(Command::SaveAs, [this] { delivery->saveAs(); });
  commands.on(Command::Print, [this] { delivery->print(); });
  commands.on(Command::Compress, [this] {
    model.endTextEdit();
    actions.compress(model.document(), capturedAt);
  });
  commands.on(Command::Pin, [this] {
    model.endTextEdit();
    becamePin = true;
    actions.pin(model.document(), capturedAt);
    window.close();
  });
  commands.on(Command::Close, [this] { window.close(); });
  commands.on(Command::AddCapture, [this] { actions.captureMore(receiver(std::nullopt)); });
  commands.on(Command::AddPicture, [this] { actions.choosePicture(receiver(std::nullopt)); });
  commands[Command::Backdrop].setCheckable(true);
  commands.on(Command::Backdrop, [this] { toggleBackdrop(); });
  commands.on(Command::ZoomIn, [this] { canvas->zoomIn(); });
  commands.on(Command::ZoomOut, [this] { canvas->zoomOut(); });
  commands.on(Command::ZoomToFit, [this] { canvas->zoomToFit(); });
  commands.on(Command::ActualSize, [this] { canvas->actualSize(); });
  commands.on(Command::NextPart, [this] { focusNextPart(); });
  commands.on(Command::More, [this] { openAt(makeMoreMenu(commands, &window), *bar->moreButton()); });
  commands.on(Command::Shortcuts, [this] { ShortcutsSheet::toggle(commands, &window); });

  const auto offer = [this](Command command, bool offered) {
    commands[command].setVisible(offered);
    commands[command].setEnabled(offered);
  };
  offer(Command::CopyPicture, static_cast<bool>(actions.output));
  offer(Command::Save, static_cast<bool>(actions.output));
  offer(Command::Compress, static_cast<bool>(actions.compress));
  offer(Command::Pin, static_cast<bool>(actions.pin));
  offer(Command::AddCapture, static_cast<bool>(actions.captureMore));
  offer(Command::AddPicture, static_cast<bool>(actions.choosePicture));
}

void EditorWindow::Private::connectStyleCommands() {
  const auto step = [this](int direction) {
    if (const auto width = model.style().lineWidth) model.setLineWidth(nextLineWidth(*width, direction));
  };
  commands.on(Command::Thinner, [step] { step(-1); });
  commands.on(Command::Thicker, [step] { step(1); });
  commands.on(Command::ToggleSketch, [this] { toggleSketch(); });
  commands.on(Command::ToggleFill, [this] { toggleFill(); });
  commands.on(Command::NextBlurStyle, [this] { nextBlurStyle(); });
  commands.on(Command::PickColor, [this] { pickColor([this](ColorComponents color) { model.setColor(color); }); });
  for (std::size_t i = 0; i < Palette::swatches.size(); ++i) {
    auto* key = new QShortcut(QKeySequence(Qt::Key_1 + static_cast<int>(i)), &window);
    connect(key, &QShortcut::activated, &window, [this, i] { model.setColor(Palette::swatches[i]); });
  }
}

void EditorWindow::Private::connectArrangeCommands() {
  commands.on(Command::BringForward, [this] { model.bringForward(); });
  commands.on(Command::SendBackward, [this] { model.sendBackward(); });
  commands.on(Command::BringToFront, [this] { model.bringToFront(); });
  commands.on(Command::SendToBack, [this] { model.sendToBack(); });
  const auto align = [this](Command command, Alignment alignment) {
    commands.on(command, [this, alignment] { model.align(alignment); });
  };
  align(Command::AlignLeft, Alignment::Left);
  align(Command::AlignCenter, Alignment::CenterX);
  align(Command::AlignRight, Alignment::Right);
  align(Command::AlignTop, Alignment::Top);
  align(Command::AlignMiddle, Alignment::CenterY);
  align(Command::AlignBottom, Alignment::Bottom);
  commands.on(Command::DistributeHorizontally, [this] { model.distribute(Distribution::Horizontal); });
  commands.on(Command::DistributeVertically, [this] { model.distribute(Distribution::Vertical); });
}

void EditorWindow::Private::changed(CanvasChange change) {
  if (change == CanvasChange::Document && actions.documentChanged) actions.documentChanged(model.document());
  if (change != CanvasChange::Document && change != CanvasChange::Text) styleChanged = true;
  if (refreshPending) return;
  // Once for all that a single step changes.
  refreshPending = true;
  QMetaObject::invokeMethod(
      &window, [this] { refresh(); }, Qt::QueuedConnection);
}

void EditorWindow::Private::refresh() {
  refreshPending = false;
  refreshCommands();
  refreshStatus();
  bar->setCopyOutdated(delivery->isCopyOutdated());
  if (side->isOpen()) backdrop->setSettings(model.document().backdrop);
  if (commands[Command::Crop].isChecked() != model.isCropping()) styleChanged = true;
  if (std::exchange(styleChanged, false)) bar->refresh();
}

void EditorWindow::Private::refreshCommands() {
  const std::size_t selected = model.selection().size();
  const auto enable = [this](std::initializer_list<Command> list, bool enabled) {
    for (const Command command : list) commands[command].setEnabled(enabled);
  };
  enable({Command::Undo}, model.canUndo());
  enable({Command::Redo}, model.canRedo());
  enable({Command::Cut, Command::Duplicate, Command::BringForward, Command::SendBackward, Command::BringToFront,
          Command::SendToBack, Command::AlignLeft, Command::AlignCenter, Command::AlignRight, Command::AlignTop,
          Command::AlignMiddle, Command::AlignBottom},
         selected > 0);
  // The outermost two stay where they are.
  enable({Command::DistributeHorizontally, Command::DistributeVertically}, selected > 2);
  enable({Command::Delete}, model.canDelete());
  const auto& pieces = model.document().pieces;
  enable({Command::ResetCrop}, std::ranges::any_of(pieces, &CapturePiece::isCropped));
}

void EditorWindow::Private::refreshStatus() {
  const ImageDocument& document = model.document();
  const PixelSize size = renderedSize(document, document.outputScale());
  //% "%1 × %2 px"
  status->setSizeText(qtTrId("editor.size").arg(size.width).arg(size.height));
  std::optional<Rect> around;
  for (const AnnotationId id : model.selection()) {
    const auto outline = model.outlineOf(id);
    if (outline) around = around ? around->united(*outline) : *outline;
  }
  if (!around) {
    if (const auto piece = model.selectedPiece()) {
      const auto at = std::ranges::find(document.pieces, *piece, &CapturePiece::id);
      if (at != document.pieces.end()) around = at->frame();
    }
  }
  QString place;
  if (around) {
    //% "%1 × %2 at %3, %4"
    place = qtTrId("editor.selectionSize")
                .arg(rounded(around->size.width))
                .arg(rounded(around->size.height))
                .arg(rounded(around->minX()))
                .arg(rounded(around->minY()));
  }
  status->setSelection(place);
}

EditorActions::PieceReceiver EditorWindow::Private::receiver(std::optional<Point> center) {
  return lifetime.guard([this, center](std::optional<CapturePiece> piece) {
    if (!piece) return;
    if (center) {
      model.addPiece(std::move(*piece), *center);
    } else {
      model.addPiece(std::move(*piece));
    }
  });
}

Point EditorWindow::Private::middle() const {
  return canvas->documentPoint(QRectF(canvas->rect()).center());
}

/// The part of the canvas that shows the content.
QRect EditorWindow::Private::shownDocument() const {
  const Rect content = model.document().contentRect();
  const QRectF whole(canvas->viewPoint(content.origin), canvas->viewPoint({content.maxX(), content.maxY()}));
  return whole.toAlignedRect() & canvas->rect();
}

void EditorWindow::Private::copy() {
  if (model.selection().empty()) {
    delivery->copy();
  } else {
    delivery->copySelection();
  }
}

void EditorWindow::Private::paste() {
  const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
  if (mime == nullptr) return;
  if (mime->hasFormat(annotationsMimeType)) {
    const QPoint pointer = canvas->mapFromGlobal(QCursor::pos());
    std::optional<Point> place;
    if (canvas->rect().contains(pointer)) place = canvas->documentPoint(pointer);
    if (model.paste({mime->data(annotationsMimeType)}, place)) return;
  }
  if (actions.pastePicture && (mime->hasImage() || mime->hasUrls())) actions.pastePicture(receiver(middle()));
}

void EditorWindow::Private::pickColor(std::function<void(ColorComponents)> picked) {
  while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  canvas->startEyedropper(std::move(picked));
}

void EditorWindow::Private::toggleSketch() {
  const StyleState state = model.style();
  if (state.kinds.contains(Annotation::Kind::Text)) {
    model.setTextHandwritten(!state.textHandwritten.value_or(false));
  } else {
    model.setSketch(!state.sketch.value_or(false));
  }
}

void EditorWindow::Private::toggleFill() {
  const StyleState state = model.style();
  if (state.kinds.contains(Annotation::Kind::Text)) {
    model.setTextBackground(!state.textBackground.value_or(false));
  } else {
    model.setShapeFill(!state.shapeFill.value_or(false));
  }
}

void EditorWindow::Private::nextBlurStyle() {
  const StyleState state = model.style();
  if (!state.kinds.contains(Annotation::Kind::Blur)) return;
  const int next = state.blurStyle ? (static_cast<int>(*state.blurStyle) + 1) % 3 : 0;
  model.setBlurStyle(static_cast<BlurStyle>(next));
}

void EditorWindow::Private::toggleBackdrop() {
  if (backdrop == nullptr) {
    // Most pictures never need it.
    backdrop = new BackdropPanel(services.backdropStyles, side);
    backdrop->setColorSampler([this](std::function<void(const QColor&)> picked) {
      pickColor([picked = std::move(picked)](const ColorComponents& color) { picked(toQColor(color)); });
    });
    connect(backdrop, &BackdropPanel::changed, &window, [this](const BackdropSettings& settings, const QString& key) {
      model.setBackdrop(settings, key.toStdString());
    });
    connect(backdrop, &BackdropPanel::editingFinished, &window, [this] { model.endCoalescing(); });
    side->setContent(backdrop);
  }
  backdrop->setSettings(model.document().backdrop);
  side->setOpen(!side->isOpen());
  commands[Command::Backdrop].setChecked(side->isOpen());
  if (!side->isOpen()) canvas->setFocus();
}

void EditorWindow::Private::focusNextPart() {
  const QWidget* focus = window.focusWidget();
  const auto within = [focus](const QWidget* part) {
    return focus != nullptr && (focus == part || part->isAncestorOf(focus));
  };
  if (within(canvas)) return bar->takeFocus();
  if (within(bar) && side->isOpen() && side->content() != nullptr) {
    side->content()->setFocus(Qt::TabFocusReason);
    if (!within(side)) side->content()->nextInFocusChain()->setFocus(Qt::TabFocusReason);
    return;
  }
  if (within(bar) || within(side)) return status->zoomButton()->setFocus(Qt::TabFocusReason);
  canvas->setFocus(Qt::TabFocusReason);
}

void EditorWindow::present(QScreen* screen, const QPoint* center) {
  QScreen* const target = screen != nullptr ? screen : QGuiApplication::primaryScreen();
  if (target == nullptr) return show();
  setScreen(target);
  const QRect area = target->availableGeometry();
  const QSize most = QSizeF(area.width() * mostOfScreen, area.height() * mostOfScreen).toSize();
  const int bars = tokens::barHeight + d_->status->height();
  const Rect content = d_->model.document().contentRect();
  const QSize picture(rounded(content.size.width), rounded(content.size.height));
  QSize wanted = picture + QSize(2 * canvasMargin, 2 * canvasMargin + bars);
  wanted = wanted.expandedTo(usefulSize).boundedTo(most).expandedTo(minimumSize());
  QRect place(QPoint(0, 0), wanted);
  place.moveCenter(center != nullptr ? *center : area.center());
  if (center != nullptr) place.translate(0, -(tokens::barHeight - d_->status->height()) / 2);
  place.moveLeft(std::clamp(place.left(), area.left(), std::max(area.left(), area.right() + 1 - place.width())));
  place.moveTop(std::clamp(place.top(), area.top(), std::max(area.top(), area.bottom() + 1 - place.height())));
  setGeometry(place);
  d_->canvas->zoomToFit();
  show();
  raise();
  activateWindow();
}

const ImageDocument& EditorWindow::document() const {
  return d_->model.document();
}
Date EditorWindow::capturedAt() const {
  return d_->capturedAt;
}
bool EditorWindow::becamePin() const {
  return d_->becamePin;
}
void EditorWindow::addPiece(CapturePiece piece) {
  d_->model.addPiece(std::move(piece));
}
CanvasModel& EditorWindow::model() {
  return d_->model;
}
CanvasView& EditorWindow::canvas() {
  return *d_->canvas;
}
EditorCommands& EditorWindow::commands() {
  return d_->commands;
}
DocumentDelivery& EditorWindow::delivery() {
  return *d_->delivery;
}

void EditorWindow::keyPressEvent(QKeyEvent* event) {
  // From a button of the bars back to the work; never out of the window.
  if (event->key() == Qt::Key_Escape && focusWidget() != d_->canvas) {
    d_->canvas->setFocus();
    return;
  }
  QWidget::keyPressEvent(event);
}

void EditorWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  if (std::exchange(d_->isClosed, true)) return;
  d_->canvas->cancelEyedropper();
  d_->model.cancelGesture();
  d_->model.endTextEdit();
  emit closed();
}

}  // namespace vellora
