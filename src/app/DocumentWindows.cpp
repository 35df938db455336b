#include "app/DocumentWindows.h"

#include <algorithm>

#include <QCursor>
#include <QFileDialog>
#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>

#include "app/AppServices.h"
#include "capture/RepaintWait.h"
#include "editor/backdrop/BackdropPictures.h"
#include "editor/ui/canvas/CanvasView.h"
#include "editor/ui/pins/PinWindow.h"
#include "editor/ui/pins/PinWindowController.h"
#include "kit/Theme.h"

namespace vellora {
namespace {

constexpr QSize fileDialogSize(860, 540);  // where the desktop has no dialog of its own

QScreen* screenNamed(const QString& name) {
  for (QScreen* screen : QGuiApplication::screens()) {
    if (screen->name() == name) return screen;
  }
  return nullptr;
}

/// Where a window goes: the screen the capture came from and the capture's middle on it, in that screen's own
/// coordinates (its origin stays in device pixels, distances within it are scaled).
struct Placement {
  QScreen* screen = nullptr;
  std::optional<QPoint> center;
};

Placement placementOf(const std::optional<CaptureOrigin>& origin, ScreenService& screens) {
  if (origin) {
    for (const ScreenInfo& info : screens.screens()) {
      if (info.display.id != origin->display) continue;
      const PixelPoint middle = origin->rect.center();
      QScreen* screen = screenNamed(info.display.name);
      if (!screen) break;
      const double scale = screen->devicePixelRatio();
      const QPoint within(static_cast<int>((middle.x - info.display.frame.x) / scale),
                          static_cast<int>((middle.y - info.display.frame.y) / scale));
      return {screen, screen->geometry().topLeft() + within};
    }
  }
  QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
  return {screen ? screen : QGuiApplication::primaryScreen(), std::nullopt};
}

ImageDocument documentOf(const CaptureDocument& capture) {
  ImageDocument document;
  document.pieces.push_back(makePiece(capture.picture.image, capture.picture.scale, capture.png));
  return document;
}

/// A document nobody has worked on: its picture is the one it came with.
bool isPlain(const ImageDocument& document) {
  return document.pieces.size() == 1 && document.annotations.empty() && !document.backdrop.enabled &&
         !document.pieces.front().isCropped();
}

}  // namespace

DocumentWindows::DocumentWindows(AppServices& services, CaptureCommands& captures, PictureLoading& pictures,
                                 Actions actions)
    : services_(services),
      captures_(captures),
      pictures_(pictures),
      actions_(std::move(actions)),
      toolStyles_(*services.preferences),
      customColors_(*services.preferences),
      editorSettings_(*services.preferences),
      backdropStyles_(*services.preferences),
      documentOutput_(std::make_unique<DocumentOutput>(services.runLoop)) {}

DocumentWindows::~DocumentWindows() {
  closeAll();
}

void DocumentWindows::openEditor(const CaptureDocument& capture) {
  const Placement placement = placementOf(capture.origin, services_.screens);
  ImageDocument document = documentOf(capture);
  Kept kept = services_.sessionStore.open(document, capture.capturedAt);
  open({std::move(document), std::move(kept), capture.capturedAt, placement.screen, placement.center});
}

void DocumentWindows::openPin(const CaptureDocument& capture) {
  const Placement placement = placementOf(capture.origin, services_.screens);
  ImageDocument document = documentOf(capture);
  Kept kept = services_.sessionStore.open(document, capture.capturedAt);
  pin({std::move(document), std::move(kept), capture.capturedAt, placement.screen, placement.center}, capture.png);
}

bool DocumentWindows::reopen(std::size_t index) {
  if (index >= services_.sessionStore.items().size()) return false;
  ++awaited_;
  services_.sessionStore.take(index, lifetime_.guard([this](std::optional<SessionStore::Entry> entry) {
    --awaited_;
    if (!entry) {
      //% "This capture can no longer be read"
      actions_.tell("exclamationmark.triangle.fill", qtTrId("toast.reopenFailed"), true);
      return actions_.changed();
    }
    const Placement placement = placementOf(std::nullopt, services_.screens);
    open({std::move(entry->document), std::move(entry->open), entry->capturedAt, placement.screen, placement.center});
  }));
  return true;
}

void DocumentWindows::open(Opening opening) {
  const auto* picture = std::get_if<BackdropBackground::Image>(&opening.document.backdrop.background.value);
  if (!picture) return show(std::move(opening));
  // From here on the painters find it without waiting.
  ++awaited_;
  const auto waiting = std::make_shared<Opening>(std::move(opening));
  const auto ready = lifetime_.guard([this, waiting] {
    --awaited_;
    show(std::move(*waiting));
  });
  documentOutput_->async([&runLoop = services_.runLoop, path = picture->path, ready] {
    backdropPicture(path);
    runLoop.post(ready);
  });
}

void DocumentWindows::show(Opening opening) {
  const EditorServices services{toolStyles_,     customColors_,    editorSettings_,
                                backdropStyles_, *documentOutput_, services_.runLoop};
  const QString title = captureFileStem(opening.capturedAt, NamePrecision::Seconds);
  // The actions need the window, which needs the actions.
  const auto self = std::make_shared<QPointer<EditorWindow>>();
  auto* editor = new EditorWindow({std::move(opening.document), opening.capturedAt, title}, services, actionsOf(self));
  *self = editor;
  editors_.emplace_back(editor);
  kept_[editor] = std::move(opening.kept);
  QObject::connect(editor, &EditorWindow::closed, editor, [this, editor] { editorClosed(*editor); });
  editor->present(opening.screen, opening.center ? &*opening.center : nullptr);
}

EditorActions DocumentWindows::actionsOf(const std::shared_ptr<QPointer<EditorWindow>>& editor) {
  EditorActions result;
  result.output = [this](const EditorOutput& wanted, std::function<void(bool)> done) {
    output(wanted.png, wanted.capturedAt, wanted.copy, wanted.save, std::move(done));
  };
  result.pin = [this, editor](const ImageDocument& document, Date capturedAt) {
    EditorWindow* window = *editor;
    if (!window) return;
    const QPoint center = window->canvas().mapToGlobal(window->canvas().rect().center());
    pin({document, std::move(kept_[window]), capturedAt, window->screen(), center}, nullptr);
  };
  result.compress = actions_.compress;
  result.captureMore = [this, editor](PieceReceiver receive) {
    if (EditorWindow* window = *editor) captureMore(*window, std::move(receive));
  };
  result.choosePicture = [this, editor](PieceReceiver receive) { choosePicture(*editor, std::move(receive)); };
  result.loadPicture = [this](const QString& path, PieceReceiver receive) {
    pictures_.loadFromFile(path, pieceFor(std::move(receive)));
  };
  result.pastePicture = [this](PieceReceiver receive) { pictures_.loadFromPasteboard(pieceFor(std::move(receive))); };
  result.saveFolder = [this] { return services_.settings.saveDirectory(); };
  result.documentChanged = [this, editor](const ImageDocument& document) {
    const auto found = kept_.find(*editor);
    if (found != kept_.end() && found->second) found->second->update(document);
  };
  return result;
}

void DocumentWindows::editorClosed(EditorWindow& editor) {
  const auto found = kept_.find(&editor);
  if (found != kept_.end()) {
    if (found->second && !editor.becamePin()) found->second->close(editor.document());
    kept_.erase(found);
  }
  std::erase_if(editors_, [&](const QPointer<EditorWindow>& other) { return !other || other == &editor; });
  services_.runLoop.post(lifetime_.guard([this] { actions_.changed(); }));
}

void DocumentWindows::pin(Opening opening, std::shared_ptr<SharedPng> picture) {
  if (!picture && isPlain(opening.document)) picture = opening.document.pieces.front().png;
  if (!picture) {
    const auto waiting = std::make_shared<Opening>(std::move(opening));
    documentOutput_->render(waiting->document, lifetime_.guard([this, waiting](const auto& rendered) {
      if (rendered) return pin(std::move(*waiting), *rendered);
      if (waiting->kept) waiting->kept->close(waiting->document);
      //% "This picture cannot be pinned"
      actions_.tell("exclamationmark.triangle.fill", qtTrId("toast.pinFailed"), true);
      actions_.changed();
    }));
    return;
  }
  PinContent content;
  content.image = picture->image();
  content.scale = picture->scale();
  content.png = std::move(picture);
  content.document = opening.document;
  content.capturedAt = opening.capturedAt;
  const auto* controller = pins().open(std::move(content), {opening.screen, opening.center});
  if (controller) {
    kept_[controller] = std::move(opening.kept);
  } else if (opening.kept) {
    opening.kept->close(opening.document);
  }
}

PinBoard& DocumentWindows::pins() {
  if (!pins_) {
    pins_ = std::make_unique<PinBoard>(services_.runLoop, *services_.preferences, &services_.windowHints, pinActions());
  }
  return *pins_;
}

PinActions DocumentWindows::pinActions() {
  PinActions result;
  result.output = [this](std::shared_ptr<SharedPng> png, Date capturedAt, bool copy, bool save,
                         std::function<void(bool)> done) {
    output(std::move(png), capturedAt, copy, save, std::move(done));
  };
  result.edit = [this](PinWindowController& pin) { return editPin(pin); };
  result.closed = [this](PinWindowController& pin) {
    const auto found = kept_.find(&pin);
    if (found == kept_.end()) return;
    if (found->second) found->second->close(*pin.content().document);
    kept_.erase(found);
  };
  result.dragFile = [this](const std::shared_ptr<SharedPng>& png, Date capturedAt) -> std::optional<QString> {
    const auto bytes = png->bytes();
    if (!bytes) return std::nullopt;
    return services_.clipboardFiles.write(
        QByteArray(reinterpret_cast<const char*>(bytes->data()), static_cast<qsizetype>(bytes->size())), capturedAt);
  };
  result.tell = [this](QScreen*, const QString& text) { actions_.tell("info", text, false); };
  result.changed = [this] { services_.runLoop.post(lifetime_.guard([this] { actions_.changed(); })); };
  return result;
}

bool DocumentWindows::editPin(PinWindowController& pin) {
  const auto found = kept_.find(&pin);
  if (found == kept_.end()) return false;
  const QWidget& window = *pin.window().window();
  Opening opening{*pin.content().document, std::move(found->second), pin.content().capturedAt, window.screen(),
                  window.frameGeometry().center()};
  kept_.erase(found);
  open(std::move(opening));
  return true;
}

void DocumentWindows::captureMore(EditorWindow& editor, PieceReceiver receive) {
  editor.hide();
  const QPointer<EditorWindow> window(&editor);
  hiding_ = services_.runLoop.after(repaintWait(0), [this, window, receive = std::move(receive)] {
    captures_.captureAreaFor([window, receive](const std::optional<CapturedImage>& picture) {
      if (window) {
        window->show();
        window->activateWindow();
      }
      receive(picture ? std::optional(makePiece(picture->image, picture->scale)) : std::nullopt);
    });
  });
}

void DocumentWindows::choosePicture(QWidget* parent, PieceReceiver receive) {
  auto* dialog = new QFileDialog(parent);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  followTheme(*dialog);
  dialog->setFileMode(QFileDialog::ExistingFile);
  dialog->setDirectory(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
  dialog->resize(fileDialogSize);
  //% "Open a picture"
  dialog->setWindowTitle(qtTrId("load.file.title"));
  //% "Pictures (%1)"
  const QString filter = qtTrId("load.file.filter").arg(PictureLoading::fileNamePatterns());
  dialog->setNameFilter(filter);
  QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                   [this, receive](const QString& path) { pictures_.loadFromFile(path, pieceFor(receive)); });
  QObject::connect(dialog, &QDialog::rejected, dialog, [receive] { receive(std::nullopt); });
  dialog->open();
}

PictureLoading::Callback DocumentWindows::pieceFor(PieceReceiver receive) {
  return lifetime_.guard([this, receive = std::move(receive)](const PictureLoading::Outcome& outcome) {
    if (outcome) return receive(makePiece(outcome->bitmap, outcome->scale));
    actions_.tell("exclamationmark.triangle.fill", qtTrId(outcome.error().toLatin1().constData()), true);
    receive(std::nullopt);
  });
}

void DocumentWindows::output(std::shared_ptr<SharedPng> png, Date capturedAt, bool copy, bool save,
                             std::function<void(bool)> done) {
  CaptureOutputRequest request;
  request.png = std::move(png);
  request.capturedAt = capturedAt;
  request.copy = copy;
  request.save = save;
  request.namePrecision = NamePrecision::Seconds;
  request.saveFolder = services_.settings.saveDirectory();
  request.clipboardMode = services_.settings.clipboardMode();
  services_.captureOutput.run(std::move(request),
                              [report = actions_.report, done = std::move(done)](const CaptureOutcome& outcome) {
                                report(outcome);
                                if (done) done(!outcome.hasFailure());
                              });
}

void DocumentWindows::closeAll() {
  const auto editors = editors_;
  for (const auto& editor : editors) {
    if (editor) editor->close();
  }
  if (pins_) pins_->closeAll();
}

bool DocumentWindows::hasOpenWindows() const {
  return awaited_ > 0 || !editors_.empty() || !kept_.empty();
}

void DocumentWindows::endClickThrough() {
  if (pins_) pins_->endClickThrough();
}

}  // namespace vellora
