#include "editor/ui/DocumentDelivery.h"

#include <future>
#include <utility>

#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QDrag>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>
#include <QUuid>

#include "base/AtomicFile.h"
#include "editor/canvas/CanvasModel.h"
#include "editor/ui/PicturePrinting.h"
#include "editor/ui/StatusLine.h"
#include "kit/Theme.h"
#include "kit/Toast.h"
#include "media/SharedPng.h"

namespace vellora {
namespace {

constexpr int progressAfter = 300;  // milliseconds; shorter work shows nothing
/// How long after a copy a change of the clipboard is still taken for the copy's own, in seconds.
constexpr double settlingTime = 1.5;
constexpr QSize dialogSize{860, 560};
constexpr qint64 dragFilesKept = 24 * 60 * 60;  // seconds; whoever took one may read it late

QString failureText(DocumentOutputError error) {
  switch (error) {
    case DocumentOutputError::NotRendered:
      //% "The picture is too large to be made."
      return qtTrId("editor.failed.render");
    case DocumentOutputError::NotEncoded:
      //% "The picture does not fit this format. PNG holds it."
      return qtTrId("editor.failed.encode");
    case DocumentOutputError::NotWritten:
      //% "The file could not be written."
      return qtTrId("editor.failed.write");
    case DocumentOutputError::Cancelled:
      break;
  }
  return {};
}

QString copyingText() {
  //% "Copying…"
  return qtTrId("editor.progress.copy");
}

QString savingText() {
  //% "Saving…"
  return qtTrId("editor.progress.save");
}

void tellFailure(DocumentOutputError error, QScreen* screen) {
  if (error != DocumentOutputError::Cancelled) Toast::show({}, failureText(error), ToastKind::Failure, screen);
}

QByteArray bytesOf(SharedPng& png) {
  const auto bytes = png.bytes();
  if (!bytes) return {};
  return {reinterpret_cast<const char*>(bytes->data()), static_cast<qsizetype>(bytes->size())};
}

/// Each drag has a folder of its own, so that a later one does not change what an earlier one handed out.
void pruneDragFolders(const QDir& parent) {
  const QDateTime oldest = QDateTime::currentDateTimeUtc().addSecs(-dragFilesKept);
  for (const QFileInfo& folder : parent.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    if (folder.lastModified() < oldest && !folder.isSymLink()) QDir(folder.filePath()).removeRecursively();
  }
}

}  // namespace

/// A picture on its way out: made on the queue while the pointer is already moving.
struct DocumentDelivery::Drag {
  QString path;
  std::shared_future<QByteArray> png;  // empty when it cannot be made
};

namespace {

/// Hands out the picture when another program asks for it, and waits for it only then.
class DraggedPicture final : public QMimeData {
 public:
  DraggedPicture(QString path, std::shared_future<QByteArray> png) : path_(std::move(path)), png_(std::move(png)) {}

  QStringList formats() const override { return {QStringLiteral("text/uri-list"), QStringLiteral("image/png")}; }
  bool hasFormat(const QString& type) const override { return formats().contains(type); }

 protected:
  QVariant retrieveData(const QString& type, QMetaType) const override {
    if (!hasFormat(type)) return {};
    const QByteArray png = png_.get();
    if (png.isEmpty()) return {};
    if (type == QLatin1StringView("image/png")) return png;
    return QVariantList{QUrl::fromLocalFile(path_)};
  }

 private:
  QString path_;
  std::shared_future<QByteArray> png_;
};

}  // namespace

DocumentDelivery::DocumentDelivery(QWidget& window, CanvasModel& model, const EditorServices& services,
                                   const EditorActions& actions, Date capturedAt, StatusLine& status)
    : QObject(&window),
      window_(window),
      model_(model),
      services_(services),
      actions_(actions),
      capturedAt_(capturedAt),
      status_(status),
      progressDelay_(new QTimer(this)) {
  progressDelay_->setSingleShot(true);
  progressDelay_->setInterval(progressAfter);
  connect(progressDelay_, &QTimer::timeout, this, [this] {
    status_.showProgress(lastText_, [job = lastJob_] {
      if (const auto running = job.lock()) running->cancel();
    });
  });
  connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &DocumentDelivery::clipboardChanged);
}

