#include "editor/ui/compressor/CompressorWindow.h"

#include <algorithm>

#include <QAction>
#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QUrl>
#include <QVBoxLayout>

#include "editor/compressor/QualityUse.h"
#include "editor/ui/compressor/ComparisonFeed.h"
#include "editor/ui/compressor/ComparisonView.h"
#include "editor/ui/compressor/CompressorDropZone.h"
#include "editor/ui/compressor/CompressorFooter.h"
#include "editor/ui/compressor/CompressorListModel.h"
#include "editor/ui/compressor/CompressorListView.h"
#include "editor/ui/compressor/CompressorOptionsPanel.h"
#include "editor/ui/compressor/CompressorTexts.h"
#include "editor/ui/compressor/FilePaths.h"
#include "editor/ui/compressor/RasterImages.h"
#include "kit/Button.h"
#include "kit/Icons.h"
#include "kit/Paint.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Toast.h"
#include "kit/Tokens.h"
#include "media/codecs/ImageConversion.h"

namespace vellora {
namespace {

constexpr QSize usefulSize{980, 660};
constexpr QSize leastSize{720, 460};
constexpr int refreshInterval = 40;  // milliseconds

std::vector<std::filesystem::path> localFiles(const QMimeData& data) {
  std::vector<std::filesystem::path> files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) files.push_back(pathFrom(url.toLocalFile()));
  }
  return files;
}

bool isWelcome(const QMimeData& data) {
  return data.hasUrls() || data.hasImage();
}

/// A line between the list and the comparison that can be dragged.
class QuietSplitter final : public QSplitter {
 public:
  using QSplitter::QSplitter;

 protected:
  class Handle final : public QSplitterHandle {
   public:
    using QSplitterHandle::QSplitterHandle;

   protected:
    void paintEvent(QPaintEvent*) override {
      QPainter painter(this);
      drawHorizontalLine(painter, 0, width(), height() / 2.0, Theme::shared().palette().line);
    }
  };
  QSplitterHandle* createHandle() override { return new Handle(orientation(), this); }
};

}  // namespace

CompressorWindow::CompressorWindow(CompressionRun& run, const CompressorWindowController::Services& services)
    : QWidget(nullptr, Qt::Window),
      run_(run),
      services_(services),
      settings_(services_.settings.preferences()),
      model_(std::make_unique<CompressorListModel>(run)) {
  //% "Compress Images"
  setWindowTitle(qtTrId("compress.title"));
  setWindowIcon(icon(QStringLiteral("vellora")));
  setAttribute(Qt::WA_QuitOnClose, false);
  setAcceptDrops(true);
  setMinimumSize(leastSize);
  resize(usefulSize);
  followTheme(*this);
  makeCommands();

  pages_ = new QStackedWidget;
  dropZone_ = new CompressorDropZone;
  splitter_ = new QuietSplitter(Qt::Vertical);
  list_ = new CompressorListView(run_, *model_);
  comparison_ = new ComparisonView;
  comparison_->hide();
  splitter_->addWidget(list_);
  splitter_->addWidget(comparison_);
  splitter_->setChildrenCollapsible(false);
  splitter_->setHandleWidth(tokens::space2 - 1);
  splitter_->setSizes({200, 320});
  list_->setMinimumHeight(2 * CompressorRowDelegate::rowHeight);
  pages_->addWidget(dropZone_);
  pages_->addWidget(splitter_);
  options_ = new CompressorOptionsPanel(settings_);
  footer_ = new CompressorFooter;

  auto* left = new QVBoxLayout;
  left->setSpacing(0);
  left->addWidget(makeBar());
  left->addWidget(pages_, 1);
  auto* middle = new QHBoxLayout;
  middle->setSpacing(0);
  middle->addLayout(left, 1);
  middle->addWidget(options_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(middle, 1);
  column->addWidget(footer_);
  highlight_ = new DropHighlight(this);

  feed_ = std::make_unique<ComparisonFeed>(services_.runLoop, run_, *comparison_);
  connectParts();
  refresh();
}

CompressorWindow::~CompressorWindow() {
  // The widgets show the model, which goes first.
  delete list_;
}

void CompressorWindow::makeCommands() {
  const auto command = [this](const QString& title, const char* iconName, const QList<QKeySequence>& keys, auto run) {
    auto* action = new QAction(icon(QLatin1StringView(iconName)), title, this);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, run);
    addAction(action);
    return action;
  };
  //% "Add Images…"
  commands_.addImages =
      command(qtTrId("compress.command.addImages"), "load.file", {QKeySequence::Open}, [this] { chooseImages(); });
  //% "Add Folder…"
  commands_.addFolder = command(qtTrId("compress.command.addFolder"), "folder",
                                {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O)}, [this] { chooseFolder(); });
  //% "Paste"
  commands_.paste = command(qtTrId("compress.command.paste"), "clipboard",
                            {QKeySequence::Paste, QKeySequence(Qt::SHIFT | Qt::Key_Insert)}, [this] { paste(); });
  //% "Compare Before and After"
  commands_.compare = command(qtTrId("compress.command.compare"), "compare", {},
                              [this] { setComparisonShown(commands_.compare->isChecked()); });
  commands_.compare->setCheckable(true);
  //% "Try Again"
  commands_.retry = command(qtTrId("compress.command.retry"), "reset", {QKeySequence(Qt::CTRL | Qt::Key_R)},
                            [this] { retrySelected(); });
  //% "Show Result in Folder"
  commands_.reveal = command(qtTrId("compress.command.reveal"), "folder", {QKeySequence(Qt::CTRL | Qt::Key_E)},
                             [this] { revealCurrent(); });
  //% "Remove from List"
  commands_.remove =
      command(qtTrId("compress.command.remove"), "close",
              {QKeySequence(Qt::Key_Delete), QKeySequence(Qt::Key_Backspace)}, [this] { removeSelected(); });
  //% "Remove All"
  commands_.clear = command(qtTrId("compress.command.clear"), "trash",
                            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete)}, [this] { clearList(); });
  //% "Show or Hide Settings"
  commands_.settings =
      command(qtTrId("compress.command.settings"), "style.more", {QKeySequence(Qt::CTRL | Qt::Key_Comma)},
              [this] { options_->setVisible(!options_->isVisible()); });
  connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), this), &QShortcut::activated, this, [this] { close(); });
}

