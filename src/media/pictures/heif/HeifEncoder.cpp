#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

#include "media/pictures/heif/HeifHandles.h"

namespace vellora::heif {
namespace {

/// From this quality on, colors keep the resolution of the brightness, as colored text needs.
constexpr int fullChromaQuality = 90;

heif_compression_format formatOf(PictureType type) {
  return type == PictureType::Avif ? heif_compression_AV1 : heif_compression_HEVC;
}

/// What 16-bit samples become: HEIC is shown with 10 bits everywhere, and AV1 encoders of libheif fail at 10.
int deepBitsOf(PictureType type) {
  return type == PictureType::Avif ? 12 : 10;
}

PictureFailure failureOf(const heif_error& error) {
  if (error.code == heif_error_Memory_allocation_error) return {PictureError::OutOfMemory};
  return {PictureError::CannotEncode, error.message == nullptr ? std::string() : error.message};
}

bool isCancelled(const WriteOptions& options) {
  return options.isCancelled && options.isCancelled();
}

/// A row of the raster as red, green, blue and maybe alpha; 16-bit samples come as ones of `bits`.
template <class Sample>
void writeRow(const Raster& raster, int y, int bits, Sample* target) {
  const auto* source = reinterpret_cast<const Sample*>(raster.row(y));
  const bool isGrey = samplesOf(raster.layout()) < 3, withAlpha = hasAlpha(raster.layout());
  const auto level = [highest = (1U << bits) - 1](Sample sample) {
    if constexpr (sizeof(Sample) == 1) return sample;
    return static_cast<Sample>((sample * highest + 32767U) / 65535U);
  };
  for (int x = 0; x < raster.width(); ++x) {
    for (int part = 0; part < 3; ++part) *target++ = level(isGrey ? *source : *source++);
    if (isGrey) ++source;
    if (withAlpha) *target++ = level(*source++);
  }
}

Result<Image, PictureFailure> imageOf(const Raster& raster, PictureType type) {
  const bool isDeep = raster.bitsPerSample() == 16, withAlpha = hasAlpha(raster.layout());
  const int bits = isDeep ? deepBitsOf(type) : 8;
  heif_chroma chroma = withAlpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB;
  if (isDeep) chroma = withAlpha ? heif_chroma_interleaved_RRGGBBAA_LE : heif_chroma_interleaved_RRGGBB_LE;
  heif_image* created = nullptr;
  heif_error error = heif_image_create(raster.width(), raster.height(), heif_colorspace_RGB, chroma, &created);
  Image image(created);
  if (error.code == heif_error_Ok) {
    error = heif_image_add_plane(created, heif_channel_interleaved, raster.width(), raster.height(), bits);
  }
  if (error.code != heif_error_Ok) return failure(failureOf(error));
  int stride = 0;
  std::uint8_t* plane = heif_image_get_plane(created, heif_channel_interleaved, &stride);
  if (plane == nullptr) return refused(PictureError::OutOfMemory);
  for (int y = 0; y < raster.height(); ++y, plane += stride) {
    if (isDeep) {
      writeRow(raster, y, bits, reinterpret_cast<std::uint16_t*>(plane));
    } else {
      writeRow(raster, y, bits, plane);
    }
  }
  return image;
}

/// sRGB in the numbers of ITU-T H.273, as YCbCr, or as it is where nothing may be lost.
Nclx srgb(bool isLossless) {
  Nclx nclx(heif_nclx_color_profile_alloc());
  if (!nclx) return nclx;
  nclx->color_primaries = heif_color_primaries_ITU_R_BT_709_5;
  nclx->transfer_characteristics = heif_transfer_characteristic_IEC_61966_2_1;
  nclx->matrix_coefficients = isLossless ? heif_matrix_coefficients_RGB_GBR : heif_matrix_coefficients_ITU_R_BT_601_6;
  nclx->full_range_flag = 1;
  return nclx;
}

void configure(heif_encoder* encoder, const WriteOptions& options) {
  bool keepsChroma = true;
  if (options.quality) {
    const int quality = static_cast<int>(std::lround(std::clamp(*options.quality, 0.0, 1.0) * 100));
    heif_encoder_set_lossy_quality(encoder, quality);
    keepsChroma = quality >= fullChromaQuality;
  } else {
    heif_encoder_set_lossless(encoder, 1);
  }
  // Encoders differ in their parameters: what one does not know, it refuses, and nothing is lost.
  heif_encoder_set_parameter_string(encoder, "chroma", keepsChroma ? "444" : "420");
  heif_encoder_set_parameter_integer(encoder, "threads", std::clamp(options.threads, 1, 16));
}

heif_error append(heif_context*, const void* data, std::size_t size, void* target) {
  auto& file = *static_cast<std::vector<std::byte>*>(target);
  try {
    file.insert(file.end(), static_cast<const std::byte*>(data), static_cast<const std::byte*>(data) + size);
  } catch (const std::bad_alloc&) {
    return {heif_error_Memory_allocation_error, heif_suberror_Unspecified, "out of memory"};
  }
  return {heif_error_Ok, heif_suberror_Unspecified, "done"};
}

heif_error addMetadata(heif_context* context, const heif_image_handle* handle, const PictureMetadata& metadata) {
  heif_error error{heif_error_Ok, heif_suberror_Unspecified, "done"};
  if (!metadata.exif.empty()) {
    error =
        heif_context_add_exif_metadata(context, handle, metadata.exif.data(), static_cast<int>(metadata.exif.size()));
  }
  if (error.code == heif_error_Ok && !metadata.xmp.empty()) {
    error = heif_context_add_XMP_metadata(context, handle, metadata.xmp.data(), static_cast<int>(metadata.xmp.size()));
  }
  return error;
}

}  // namespace

bool canEncode(PictureType type) {
  if (type != PictureType::Heic && type != PictureType::Avif) return false;
  return heif_have_encoder_for_format(formatOf(type)) != 0;
}

Result<std::vector<std::byte>, PictureFailure> encode(const Raster& raster, const PictureMetadata& metadata,
                                                      PictureType type, const WriteOptions& options) {
  if (raster.isNull()) return refused(PictureError::CannotEncode, "no pixels");
  if (isCancelled(options)) return refused(PictureError::Cancelled);
  const Context context(heif_context_alloc());
  if (!context) return refused(PictureError::OutOfMemory);
  heif_encoder* found = nullptr;
  heif_error error = heif_context_get_encoder_for_format(context.get(), formatOf(type), &found);
  const Encoder encoder(found);
  if (error.code != heif_error_Ok) return failure(failureOf(error));
  configure(encoder.get(), options);
  const auto image = imageOf(raster, type);
  if (!image) return failure(image.error());
  const Nclx nclx = srgb(!options.quality.has_value());
  const EncodingOptions encoding(heif_encoding_options_alloc());
  if (!nclx || !encoding) return refused(PictureError::OutOfMemory);
  encoding->output_nclx_profile = nclx.get();
  if (metadata.profile.empty()) {
    heif_image_set_nclx_color_profile(image->get(), nclx.get());
  } else {
    heif_image_set_raw_color_profile(image->get(), "prof", metadata.profile.data(), metadata.profile.size());
  }
  heif_image_handle* encoded = nullptr;
  error = heif_context_encode_image(context.get(), image->get(), encoder.get(), encoding.get(), &encoded);
  const Handle handle(encoded);
  if (error.code != heif_error_Ok) return failure(failureOf(error));
  if (isCancelled(options)) return refused(PictureError::Cancelled);
  error = addMetadata(context.get(), handle.get(), metadata);
  if (error.code != heif_error_Ok) return failure(failureOf(error));
  std::vector<std::byte> file;
  heif_writer writer{1, append};
  error = heif_context_write(context.get(), &writer, &file);
  if (error.code != heif_error_Ok) return failure(failureOf(error));
  return file;
}

}  // namespace vellora::heif