DocumentDelivery::~DocumentDelivery() = default;

void DocumentDelivery::begin(const DocumentOutput::JobPtr& job, const QString& text) {
  ++jobs_;
  lastJob_ = job;
  lastText_ = text;
  if (!progressDelay_->isActive() && !status_.showsProgress()) progressDelay_->start();
}

void DocumentDelivery::end() {
  if (--jobs_ > 0) return;
  progressDelay_->stop();
  status_.hideProgress();
}

void DocumentDelivery::output(bool copy, bool save) {
  if (!actions_.output) return;
  const std::uint64_t revision = model_.revision();
  auto ended = lifetime_.guard([this] { end(); });
  auto copied = lifetime_.guard([this, revision] { noteCopied(revision); });
  // What is asked for is done, whether the window is still there or not: only its own share is guarded.
  const auto job = services_.documentOutput.render(
      model_.document(),
      [output = actions_.output, capturedAt = capturedAt_, copy, save, ended, copied,
       screen = QPointer(window_.screen())](DocumentOutput::Outcome<DocumentOutput::Picture> made) mutable {
        if (!made) {
          ended();
          return tellFailure(made.error(), screen);
        }
        output({*made, capturedAt, copy, save}, [ended, copied, copy](bool ok) mutable {
          ended();
          if (ok && copy) copied();
        });
      });
  begin(job, copy ? copyingText() : savingText());
}

void DocumentDelivery::noteCopied(std::uint64_t revision) {
  copiedRevision_ = revision;
  copiedAt_ = services_.runLoop.hostTime();
  emit copyStateChanged();
}

void DocumentDelivery::clipboardChanged() {
  if (!copiedRevision_ || services_.runLoop.hostTime() - copiedAt_ < settlingTime) return;
  copiedRevision_.reset();
  emit copyStateChanged();
}

bool DocumentDelivery::isCopyOutdated() const {
  return copiedRevision_ && *copiedRevision_ != model_.revision();
}

void DocumentDelivery::copySelection() {
  const auto clip = model_.copySelection();
  if (!clip) return;
  QClipboard& clipboard = *QGuiApplication::clipboard();
  auto* mime = new QMimeData;
  mime->setData(annotationsMimeType, clip->annotations);
  clipboard.setMimeData(mime);
  //% "Copied the selection"
  const QString told = qtTrId("editor.copiedSelection");
  Toast::show({}, told, ToastKind::Success, window_.screen());
  const std::uint64_t revision = model_.revision();
  services_.documentOutput.render(
      model_.document(),
      lifetime_.guard([this, annotations = clip->annotations, revision,
                       ours = QPointer(mime)](const DocumentOutput::Outcome<DocumentOutput::Picture>& made) {
        // Whatever else came onto the clipboard meanwhile stays there.
        if (!made || ours.isNull()) return;
        auto* both = new QMimeData;
        both->setData(annotationsMimeType, annotations);
        both->setData(QStringLiteral("image/png"), bytesOf(**made));
        noteCopied(revision);
        QGuiApplication::clipboard()->setMimeData(both);
      }),
      true);
}

QString DocumentDelivery::pictureName(const QString& extension) const {
  return captureFileStem(capturedAt_, NamePrecision::Seconds) + QLatin1Char('.') + extension;
}

