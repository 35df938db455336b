#include "cli/render/RenderProgram.h"

#include <cstdio>

#include <QFileInfo>
#include <QGuiApplication>

#include "base/AtomicFile.h"
#include "base/Json.h"
#include "base/Log.h"
#include "editor/SessionFolder.h"
#include "editor/painting/Fonts.h"
#include "editor/rendering/DocumentRenderer.h"
#include "media/codecs/ImageLoader.h"
#include "media/codecs/PictureFormat.h"

namespace vellora {
namespace {

enum ExitCode : int { Done = 0, Failed = 1, WrongUsage = 2 };

/// Why there is no document, for people.
using Loaded = Result<ImageDocument, QString>;

QString describe(const QString& path, ImageLoadError error) {
  switch (error) {
    case ImageLoadError::NotFound:
      return QStringLiteral("%1 does not exist").arg(path);
    case ImageLoadError::NotPermitted:
      return QStringLiteral("%1 may not be read").arg(path);
    case ImageLoadError::NotAFile:
      return QStringLiteral("%1 is no file").arg(path);
    case ImageLoadError::TooLarge:
      return QStringLiteral("%1 is too large").arg(path);
    case ImageLoadError::NotAnImage:
      return QStringLiteral("%1 is no picture").arg(path);
    case ImageLoadError::Unsupported:
      return QStringLiteral("%1 is of a kind that cannot be read here").arg(path);
    case ImageLoadError::Damaged:
      return QStringLiteral("%1 is damaged").arg(path);
    case ImageLoadError::OutOfMemory:
      return QStringLiteral("there is not enough memory for %1").arg(path);
  }
  return path;
}

QString describe(const QString& path, SessionDocumentError error) {
  switch (error) {
    case SessionDocumentError::Malformed:
      return QStringLiteral("%1 is damaged, or no document").arg(path);
    case SessionDocumentError::UnknownKind:
      return QStringLiteral("%1 was made by a later version: it holds an annotation of an unknown kind").arg(path);
    case SessionDocumentError::NoPieces:
      return QStringLiteral("%1 holds no picture").arg(path);
  }
  return path;
}

Result<QByteArray, QString> readText(const QString& path) {
  auto text = AtomicFile::read(path, sessionLimits::documentBytes);
  if (!text) return failure(text.error().description());
  return std::move(*text);
}

Loaded loadSession(const QString& given) {
  const QFileInfo info(given);
  const QString folder = info.isDir() ? given : info.absolutePath();
  const QString file = info.isDir() ? folder + u'/' + sessionFolder::documentName : given;
  const auto text = readText(file);
  if (!text) return failure(text.error());
  const auto session = decodeSessionDocument(*text);
  if (!session) return failure(describe(file, session.error()));
  ImageDocument document;
  document.annotations = session->annotations;
  document.backdrop = session->backdrop;
  std::size_t bytes = 0;
  for (const PieceRecord& record : session->pieces) {
    const auto path = sessionFolder::piecePath(folder, record);
    if (!path) return failure(QStringLiteral("%1 holds no picture named '%2'").arg(folder, record.file));
    const auto image = ImageLoader::fromFile(*path);
    if (!image) return failure(describe(*path, image.error()));
    bytes += static_cast<std::size_t>(image->bitmap.height()) * image->bitmap.stride();
    if (bytes > sessionLimits::decodedBytes) {
      return failure(QStringLiteral("the pictures of %1 are too large together").arg(folder));
    }
    auto piece = makePiece(record, image->bitmap);
    if (!piece) return failure(QStringLiteral("%1 shows nothing of %2").arg(file, *path));
    document.pieces.push_back(std::move(*piece));
  }
  return document;
}

Loaded loadAnnotated(const QString& imagePath, const QString& documentPath) {
  const auto image = ImageLoader::fromFile(imagePath);
  if (!image) return failure(describe(imagePath, image.error()));
  const auto text = readText(documentPath);
  if (!text) return failure(text.error());
  auto layers = decodeDocumentLayers(*text);
  if (!layers) return failure(describe(documentPath, layers.error()));
  ImageDocument document;
  document.pieces.push_back(makePiece(image->bitmap, image->scale));
  document.annotations = std::move(layers->annotations);
  document.backdrop = std::move(layers->backdrop);
  return document;
}

/// What Qt has to say of damaged files and of its surroundings is no message for people; ours say what failed.
void noteMessage(QtMsgType, const QMessageLogContext&, const QString& text) {
  log::debug(text);
}

int complain(int code, const QString& message) {
  std::fprintf(stderr, "vellora: %s\n", qUtf8Printable(message));
  return code;
}

int draw(const ImageDocument& document, const QString& output, PictureFormat format, double wantedScale, bool json) {
  const double scale = wantedScale > 0 ? wantedScale : document.outputScale();
  const auto picture = renderDocument(document, scale);
  if (!picture) return complain(Failed, QStringLiteral("the picture would be empty or too large"));
  const auto encoded = encodePicture(*picture, scale, format);
  if (!encoded) return complain(Failed, QStringLiteral("the format of %1 cannot hold this picture").arg(output));
  if (const auto written = AtomicFile::write(output, *encoded); !written) {
    return complain(Failed, written.error().description());
  }
  const Json facts{
      {"output", output.toStdString()}, {"width", picture->width()}, {"height", picture->height()}, {"scale", scale}};
  std::printf("%s\n", json ? json::serialize(facts).constData() : qUtf8Printable(output));
  return Done;
}

}  // namespace

int runRender(int argc, char** argv) {
  qInstallMessageHandler(noteMessage);
  // No display, whatever the session has: pictures are the same everywhere.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qunsetenv("QT_QPA_PLATFORMTHEME");
  registerFonts();
  const QGuiApplication application(argc, argv);
  QStringList words = QGuiApplication::arguments().mid(1);
  const QString verb = words.isEmpty() ? QString() : words.takeFirst();
  const bool isAnnotate = verb == u"annotate";
  if (words.size() != (isAnnotate ? 5 : 4) || (!isAnnotate && verb != u"render")) {
    return complain(WrongUsage, QStringLiteral("use 'vellora render' or 'vellora annotate'"));
  }
  const bool json = words.takeLast() == u"json";
  const double scale = words.takeLast().toDouble();
  const QString output = words.takeLast();
  const auto format = pictureFormatOf(output);
  if (!format) {
    return complain(WrongUsage, QStringLiteral("--output takes a name that ends in .png, .jpg, .webp, .tiff or .pdf"));
  }
  const Loaded document = isAnnotate ? loadAnnotated(words[0], words[1]) : loadSession(words[0]);
  if (!document) return complain(Failed, document.error());
  return draw(*document, output, *format, scale, json);
}

}  // namespace vellora
