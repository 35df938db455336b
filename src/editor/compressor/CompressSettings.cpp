#include "editor/compressor/CompressSettings.h"

#include <algorithm>

#include <QFile>
#include <QFileInfo>

#include "media/pictures/Raster.h"

namespace vellora {
namespace {

namespace key {
const QString format = QStringLiteral("compress.format");
const QString quality = QStringLiteral("compress.quality");
const QString resize = QStringLiteral("compress.resize");
const QString customEdge = QStringLiteral("compress.resizeCustomEdge");
const QString outputMode = QStringLiteral("compress.outputMode");
const QString outputFolder = QStringLiteral("compress.outputFolder");
const QString keepMetadata = QStringLiteral("compress.keepMetadata");
const QString keepDates = QStringLiteral("compress.keepDates");
}  // namespace key

constexpr char customFolderText[] = "customFolder";
constexpr char sourceFolderText[] = "sourceFolder";

QString toQString(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

std::string storedText(const PreferenceStore& preferences, const QString& key) {
  return preferences.string(key).value_or(QString()).toStdString();
}

std::filesystem::path toPath(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

}  // namespace

CompressFormat CompressSettings::format() const {
  return compressFormatFrom(storedText(preferences_, key::format)).value_or(CompressFormat::original);
}

void CompressSettings::setFormat(CompressFormat format) {
  preferences_.setValue(key::format, toQString(textOf(format)));
}

int CompressSettings::quality() const {
  const qint64 stored = preferences_.integer(key::quality).value_or(defaultQuality);
  return static_cast<int>(std::clamp<qint64>(stored, leastQuality, greatestQuality));
}

void CompressSettings::setQuality(int percent) {
  preferences_.setValue(key::quality, qlonglong{percent});
}

ResizeLimit CompressSettings::resize() const {
  return resizeLimitFrom(storedText(preferences_, key::resize));
}

void CompressSettings::setResize(ResizeLimit limit) {
  preferences_.setValue(key::resize, toQString(textOf(limit)));
}

int CompressSettings::customEdge() const {
  const qint64 stored = preferences_.integer(key::customEdge).value_or(defaultCustomEdge);
  return isEdge(stored) ? static_cast<int>(stored) : defaultCustomEdge;
}

void CompressSettings::setCustomEdge(int pixels) {
  preferences_.setValue(key::customEdge, qlonglong{pixels});
}

bool CompressSettings::isEdge(qint64 pixels) {
  return pixels >= 1 && pixels <= Raster::maximumEdge;
}

CompressOutputMode CompressSettings::outputMode() const {
  const bool wantsFolder = preferences_.string(key::outputMode) == QLatin1String(customFolderText);
  return wantsFolder && !outputFolder().isEmpty() ? CompressOutputMode::customFolder : CompressOutputMode::sourceFolder;
}

void CompressSettings::setOutputMode(CompressOutputMode mode) {
  const bool isFolder = mode == CompressOutputMode::customFolder;
  preferences_.setValue(key::outputMode, QString::fromLatin1(isFolder ? customFolderText : sourceFolderText));
}

QString CompressSettings::outputFolder() const {
  const QString stored = preferences_.string(key::outputFolder).value_or(QString());
  const QFileInfo folder(stored);
  return folder.isAbsolute() && folder.isDir() ? stored : QString();
}

void CompressSettings::setOutputFolder(const QString& folder) {
  preferences_.setValue(key::outputFolder, folder);
}

bool CompressSettings::keepsMetadata() const {
  return preferences_.boolean(key::keepMetadata).value_or(false);
}

void CompressSettings::setKeepsMetadata(bool keeps) {
  preferences_.setValue(key::keepMetadata, keeps);
}

bool CompressSettings::keepsDates() const {
  return preferences_.boolean(key::keepDates).value_or(false);
}

void CompressSettings::setKeepsDates(bool keeps) {
  preferences_.setValue(key::keepDates, keeps);
}

CompressOptions CompressSettings::options() const {
  CompressOptions options;
  options.format = format();
  options.quality = quality();
  options.maxEdge = maxEdgeOf(resize(), customEdge());
  options.keepsMetadata = keepsMetadata();
  options.keepsDates = keepsDates();
  return options;
}

CompressDestination CompressSettings::destination(const QString& pastedFolder) const {
  CompressDestination destination;
  destination.mode = outputMode();
  if (destination.mode == CompressOutputMode::customFolder) destination.folder = toPath(outputFolder());
  destination.pastedFolder = toPath(pastedFolder);
  return destination;
}

}  // namespace vellora
