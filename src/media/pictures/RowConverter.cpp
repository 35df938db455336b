#include "media/pictures/RowConverter.h"

#include <algorithm>

namespace vellora {
namespace {

std::uint8_t onWhite(std::uint32_t sample, std::uint32_t alpha) {
  return static_cast<std::uint8_t>((sample * alpha + 255 * (255 - alpha) + 127) / 255);
}

template <int samplesIn, int samplesOut>
void convertPixels(const std::uint8_t* source, std::uint8_t* target, int pixels) {
  constexpr bool isGrey = samplesIn < 3, hadAlpha = samplesIn % 2 == 0, hasAlpha = samplesOut % 2 == 0;
  constexpr int colors = samplesOut < 3 ? 1 : 3;
  for (int x = 0; x < pixels; ++x, source += samplesIn, target += samplesOut) {
    const std::uint32_t alpha = hadAlpha ? source[samplesIn - 1] : 255;
    for (int i = 0; i < colors; ++i) {
      const std::uint8_t sample = source[isGrey ? 0 : i];
      target[i] = hadAlpha && !hasAlpha ? onWhite(sample, alpha) : sample;
    }
    if constexpr (hasAlpha) target[colors] = static_cast<std::uint8_t>(alpha);
  }
}

template <int samplesIn>
void convertRow(const std::uint8_t* source, std::uint8_t* target, int pixels, RasterLayout layout) {
  switch (layout) {
    case RasterLayout::Grey:
      return convertPixels<samplesIn, 1>(source, target, pixels);
    case RasterLayout::GreyAlpha:
      return convertPixels<samplesIn, 2>(source, target, pixels);
    case RasterLayout::Rgb:
      return convertPixels<samplesIn, 3>(source, target, pixels);
    case RasterLayout::Rgba:
      return convertPixels<samplesIn, 4>(source, target, pixels);
  }
}

}  // namespace

RowConverter::RowConverter(const Raster& raster, RasterLayout layout) : raster_(raster), layout_(layout) {
  const auto width = static_cast<std::size_t>(raster.width());
  if (raster.bitsPerSample() == 16) narrowed_.resize(width * static_cast<std::size_t>(samplesOf(raster.layout())));
  if (raster.layout() != layout) converted_.resize(width * static_cast<std::size_t>(samplesOf(layout)));
}

const std::uint8_t* RowConverter::row(int y) {
  const std::uint8_t* source = raster_.row(y);
  if (!narrowed_.empty()) {
    const auto* deep = reinterpret_cast<const std::uint16_t*>(source);
    std::transform(deep, deep + narrowed_.size(), narrowed_.begin(),
                   [](std::uint16_t sample) { return narrowedSample(sample); });
    source = narrowed_.data();
  }
  if (converted_.empty()) return source;
  convert(source);
  return converted_.data();
}

void RowConverter::convert(const std::uint8_t* source) {
  switch (raster_.layout()) {
    case RasterLayout::Grey:
      return convertRow<1>(source, converted_.data(), raster_.width(), layout_);
    case RasterLayout::GreyAlpha:
      return convertRow<2>(source, converted_.data(), raster_.width(), layout_);
    case RasterLayout::Rgb:
      return convertRow<3>(source, converted_.data(), raster_.width(), layout_);
    case RasterLayout::Rgba:
      return convertRow<4>(source, converted_.data(), raster_.width(), layout_);
  }
}

bool isOpaque(const Raster& raster) {
  if (!hasAlpha(raster.layout())) return true;
  const auto step = static_cast<std::size_t>(samplesOf(raster.layout()));
  const auto isSolid = [&](const auto* row, auto full) {
    for (std::size_t i = step - 1; i < step * static_cast<std::size_t>(raster.width()); i += step) {
      if (row[i] != full) return false;
    }
    return true;
  };
  for (int y = 0; y < raster.height(); ++y) {
    const bool isSolidRow = raster.bitsPerSample() == 16
                                ? isSolid(reinterpret_cast<const std::uint16_t*>(raster.row(y)), 65535)
                                : isSolid(raster.row(y), 255);
    if (!isSolidRow) return false;
  }
  return true;
}

std::optional<Raster> converted(const Raster& raster, RasterLayout layout) {
  if (raster.layout() == layout && raster.bitsPerSample() == 8) return raster;
  auto target = Raster::create(raster.width(), raster.height(), layout);
  if (!target) return std::nullopt;
  RowConverter rows(raster, layout);
  for (int y = 0; y < raster.height(); ++y) std::copy_n(rows.row(y), target->stride(), target->row(y));
  return target;
}

}  // namespace vellora
