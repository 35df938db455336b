#include "media/pictures/heif/HevcDecoder.h"

#include <libde265/de265.h>
#include <libheif/heif.h>
#include <libheif/heif_plugin.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <limits>

#include "media/pictures/heif/HeifHandles.h"

namespace vellora::heif {
namespace {

constexpr heif_error fine{heif_error_Ok, heif_suberror_Unspecified, "Success"};
constexpr heif_error corrupt{heif_error_Decoder_plugin_error, heif_suberror_Unspecified, "corrupt HEVC data"};
constexpr heif_error exhausted{heif_error_Memory_allocation_error, heif_suberror_Unspecified, "out of memory"};
constexpr heif_error unsupported{heif_error_Unsupported_feature, heif_suberror_Unsupported_data_version,
                                 "unusual kind of HEVC"};

/// More than the 100 of libheif's own decoder.
constexpr int priority = 200;

/// Whether a warning costs nothing of the picture.
bool isHarmless(de265_error warning) {
  return warning == DE265_WARNING_NO_WPP_CANNOT_USE_MULTITHREADING ||
         warning == DE265_WARNING_NUMBER_OF_THREADS_LIMITED_TO_MAXIMUM ||
         warning == DE265_WARNING_SPS_MISSING_CANNOT_DECODE_SEI;
}

/// The NAL units of one picture, each behind its length of four bytes (ISO/IEC 14496-15, 8.3).
heif_error push(void* decoder, const void* data, std::size_t size) {
  const FileBytes units(static_cast<const std::byte*>(data), size);
  for (std::size_t at = 0; at < size;) {
    if (size - at < 4) return corrupt;
    const std::size_t length = big32(units, at);
    at += 4;
    if (length > size - at || length > std::numeric_limits<int>::max()) return corrupt;
    const de265_error error = de265_push_NAL(decoder, units.data() + at, static_cast<int>(length), 0, nullptr);
    if (error != DE265_OK) return error == DE265_ERROR_OUT_OF_MEMORY ? exhausted : corrupt;
    at += length;
  }
  return fine;
}

/// The picture of what was pushed; null when libde265 found anything amiss.
const de265_image* decodedPicture(de265_decoder_context* decoder) {
  if (de265_flush_data(decoder) != DE265_OK) return nullptr;
  const de265_image* picture = nullptr;
  for (int more = 1; more != 0 && picture == nullptr;) {
    if (de265_decode(decoder, &more) != DE265_OK) return nullptr;
    picture = de265_get_next_picture(decoder);
  }
  for (auto warning = de265_get_warning(decoder); warning != DE265_OK; warning = de265_get_warning(decoder)) {
    if (!isHarmless(warning)) return nullptr;
  }
  return picture;
}

heif_error copyPlane(const de265_image* picture, int plane, heif_image* image, heif_channel channel) {
  const int width = de265_get_image_width(picture, plane), height = de265_get_image_height(picture, plane);
  const int bits = de265_get_bits_per_pixel(picture, plane);
  int from = 0, to = 0;
  const std::uint8_t* source = de265_get_image_plane(picture, plane, &from);
  if (width <= 0 || height <= 0 || bits < 8 || bits > 16 || source == nullptr) return unsupported;
  const heif_error error = heif_image_add_plane(image, channel, width, height, bits);
  if (error.code != heif_error_Ok) return error;
  std::uint8_t* target = heif_image_get_plane(image, channel, &to);
  const auto bytes = static_cast<std::size_t>(width) * (bits > 8 ? 2 : 1);
  for (int y = 0; y < height; ++y) {
    std::memcpy(target + std::ptrdiff_t{y} * to, source + std::ptrdiff_t{y} * from, bytes);
  }
  return fine;
}

heif_error setColors(const de265_image* picture, heif_image* image) {
  const Nclx nclx(heif_nclx_color_profile_alloc());
  if (!nclx) return exhausted;
  nclx->full_range_flag = static_cast<std::uint8_t>(de265_get_image_full_range_flag(picture));
  // Numbers that libheif does not know are refused by the setters, which leaves "unspecified".
  heif_nclx_color_profile_set_color_primaries(nclx.get(),
                                              static_cast<std::uint16_t>(de265_get_image_colour_primaries(picture)));
  heif_nclx_color_profile_set_transfer_characteristics(
      nclx.get(), static_cast<std::uint16_t>(de265_get_image_transfer_characteristics(picture)));
  heif_nclx_color_profile_set_matrix_coefficients(
      nclx.get(), static_cast<std::uint16_t>(de265_get_image_matrix_coefficients(picture)));
  return heif_image_set_nclx_color_profile(image, nclx.get());
}

heif_error convert(const de265_image* picture, heif_image** result) {
  struct Kind {
    heif_colorspace space;
    heif_chroma chroma;
  };
  constexpr std::array kinds{Kind{heif_colorspace_monochrome, heif_chroma_monochrome},
                             Kind{heif_colorspace_YCbCr, heif_chroma_420}, Kind{heif_colorspace_YCbCr, heif_chroma_422},
                             Kind{heif_colorspace_YCbCr, heif_chroma_444}};
  const auto chroma = static_cast<std::size_t>(de265_get_chroma_format(picture));
  if (chroma >= kinds.size()) return unsupported;
  const Kind kind = kinds[chroma];
  heif_image* made = nullptr;
  heif_error error = heif_image_create(de265_get_image_width(picture, 0), de265_get_image_height(picture, 0),
                                       kind.space, kind.chroma, &made);
  if (error.code != heif_error_Ok) return error;
  Image image(made);
  constexpr std::array channels{heif_channel_Y, heif_channel_Cb, heif_channel_Cr};
  const int planes = kind.chroma == heif_chroma_monochrome ? 1 : 3;
  for (int plane = 0; plane < planes && error.code == heif_error_Ok; ++plane) {
    error = copyPlane(picture, plane, image.get(), channels[static_cast<std::size_t>(plane)]);
  }
  if (error.code == heif_error_Ok) error = setColors(picture, image.get());
  if (error.code == heif_error_Ok) *result = image.release();
  return error;
}

heif_error decode(void* decoder, heif_image** result) {
  *result = nullptr;
  const de265_image* picture = decodedPicture(decoder);
  return picture == nullptr ? corrupt : convert(picture, result);
}

heif_error create(void** decoder) {
  // Without worker threads: several pictures are decoded at once already.
  *decoder = de265_new_decoder();
  if (*decoder == nullptr) return exhausted;
  return fine;
}

}  // namespace

void useStrictHevcDecoder() {
  static const heif_decoder_plugin plugin{
      .plugin_api_version = 3,
      .get_plugin_name = [] { return "strict HEVC decoder"; },
      .init_plugin = [] { de265_init(); },
      .deinit_plugin = [] { de265_free(); },
      .does_support_format =
          [](heif_compression_format format) { return format == heif_compression_HEVC ? priority : 0; },
      .new_decoder = create,
      .free_decoder = [](void* decoder) { de265_free_decoder(decoder); },
      .push_data = push,
      .decode_image = decode,
      .set_strict_decoding = [](void*, int) {},
      .id_name = "vellora-hevc",
  };
  static const heif_error registered = heif_register_decoder_plugin(&plugin);
  static_cast<void>(registered);
}

}  // namespace vellora::heif