void DocumentDelivery::saveAs() {
  auto* dialog = new QFileDialog(&window_);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  followTheme(*dialog);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->resize(dialogSize);
  //% "Save the picture as"
  dialog->setWindowTitle(qtTrId("editor.saveAs.title"));
  QStringList filters;
  for (const PictureFormat format : allPictureFormats) filters << fileFilter(format);
  dialog->setNameFilters(filters);
  const QString folder =
      actions_.saveFolder ? actions_.saveFolder() : QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  dialog->setDirectory(folder);
  dialog->selectFile(pictureName(fileExtension(PictureFormat::Png)));
  dialog->setDefaultSuffix(fileExtension(PictureFormat::Png));
  const auto chosenFormat = [filters](const QString& filter) {
    const qsizetype index = filters.indexOf(filter);
    return allPictureFormats[static_cast<std::size_t>(std::max<qsizetype>(index, 0))];
  };
  connect(dialog, &QFileDialog::filterSelected, dialog, [dialog, chosenFormat](const QString& filter) {
    const QString extension = fileExtension(chosenFormat(filter));
    dialog->setDefaultSuffix(extension);
    const QStringList names = dialog->selectedFiles();
    if (names.isEmpty() || !pictureFormatOf(names.first())) return;
    const QFileInfo name(names.first());
    dialog->selectFile(name.completeBaseName() + QLatin1Char('.') + extension);
  });
  connect(dialog, &QFileDialog::fileSelected, this, [this, dialog, chosenFormat](const QString& path) {
    saveTo(path, pictureFormatOf(path).value_or(chosenFormat(dialog->selectedNameFilter())));
  });
  dialog->open();
}

void DocumentDelivery::saveTo(const QString& path, PictureFormat format) {
  auto ended = lifetime_.guard([this] { end(); });
  const auto job = services_.documentOutput.save(
      model_.document(), path, format,
      [ended, screen = QPointer(window_.screen())](const DocumentOutput::Outcome<QString>& saved) mutable {
        ended();
        if (!saved) return tellFailure(saved.error(), screen);
        //% "Saved %1"
        const QString text = qtTrId("editor.saved").arg(QFileInfo(*saved).fileName());
        Toast::show({}, text, ToastKind::Success, screen);
      });
  begin(job, savingText());
}

void DocumentDelivery::print() {
  choosePrinter(window_, lifetime_.guard([this](const std::shared_ptr<QPrinter>& printer) {
    auto ended = lifetime_.guard([this] { end(); });
    const auto job = services_.documentOutput.render(
        model_.document(), [ended, printer, &queue = services_.documentOutput, screen = QPointer(window_.screen())](
                               const DocumentOutput::Outcome<DocumentOutput::Picture>& made) mutable {
          ended();
          if (!made) return tellFailure(made.error(), screen);
          queue.async([printer, picture = *made] { printPicture(*printer, picture->image(), picture->scale()); });
        });
    //% "Printing…"
    begin(job, qtTrId("editor.progress.print"));
  }));
}

void DocumentDelivery::prepareDrag() {
  const QDir parent(QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + QStringLiteral("/dragged"));
  const QDir folder(parent.filePath(QUuid::createUuid().toString(QUuid::WithoutBraces).left(8)));
  auto made = std::make_shared<std::promise<QByteArray>>();
  drag_ = std::make_shared<Drag>(
      Drag{folder.filePath(pictureName(fileExtension(PictureFormat::Png))), made->get_future().share()});
  const auto write = [made, parent, folder, path = drag_->path](std::span<const std::byte> png) {
    pruneDragFolders(parent);
    QDir().mkpath(folder.path());
    const bool written = !png.empty() && AtomicFile::write(path, png).has_value();
    const auto* bytes = reinterpret_cast<const char*>(png.data());
    made->set_value(written ? QByteArray(bytes, static_cast<qsizetype>(png.size())) : QByteArray());
  };
  services_.documentOutput.exportPng(model_.document(), write);
}

void DocumentDelivery::drag(QWidget& source, const QPixmap& ghost) {
  if (!drag_) prepareDrag();
  auto* drag = new QDrag(&source);
  drag->setMimeData(new DraggedPicture(drag_->path, drag_->png));
  drag_.reset();
  drag->setPixmap(ghost);
  drag->setHotSpot({ghost.width() / 2, static_cast<int>(ghost.height() / ghost.devicePixelRatio()) / 2});
  const QPointer<DocumentDelivery> self = this;
  dragging_ = true;
  drag->exec(Qt::CopyAction);
  if (self) dragging_ = false;
}

}  // namespace vellora