QWidget* CompressorWindow::makeBar() {
  auto* bar = new QWidget;
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(tokens::space4 - tokens::focusRingRoom, tokens::space2, tokens::space3, tokens::space2);
  row->setSpacing(tokens::space1);
  //% "Add"
  add_ = new SecondaryButton(qtTrId("compress.add"));
  add_->setIconName(QStringLiteral("add"));
  //% "Add images, folders, or captures"
  add_->setToolTip(qtTrId("compress.addTip"));
  connect(add_, &QPushButton::clicked, this, &CompressorWindow::openAddMenu);
  row->addWidget(add_);
  summary_ = new TextLabel(TextLabel::Role::Secondary);
  summary_->setWordWrap(false);
  summary_->setFont(tabularFont(secondaryFont()));
  summary_->setContentsMargins(tokens::space2, 0, 0, 0);
  row->addWidget(summary_, 1);
  const auto addButton = [&](QAction* action, const char* iconName, const QString& keys) {
    auto* button = new IconButton(QLatin1StringView(iconName), action->text(), keys, bar);
    button->setIconSide(tokens::menuIcon + 2);
    button->setCheckable(action->isCheckable());
    button->setChecked(action->isChecked());
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::changed, button, [button, action] {
      button->setEnabled(action->isEnabled());
      button->setChecked(action->isChecked());
    });
    row->addWidget(button);
  };
  //% "Space"
  addButton(commands_.compare, "compare", qtTrId("compress.key.space"));
  addButton(commands_.clear, "trash", commands_.clear->shortcut().toString(QKeySequence::NativeText));
  addButton(commands_.settings, "style.more", commands_.settings->shortcut().toString(QKeySequence::NativeText));
  return bar;
}

void CompressorWindow::connectParts() {
  connect(pages_, &QStackedWidget::currentChanged, this, [this] { update(); });
  connect(dropZone_, &CompressorDropZone::chooseRequested, this, &CompressorWindow::chooseImages);
  connect(list_, &CompressorListView::actionRequested, this, &CompressorWindow::perform);
  connect(list_, &CompressorListView::menuRequested, this, &CompressorWindow::openRowMenu);
  connect(list_, &CompressorListView::comparisonRequested, this,
          [this] { setComparisonShown(!comparison_->isVisible()); });
  connect(list_, &CompressorListView::selectionMoved, this, [this] {
    updateComparison();
    refreshCommands();
  });
  connect(options_, &CompressorOptionsPanel::changed, this, [this] {
    updateComparison();
    refresh();
  });
  connect(options_, &CompressorOptionsPanel::qualityMoved, this, [this] {
    updateComparison();
    refreshSoon();
  });
  connect(footer_, &CompressorFooter::startRequested, this, &CompressorWindow::start);
  connect(footer_, &CompressorFooter::cancelRequested, this, [this] { run_.cancel(); });
}

