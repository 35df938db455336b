#include <jxl/encode.h>
#include <jxl/thread_parallel_runner.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "media/pictures/jxl/JxlCoding.h"

namespace vellora::jxl {
namespace {

using Encoder = std::unique_ptr<JxlEncoder, void (*)(JxlEncoder*)>;
using Runner = std::unique_ptr<void, void (*)(void*)>;

/// How far libjxl may go from the picture, in just noticeable differences, for it to look about as good as JPEG of
/// this quality: the mapping of libjxl's own tools.
float distanceOf(double quality) {
  const double percent = std::clamp(quality, 0.0, 1.0) * 100;
  if (percent >= 30) return static_cast<float>(0.1 + (100 - percent) * 0.09);
  return static_cast<float>(6.4 + std::pow(2.5, (30 - percent) / 5) / 6.25);
}

JxlBasicInfo basicInfoOf(const Raster& raster, bool keepsColors) {
  JxlBasicInfo info;
  JxlEncoderInitBasicInfo(&info);
  info.xsize = static_cast<std::uint32_t>(raster.width());
  info.ysize = static_cast<std::uint32_t>(raster.height());
  info.bits_per_sample = static_cast<std::uint32_t>(raster.bitsPerSample());
  info.num_color_channels = samplesOf(raster.layout()) < 3 ? 1 : 3;
  if (hasAlpha(raster.layout())) {
    info.num_extra_channels = 1;
    info.alpha_bits = info.bits_per_sample;
  }
  info.uses_original_profile = keepsColors ? JXL_TRUE : JXL_FALSE;
  return info;
}

/// Exif comes behind four bytes that say where its TIFF structure begins.
bool addBlocks(JxlEncoder* encoder, const PictureMetadata& metadata) {
  if (metadata.exif.empty() && metadata.xmp.empty()) return true;
  if (JxlEncoderUseBoxes(encoder) != JXL_ENC_SUCCESS) return false;
  if (!metadata.exif.empty()) {
    std::vector<std::uint8_t> block(4);
    block.insert(block.end(), metadata.exif.begin(), metadata.exif.end());
    if (JxlEncoderAddBox(encoder, "Exif", block.data(), block.size(), JXL_FALSE) != JXL_ENC_SUCCESS) return false;
  }
  if (!metadata.xmp.empty() &&
      JxlEncoderAddBox(encoder, "xml ", metadata.xmp.data(), metadata.xmp.size(), JXL_FALSE) != JXL_ENC_SUCCESS) {
    return false;
  }
  JxlEncoderCloseBoxes(encoder);
  return true;
}

bool setColors(JxlEncoder* encoder, const PictureMetadata& metadata, bool isGrey) {
  if (!metadata.profile.empty() &&
      JxlEncoderSetICCProfile(encoder, metadata.profile.data(), metadata.profile.size()) == JXL_ENC_SUCCESS) {
    return true;
  }
  JxlColorEncoding colors;
  JxlColorEncodingSetToSRGB(&colors, isGrey ? JXL_TRUE : JXL_FALSE);
  return JxlEncoderSetColorEncoding(encoder, &colors) == JXL_ENC_SUCCESS;
}

bool addPixels(JxlEncoder* encoder, const Raster& raster, const WriteOptions& options) {
  auto* settings = JxlEncoderFrameSettingsCreate(encoder, nullptr);
  if (settings == nullptr) return false;
  const auto set = options.quality ? JxlEncoderSetFrameDistance(settings, distanceOf(*options.quality))
                                   : JxlEncoderSetFrameLossless(settings, JXL_TRUE);
  if (set != JXL_ENC_SUCCESS) return false;
  const JxlPixelFormat format{static_cast<std::uint32_t>(samplesOf(raster.layout())),
                              raster.bitsPerSample() == 16 ? JXL_TYPE_UINT16 : JXL_TYPE_UINT8, JXL_NATIVE_ENDIAN, 0};
  return JxlEncoderAddImageFrame(settings, &format, raster.row(0), raster.bytes()) == JXL_ENC_SUCCESS;
}

}  // namespace

Result<std::vector<std::byte>, PictureFailure> encode(const Raster& raster, const PictureMetadata& metadata,
                                                      const WriteOptions& options) {
  const auto isCancelled = [&options] { return options.isCancelled && options.isCancelled(); };
  if (raster.isNull()) return refused(PictureError::CannotEncode, "no pixels");
  if (isCancelled()) return refused(PictureError::Cancelled);
  // The runner has to outlive the encoder.
  const Runner runner(
      options.threads > 1 ? JxlThreadParallelRunnerCreate(nullptr, static_cast<std::size_t>(options.threads)) : nullptr,
      JxlThreadParallelRunnerDestroy);
  const Encoder encoder(JxlEncoderCreate(nullptr), JxlEncoderDestroy);
  if (!encoder) return refused(PictureError::OutOfMemory);
  if (runner) JxlEncoderSetParallelRunner(encoder.get(), JxlThreadParallelRunner, runner.get());
  const bool isGrey = samplesOf(raster.layout()) < 3;
  const JxlBasicInfo info = basicInfoOf(raster, !options.quality.has_value());
  JxlEncoderSetCodestreamLevel(encoder.get(), raster.bitsPerSample() == 16 && !options.quality ? 10 : 5);
  if (JxlEncoderSetBasicInfo(encoder.get(), &info) != JXL_ENC_SUCCESS || !setColors(encoder.get(), metadata, isGrey) ||
      !addBlocks(encoder.get(), metadata) || !addPixels(encoder.get(), raster, options)) {
    return refused(PictureError::CannotEncode, "JPEG XL error " + std::to_string(JxlEncoderGetError(encoder.get())));
  }
  JxlEncoderCloseInput(encoder.get());

  std::vector<std::byte> file(std::size_t{1} << 16);
  std::size_t used = 0;
  for (;;) {
    auto* next = reinterpret_cast<std::uint8_t*>(file.data()) + used;
    std::size_t room = file.size() - used;
    const auto status = JxlEncoderProcessOutput(encoder.get(), &next, &room);
    used = file.size() - room;
    if (isCancelled()) return refused(PictureError::Cancelled);
    if (status == JXL_ENC_SUCCESS) break;
    if (status != JXL_ENC_NEED_MORE_OUTPUT) {
      return refused(PictureError::CannotEncode, "JPEG XL error " + std::to_string(JxlEncoderGetError(encoder.get())));
    }
    file.resize(file.size() * 2);
  }
  file.resize(used);
  return file;
}

}  // namespace vellora::jxl
