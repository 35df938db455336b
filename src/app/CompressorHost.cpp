#include "app/CompressorHost.h"

#include <QFile>
#include <QLocale>

#include "app/AppServices.h"
#include "editor/SessionFolder.h"
#include "editor/rendering/DocumentRenderer.h"
#include "media/codecs/ImageLoader.h"

namespace vellora {
namespace {

QString nameOf(Date capturedAt) {
  return captureFileStem(capturedAt, NamePrecision::Seconds);
}

std::optional<Bitmap> readPiece(const QString& path) {
  auto loaded = ImageLoader::fromFile(path);
  if (!loaded) return std::nullopt;
  return loaded->bitmap;
}

}  // namespace

CompressorHost::CompressorHost(AppServices& services, PictureLoading& pictures, std::function<void()> changed)
    : services_(services), pictures_(pictures), changed_(std::move(changed)) {}

CompressorHost::~CompressorHost() = default;

CompressorWindowController& CompressorHost::controller() {
  if (controller_) return *controller_;
  CompressorWindowController::Services wanted{services_.runLoop, services_.settings};
  wanted.reveal = [this](const std::filesystem::path& file) {
    services_.urlOpener.reveal(QFile::decodeName(file.c_str()));
  };
  wanted.readClipboard = [this](std::function<void(Bitmap)> receive) {
    pictures_.loadFromPasteboard([receive = std::move(receive)](const PictureLoading::Outcome& outcome) {
      receive(outcome ? outcome->bitmap : Bitmap());
    });
  };
  wanted.captures = [this] { return captures(); };
  wanted.readCapture = [this](std::size_t index, CaptureReceiver receive) { readCapture(index, std::move(receive)); };
  wanted.changed = changed_;
  controller_ = std::make_unique<CompressorWindowController>(std::move(wanted));
  return *controller_;
}

void CompressorHost::open(const QStringList& paths) {
  controller().show();
  std::vector<std::filesystem::path> files;
  for (const QString& path : paths) files.emplace_back(QFile::encodeName(path).toStdString());
  controller().addFiles(std::move(files));
}

void CompressorHost::addDocument(const ImageDocument& document, Date capturedAt) {
  ++awaited_;
  auto drawn = lifetime_.guard([this, name = nameOf(capturedAt)](const std::optional<Bitmap>& picture) {
    --awaited_;
    if (!picture) return changed_();
    controller().show();
    controller().addCapture(*picture, name);
  });
  queue_.async([&runLoop = services_.runLoop, document, drawn = std::move(drawn)] {
    runLoop.post([drawn, picture = renderDocument(document)]() mutable { drawn(picture); });
  });
}

std::vector<CompressorCapture> CompressorHost::captures() {
  services_.sessionStore.loadIndex();
  std::vector<CompressorCapture> captures;
  for (const SessionStore::Item& item : services_.sessionStore.items())
    captures.push_back(
        {item.label(QLocale(), services_.runLoop.now()), item.hasThumbnail ? item.thumbnailFile() : QString()});
  return captures;
}

void CompressorHost::readCapture(std::size_t index, CaptureReceiver receive) {
  const auto& items = services_.sessionStore.items();
  if (index >= items.size()) return receive({}, {});
  auto read = lifetime_.guard(std::move(receive));
  queue_.async([&runLoop = services_.runLoop, directory = items[index].directory, read = std::move(read)] {
    const auto session = sessionFolder::load(directory, readPiece);
    const auto picture = session ? renderDocument(session->document) : std::nullopt;
    const QString name = session ? nameOf(session->capturedAt) : QString();
    runLoop.post([read, picture, name]() mutable { read(picture.value_or(Bitmap()), name); });
  });
}

void CompressorHost::close() {
  controller_.reset();
}

bool CompressorHost::isOpen() const {
  return awaited_ > 0 || (controller_ && (controller_->isVisible() || controller_->isRunning()));
}

}  // namespace vellora
