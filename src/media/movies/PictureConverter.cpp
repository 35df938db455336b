#include "media/movies/PictureConverter.h"

extern "C" {
#include <libavutil/display.h>
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vellora {
namespace {

constexpr AVPixelFormat targetFormat = AV_PIX_FMT_YUV420P;
/// Sizes below are made larger; encoders refuse some of them.
constexpr int leastEdge = 16;

int quarterTurnsOf(const AVStream& stream) {
  std::size_t bytes = 0;
  const auto* matrix = av_stream_get_side_data(&stream, AV_PKT_DATA_DISPLAYMATRIX, &bytes);
  if (matrix == nullptr || bytes < 9 * sizeof(std::int32_t)) return 0;
  const double degrees = -av_display_rotation_get(reinterpret_cast<const std::int32_t*>(matrix));
  if (std::isnan(degrees)) return 0;
  return (static_cast<int>(std::lround(degrees / 90)) % 4 + 4) % 4;
}

bool isRgb(int format) {
  const AVPixFmtDescriptor* kind = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(format));
  return kind != nullptr && (kind->flags & (AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL)) != 0;
}

bool hasFullRange(const AVFrame& picture) {
  switch (picture.format) {
    case AV_PIX_FMT_YUVJ420P:
    case AV_PIX_FMT_YUVJ422P:
    case AV_PIX_FMT_YUVJ444P:
    case AV_PIX_FMT_YUVJ440P:
    case AV_PIX_FMT_YUVJ411P:
      return true;
    default:
      return picture.color_range == AVCOL_RANGE_JPEG || isRgb(picture.format);
  }
}

PictureSize fitted(int width, int height) {
  const double pixels = static_cast<double>(width) * height;
  const double factor = std::min({1.0, static_cast<double>(PictureConverter::mostEdge) / std::max(width, height),
                                  std::sqrt(PictureConverter::mostPixels / pixels)});
  const auto even = [&](int edge) { return std::max(static_cast<int>(edge * factor) & ~1, leastEdge); };
  return {even(width), even(height)};
}

FramePointer newPicture(PictureSize size) {
  FramePointer picture(av_frame_alloc());
  if (picture == nullptr) return nullptr;
  picture->format = targetFormat;
  picture->width = size.width;
  picture->height = size.height;
  return av_frame_get_buffer(picture.get(), 0) < 0 ? nullptr : std::move(picture);
}

/// One plane turned clockwise; `width` and `height` are those of the target.
void turnPlane(const std::uint8_t* from, int fromStride, std::uint8_t* to, int toStride, PictureSize target,
               int quarterTurns) {
  for (int y = 0; y < target.height; ++y) {
    std::uint8_t* row = to + std::ptrdiff_t{y} * toStride;
    for (int x = 0; x < target.width; ++x) {
      switch (quarterTurns) {
        case 1:
          row[x] = from[std::ptrdiff_t{target.width - 1 - x} * fromStride + y];
          break;
        case 2:
          row[x] = from[std::ptrdiff_t{target.height - 1 - y} * fromStride + target.width - 1 - x];
          break;
        default:
          row[x] = from[std::ptrdiff_t{x} * fromStride + target.height - 1 - y];
          break;
      }
    }
  }
}

}  // namespace

PictureConverter::PictureConverter(const AVStream& stream)
    : scaled_(fitted(stream.codecpar->width, stream.codecpar->height)),
      aspectRatio_(stream.codecpar->sample_aspect_ratio),
      quarterTurns_(quarterTurnsOf(stream)) {
  const AVCodecParameters& codec = *stream.codecpar;
  if (aspectRatio_.num <= 0 || aspectRatio_.den <= 0) aspectRatio_ = {0, 1};
  if (!isRgb(codec.format)) colors_ = {codec.color_space, codec.color_primaries, codec.color_trc};
}

PictureSize PictureConverter::size() const {
  return quarterTurns_ % 2 == 0 ? scaled_ : PictureSize{scaled_.height, scaled_.width};
}

AVRational PictureConverter::aspectRatio() const {
  return quarterTurns_ % 2 == 0 || aspectRatio_.num == 0 ? aspectRatio_ : av_inv_q(aspectRatio_);
}

FramePointer PictureConverter::convert(const AVFrame& picture) {
  const bool fits = picture.format == targetFormat && picture.width == scaled_.width &&
                    picture.height == scaled_.height && !hasFullRange(picture);
  FramePointer upright = fits ? FramePointer(av_frame_clone(&picture)) : scale(picture);
  if (upright != nullptr && quarterTurns_ != 0) upright = turn(*upright);
  return upright;
}

FramePointer PictureConverter::scale(const AVFrame& picture) {
  const auto format = static_cast<AVPixelFormat>(picture.format);
  if (picture.width <= 0 || picture.height <= 0 || sws_isSupportedInput(format) == 0) return nullptr;
  scaler_.reset(sws_getCachedContext(scaler_.release(), picture.width, picture.height, format, scaled_.width,
                                     scaled_.height, targetFormat, SWS_BICUBIC, nullptr, nullptr, nullptr));
  if (scaler_ == nullptr) return nullptr;
  const int* target = sws_getCoefficients(colors_.matrix);
  const int* source = isRgb(picture.format) ? sws_getCoefficients(SWS_CS_DEFAULT) : target;
  sws_setColorspaceDetails(scaler_.get(), source, hasFullRange(picture) ? 1 : 0, target, 0, 0, 1 << 16, 1 << 16);
  FramePointer scaled = newPicture(scaled_);
  if (scaled == nullptr) return nullptr;
  if (sws_scale(scaler_.get(), picture.data, picture.linesize, 0, picture.height, scaled->data, scaled->linesize) < 0) {
    return nullptr;
  }
  return scaled;
}

FramePointer PictureConverter::turn(const AVFrame& picture) const {
  FramePointer turned = newPicture(size());
  if (turned == nullptr) return nullptr;
  for (std::size_t plane = 0; plane < 3; ++plane) {
    const int part = plane == 0 ? 1 : 2;
    turnPlane(picture.data[plane], picture.linesize[plane], turned->data[plane], turned->linesize[plane],
              {turned->width / part, turned->height / part}, quarterTurns_);
  }
  return turned;
}

}  // namespace vellora