void CompressorWindow::present() {
  if (isMinimized()) {
    showNormal();
  } else {
    show();
  }
  raise();
  activateWindow();
}

void CompressorWindow::addFiles(std::vector<std::filesystem::path> files) {
  if (files.empty()) return;
  if (looking_++ == 0) countBefore_ = run_.items().size();
  // A folder of results is not to be compressed again.
  std::filesystem::path results;
  if (settings_.outputMode() == CompressOutputMode::customFolder) results = pathFrom(settings_.outputFolder());
  run_.addPaths(std::move(files), true, results);
  refreshSoon();
}

void CompressorWindow::addPixels(const Bitmap& picture, const QString& name) {
  auto added = lifetime_.guard([this, name](const std::optional<Raster>& raster) {
    if (raster) return run_.addPixels(*raster, name.toStdString());
    Toast::show({}, compressorText::failure({PictureError::OutOfMemory}), ToastKind::Failure, screen());
  });
  queue_.async([&runLoop = services_.runLoop, picture, added = std::move(added)] {
    runLoop.post([added, raster = rasterOf(picture)]() mutable { added(raster); });
  });
}

void CompressorWindow::paste() {
  const QMimeData* offer = QGuiApplication::clipboard()->mimeData();
  if (offer != nullptr && offer->hasUrls()) {
    if (auto files = localFiles(*offer); !files.empty()) return addFiles(std::move(files));
  }
  if (!services_.readClipboard) return;
  services_.readClipboard(lifetime_.guard([this](const Bitmap& picture) {
    if (picture.isNull()) {
      //% "There is no image on the clipboard"
      const QString nothing = qtTrId("compress.toast.nothingToPaste");
      Toast::show({}, nothing, ToastKind::Info, screen());
      return;
    }
    //% "Pasted Image %1"
    addPixels(picture, qtTrId("compress.pastedName").arg(++pastedCount_));
  }));
}

void CompressorWindow::start() {
  run_.start(settings_.options(), destination());
  if (!run_.isRunning()) return;
  Toast::dismiss();
  refresh();
}

void CompressorWindow::setComparisonShown(bool shown) {
  if (model_->rowCount() == 0) shown = false;
  comparison_->setVisible(shown);
  commands_.compare->setChecked(shown);
  if (shown && !list_->currentIndex().isValid()) list_->setCurrentIndex(model_->index(0));
  if (shown) {
    updateComparison();
    // Once the list has got its new height.
    QMetaObject::invokeMethod(
        list_, [this] { list_->scrollTo(list_->currentIndex()); }, Qt::QueuedConnection);
  } else {
    feed_->hide();
    if (!list_->hasFocus()) list_->setFocus(Qt::OtherFocusReason);
  }
}

void CompressorWindow::updateComparison() {
  if (!comparison_->isVisibleTo(this)) return;
  CompressOptions options = settings_.options();
  options.keepsDates = false;  // does not show
  feed_->show(list_->currentId(), options);
}

void CompressorWindow::listChanged() {
  const int rowsBefore = model_->rowCount();
  model_->listChanged();
  if (!isRemoving_ && looking_ > 0 && --looking_ == 0 && run_.items().size() == countBefore_) {
    //% "No new images were found there"
    const QString nothing = qtTrId("compress.toast.nothingFound");
    Toast::show({}, nothing, ToastKind::Info, screen());
  }
  if (pages_->currentIndex() == 0 && model_->rowCount() > 0) {
    refresh();
    list_->setFocus(Qt::OtherFocusReason);
  }
  // What has come is to be seen.
  if (model_->rowCount() > rowsBefore) list_->setCurrentIndex(model_->index(rowsBefore));
  if (model_->rowCount() == 0) setComparisonShown(false);
  refreshSoon();
}

void CompressorWindow::itemChanged(std::uint64_t id) {
  model_->itemChanged(id);
  refreshSoon();
}

void CompressorWindow::progressChanged(const CompressionProgress& progress) {
  footer_->setProgress(progress);
}

void CompressorWindow::runEnded() {
  refresh();
}

void CompressorWindow::refreshSoon() {
  if (!refreshing_.isActive()) refreshing_.start(refreshInterval, this);
}

void CompressorWindow::timerEvent(QTimerEvent* event) {
  if (event->timerId() != refreshing_.timerId()) return QWidget::timerEvent(event);
  refreshing_.stop();
  refresh();
}

