#include "editor/ui/compressor/CompressorTexts.h"

#include <algorithm>
#include <cmath>

#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include "base/FileName.h"
#include "editor/ui/compressor/FilePaths.h"

namespace vellora::compressorText {
namespace {

const QString separator = QStringLiteral(" · ");

/// Joins what is not empty.
QString joined(std::initializer_list<QString> parts) {
  QStringList list;
  for (const QString& part : parts) {
    if (!part.isEmpty()) list << part;
  }
  return list.join(separator);
}

QString unchangedText(const CompressionItem& item) {
  const bool isPassedOn = item.lastOutput->frames > 1 || item.lastOutput->bytes >= item.originalBytes;
  //% "Kept as it was"
  if (isPassedOn) return qtTrId("compress.row.kept");
  //% "Only metadata removed"
  return qtTrId("compress.row.metadataRemoved");
}

QString folderText(const CompressionItem& item) {
  if (item.sourceURL.empty()) return {};
  return pathBelowHome(textFrom(item.sourceURL.parent_path()), QDir::homePath());
}

}  // namespace

QString bytes(std::uintmax_t bytes) {
  const auto number = static_cast<double>(bytes);
  const QLocale locale;
  //% "%1 GB"
  if (bytes >= 999'950'000) return qtTrId("compress.size.gigabytes").arg(locale.toString(number / 1e9, 'f', 1));
  //% "%1 MB"
  if (bytes >= 999'500) return qtTrId("compress.size.megabytes").arg(locale.toString(number / 1e6, 'f', 1));
  if (bytes >= 1000) {
    //% "%1 kB"
    return qtTrId("compress.size.kilobytes").arg(locale.toString(number / 1e3, 'f', bytes < 9950 ? 1 : 0));
  }
  //% "%1 B"
  return qtTrId("compress.size.bytes").arg(locale.toString(number, 'f', 0));
}

QString change(std::uintmax_t before, std::uintmax_t after) {
  if (before == 0 || before == after) return {};
  const double percent = (1 - static_cast<double>(after) / static_cast<double>(before)) * 100;
  const double amount = std::abs(percent);
  // Never "100% smaller" nor "0% smaller".
  const bool isExtreme = amount < 1 || (percent > 99 && percent < 100);
  const QString number = QLocale().toString(isExtreme ? std::clamp(amount, 0.1, 99.9) : amount, 'f', isExtreme ? 1 : 0);
  //% "%1% smaller"
  if (percent > 0) return qtTrId("compress.row.smaller").arg(number);
  //% "%1% larger"
  return qtTrId("compress.row.larger").arg(number);
}

QString pixels(ImageCompressor::Size size) {
  //% "%1 × %2"
  return size.width > 0 ? qtTrId("compress.row.pixels").arg(size.width).arg(size.height) : QString();
}

QString remaining(std::chrono::milliseconds time) {
  const auto seconds = std::chrono::ceil<std::chrono::seconds>(time).count();
  //% "%n second(s) left"
  if (seconds < 90) return qtTrId("compress.progress.secondsLeft", static_cast<int>(seconds));
  //% "%n minute(s) left"
  return qtTrId("compress.progress.minutesLeft", static_cast<int>((seconds + 30) / 60));
}

QString failure(const PictureFailure& failure) {
  switch (failure.error) {
    case PictureError::NotFound:
      //% "The file is no longer there"
      return qtTrId("compress.failure.notFound");
    case PictureError::NotPermitted:
      //% "You are not allowed to read or write here"
      return qtTrId("compress.failure.notPermitted");
    case PictureError::NotAFile:
      //% "This is not a file"
      return qtTrId("compress.failure.notAFile");
    case PictureError::NotAPicture:
      //% "This is not an image"
      return qtTrId("compress.failure.notAPicture");
    case PictureError::TooLarge:
      //% "The image is too large"
      return qtTrId("compress.failure.tooLarge");
    case PictureError::Unsupported:
      //% "This kind of image is not supported"
      return qtTrId("compress.failure.unsupported");
    case PictureError::Animated:
      //% "Animations and pages can only keep their format and size"
      return qtTrId("compress.failure.animated");
    case PictureError::Damaged:
      //% "The file is damaged"
      return qtTrId("compress.failure.damaged");
    case PictureError::OutOfMemory:
      //% "There is not enough memory"
      return qtTrId("compress.failure.outOfMemory");
    case PictureError::CannotEncode:
      //% "The image does not fit this format"
      return qtTrId("compress.failure.cannotEncode");
    case PictureError::DiskFull:
      //% "The disk is full"
      return qtTrId("compress.failure.diskFull");
    case PictureError::WriteFailed:
      //% "The result could not be written"
      return qtTrId("compress.failure.writeFailed");
    case PictureError::Cancelled:
      return qtTrId("compress.row.cancelled");
  }
  return {};
}

QString name(const CompressionItem& item) {
  return item.sourceURL.empty() ? QString::fromStdString(item.displayName) : textFrom(item.sourceURL.filename());
}

QString detail(const CompressionItem& item) {
  if (item.failure) return failure(*item.failure);
  const QString type = item.sourceUTType
                           ? QString::fromLatin1(nameOf(*item.sourceUTType).data(),
                                                 static_cast<qsizetype>(nameOf(*item.sourceUTType).size()))
                           : QString();
  return joined({pixels(item.pixelSize), type, folderText(item)});
}

QString sizes(const CompressionItem& item) {
  const bool isPasted = item.sourceURL.empty();
  const QString before = isPasted ? QString() : bytes(item.originalBytes);
  const bool isSuccess = item.state == CompressionState::done;
  if (!isSuccess || !item.lastOutput) return before;
  const QString after = bytes(item.lastOutput->bytes);
  //% "%1 → %2"
  return isPasted ? after : qtTrId("compress.row.sizes").arg(before, after);
}

QString state(const CompressionItem& item) {
  switch (item.state) {
    case CompressionState::waiting:
      return {};
    case CompressionState::running:
      //% "Compressing…"
      return qtTrId("compress.row.running");
    case CompressionState::done: {
      if (item.sourceURL.empty()) return pixels({item.lastOutput->width, item.lastOutput->height});
      const QString difference = change(item.originalBytes, item.lastOutput->bytes);
      //% "Same size"
      return difference.isEmpty() ? qtTrId("compress.row.same") : difference;
    }
    case CompressionState::unchanged:
      return unchangedText(item);
    case CompressionState::failed:
      //% "Failed"
      return qtTrId("compress.row.failed");
    case CompressionState::cancelled:
      //% "Stopped"
      return qtTrId("compress.row.cancelled");
  }
  return {};
}

QString spoken(const CompressionItem& item) {
  QStringList parts{name(item)};
  for (const QString& part : {state(item), sizes(item), detail(item)}) {
    if (!part.isEmpty()) parts << part;
  }
  return parts.join(QStringLiteral(", "));
}

QString formatBadge(const CompressSettings& settings, bool usesQuality) {
  QString format;
  switch (settings.format()) {
    case CompressFormat::original:
      //% "Original"
      format = qtTrId("compress.format.original");
      break;
    case CompressFormat::jpeg:
      format = QStringLiteral("JPEG");
      break;
    case CompressFormat::png:
      format = QStringLiteral("PNG");
      break;
    case CompressFormat::webp:
      format = QStringLiteral("WebP");
      break;
  }
  //% "%1%"
  return usesQuality ? format + u' ' + qtTrId("compress.quality.percent").arg(settings.quality()) : format;
}

QString sizeBadge(const CompressSettings& settings) {
  const auto edge = maxEdgeOf(settings.resize(), settings.customEdge());
  //% "Full size"
  if (!edge) return qtTrId("compress.badge.fullSize");
  //% "At most %1 px"
  return qtTrId("compress.badge.maxEdge").arg(*edge);
}

QString outputBadge(const CompressSettings& settings) {
  //% "Source folder"
  if (settings.outputMode() == CompressOutputMode::sourceFolder) return qtTrId("compress.badge.sourceFolder");
  return QFileInfo(settings.outputFolder()).fileName();
}

}  // namespace vellora::compressorText
