#pragma once

#include <chrono>
#include <cstdint>

#include <QString>

#include "editor/compressor/CompressSettings.h"
#include "editor/compressor/CompressionItem.h"

/// What the compressor's window says about pictures and runs, in the person's language.
namespace vellora::compressorText {

/// "4.1 MB"
QString bytes(std::uintmax_t bytes);
/// "71 % smaller", "3 % larger"; empty without a difference
QString change(std::uintmax_t before, std::uintmax_t after);
/// "4032 × 3024"; empty when not known
QString pixels(ImageCompressor::Size size);
/// "1 min 20 s left"
QString remaining(std::chrono::milliseconds time);
/// A sentence without a full stop.
QString failure(const PictureFailure& failure);

QString name(const CompressionItem& item);
/// The folder and size in pixels, or why the picture failed.
QString detail(const CompressionItem& item);
/// "4.1 MB → 1.2 MB"
QString sizes(const CompressionItem& item);
/// What became of it: "71 % smaller".
QString state(const CompressionItem& item);
/// Everything about a row in one text, for screen readers.
QString spoken(const CompressionItem& item);

/// The settings in short, as the badges show them.
QString formatBadge(const CompressSettings& settings, bool usesQuality);
QString sizeBadge(const CompressSettings& settings);
QString outputBadge(const CompressSettings& settings);

}  // namespace vellora::compressorText