void CompressorWindow::refresh() {
  const auto& items = run_.items();
  const bool isRunning = run_.isRunning();
  const bool quality = usesQuality(items, settings_.format());
  pages_->setCurrentIndex(items.empty() ? 0 : 1);
  summary_->setText(summary());
  options_->setQualityUsed(quality);
  options_->setEnabled(!isRunning);
  footer_->setBadges({compressorText::formatBadge(settings_, quality), compressorText::sizeBadge(settings_),
                      compressorText::outputBadge(settings_)});
  if (isRunning) {
    footer_->setProgress(run_.progress());
  } else {
    footer_->setOutstanding(run_.outstanding(settings_.options(), destination()));
  }
  footer_->setRunning(isRunning);
  refreshCommands();
}

void CompressorWindow::refreshCommands() {
  const auto selected = list_->selectedIds();
  const auto any = [&](auto condition) {
    return std::ranges::any_of(selected, [&](std::uint64_t id) {
      const CompressionItem* item = run_.find(id);
      return item != nullptr && condition(*item);
    });
  };
  const auto current = list_->currentId();
  const CompressionItem* item = current ? run_.find(*current) : nullptr;
  commands_.compare->setEnabled(model_->rowCount() > 0);
  commands_.clear->setEnabled(model_->rowCount() > 0 && !run_.isRunning());
  commands_.retry->setEnabled(any([](const CompressionItem& each) { return mainActionOf(each) == RowAction::Retry; }));
  commands_.remove->setEnabled(
      any([](const CompressionItem& each) { return each.state != CompressionState::running; }));
  commands_.reveal->setEnabled(services_.reveal && item != nullptr && item->lastOutput);
}

CompressDestination CompressorWindow::destination() const {
  return settings_.destination(services_.settings.saveDirectory());
}

QString CompressorWindow::summary() const {
  //% "Looking for images…"
  if (looking_ > 0) return qtTrId("compress.looking");
  const auto& items = run_.items();
  if (items.empty()) return {};
  std::uintmax_t before = 0;
  std::uintmax_t after = 0;
  for (const CompressionItem& item : items) {
    if (item.sourceURL.empty()) continue;
    before += item.originalBytes;
    after += item.lastOutput ? item.lastOutput->bytes : item.originalBytes;
  }
  //% "%n image(s)"
  QString text = qtTrId("compress.summary.count", static_cast<int>(items.size()));
  if (before == 0) return text;
  text += QStringLiteral(" · ") + compressorText::bytes(before);
  return after < before ? qtTrId("compress.row.sizes").arg(text, compressorText::bytes(after)) : text;
}

void CompressorWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& colors = Theme::shared().palette();
  painter.fillRect(rect(), colors.surface);
  // Rows go under the bar.
  const QRect& list = pages_->geometry();
  if (pages_->currentIndex() == 1)
    drawHorizontalLine(painter, list.left(), list.right() + 1, list.top() - 1, colors.line);
}

void CompressorWindow::resizeEvent(QResizeEvent* event) {
  highlight_->setGeometry(rect());
  QWidget::resizeEvent(event);
}

void CompressorWindow::closeEvent(QCloseEvent* event) {
  setComparisonShown(false);
  event->accept();
  emit closed();
}

void CompressorWindow::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      // In a field Return only takes what was typed.
      if (qobject_cast<QLineEdit*>(focusWidget()) != nullptr) return list_->setFocus(Qt::OtherFocusReason);
      return start();
    case Qt::Key_Escape:
      if (run_.isRunning()) return run_.cancel();
      close();
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

void CompressorWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!isWelcome(*event->mimeData())) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  setHot(true);
}

void CompressorWindow::dragMoveEvent(QDragMoveEvent* event) {
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void CompressorWindow::dragLeaveEvent(QDragLeaveEvent*) {
  setHot(false);
}

void CompressorWindow::dropEvent(QDropEvent* event) {
  setHot(false);
  if (!take(*event->mimeData())) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

bool CompressorWindow::take(const QMimeData& offer) {
  if (auto files = localFiles(offer); !files.empty()) {
    addFiles(std::move(files));
    return true;
  }
  const Bitmap picture = toBitmap(qvariant_cast<QImage>(offer.imageData()));
  if (picture.isNull()) return false;
  addPixels(picture, qtTrId("compress.pastedName").arg(++pastedCount_));
  return true;
}

void CompressorWindow::setHot(bool hot) {
  const bool isEmpty = model_->rowCount() == 0;
  dropZone_->setHot(hot && isEmpty);
  highlight_->setVisible(hot && !isEmpty);
  highlight_->raise();
}

}  // namespace vellora
