#include "media/codecs/heif/HeifModule.h"

#include <libheif/heif.h>

#include <memory>
#include <new>
#include <vector>

namespace {

template <auto free>
struct Freed {
  template <class T>
  void operator()(T* object) const {
    free(object);
  }
};
using Context = std::unique_ptr<heif_context, Freed<heif_context_free>>;
using Handle = std::unique_ptr<heif_image_handle, Freed<heif_image_handle_release>>;
using Image = std::unique_ptr<heif_image, Freed<heif_image_release>>;
using Options = std::unique_ptr<heif_decoding_options, Freed<heif_decoding_options_free>>;
using Nclx = std::unique_ptr<heif_color_profile_nclx, Freed<heif_nclx_color_profile_free>>;

struct Decoded {
  Image image;
  std::vector<uint8_t> profile;
};

constexpr size_t maximumProfileBytes = size_t{16} << 20;

VelloraHeifStatus statusOf(const heif_error& error) {
  switch (error.code) {
    case heif_error_Ok:
      return VelloraHeifDone;
    case heif_error_Unsupported_filetype:
    case heif_error_Unsupported_feature:
    case heif_error_Plugin_loading_error:
      return VelloraHeifUnsupported;
    case heif_error_Memory_allocation_error:
      return error.subcode == heif_suberror_Security_limit_exceeded ? VelloraHeifTooLarge : VelloraHeifOutOfMemory;
    default:
      return VelloraHeifDamaged;
  }
}

void readColors(const heif_image_handle* handle, Decoded& decoded, VelloraHeifPicture& picture) {
  const size_t bytes = heif_image_handle_get_raw_color_profile_size(handle);
  if (bytes > 0 && bytes <= maximumProfileBytes) {
    decoded.profile.resize(bytes);
    if (heif_image_handle_get_raw_color_profile(handle, decoded.profile.data()).code != heif_error_Ok) {
      decoded.profile.clear();
    }
  }
  picture.profile = decoded.profile.empty() ? nullptr : decoded.profile.data();
  picture.profileBytes = decoded.profile.size();
  heif_color_profile_nclx* found = nullptr;
  if (heif_image_handle_get_nclx_color_profile(handle, &found).code != heif_error_Ok || found == nullptr) return;
  const Nclx nclx(found);
  if (nclx->color_primaries == heif_color_primaries_SMPTE_EG_432_1) picture.primaries = VelloraHeifPrimariesDisplayP3;
}

VelloraHeifStatus decode(const uint8_t* data, size_t size, size_t maximumPixels, int maximumEdge,
                         VelloraHeifPicture& picture) {
  const Context context(heif_context_alloc());
  if (!context) return VelloraHeifOutOfMemory;
  heif_context_set_maximum_image_size_limit(context.get(), maximumEdge);
  heif_error error = heif_context_read_from_memory_without_copy(context.get(), data, size, nullptr);
  if (error.code != heif_error_Ok) return statusOf(error);
  heif_image_handle* primary = nullptr;
  error = heif_context_get_primary_image_handle(context.get(), &primary);
  if (error.code != heif_error_Ok) return statusOf(error);
  const Handle handle(primary);

  const int width = heif_image_handle_get_width(handle.get()), height = heif_image_handle_get_height(handle.get());
  if (width <= 0 || height <= 0) return VelloraHeifDamaged;
  if (width > maximumEdge || height > maximumEdge) return VelloraHeifTooLarge;
  if (static_cast<size_t>(width) * static_cast<size_t>(height) > maximumPixels) return VelloraHeifTooLarge;

  const Options options(heif_decoding_options_alloc());
  if (!options) return VelloraHeifOutOfMemory;
  options->convert_hdr_to_8bit = 1;
  heif_image* raw = nullptr;
  error = heif_decode_image(handle.get(), &raw, heif_colorspace_RGB, heif_chroma_interleaved_RGBA, options.get());
  if (error.code != heif_error_Ok) return statusOf(error);
  auto decoded = std::make_unique<Decoded>();
  decoded->image.reset(raw);
  readColors(handle.get(), *decoded, picture);
  // What was decoded counts, not what the header promised.
  picture.width = heif_image_get_width(raw, heif_channel_interleaved);
  picture.height = heif_image_get_height(raw, heif_channel_interleaved);
  picture.pixels = heif_image_get_plane_readonly(raw, heif_channel_interleaved, &picture.stride);
  picture.hasAlpha = heif_image_handle_has_alpha_channel(handle.get());
  picture.isPremultiplied = heif_image_handle_is_premultiplied_alpha(handle.get());
  if (picture.pixels == nullptr || picture.width <= 0 || picture.height <= 0) return VelloraHeifDamaged;
  if (heif_image_get_bits_per_pixel(raw, heif_channel_interleaved) != 32) return VelloraHeifUnsupported;
  picture.owner = decoded.release();
  return VelloraHeifDone;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int vellora_heif_decode(const uint8_t* data, size_t size,
                                                                          size_t maximumPixels, int maximumEdge,
                                                                          VelloraHeifPicture* picture) {
  *picture = {};
  try {
    return decode(data, size, maximumPixels, maximumEdge, *picture);
  } catch (const std::bad_alloc&) {
    return VelloraHeifOutOfMemory;
  }
}

extern "C" __attribute__((visibility("default"))) void vellora_heif_release(VelloraHeifPicture* picture) {
  delete static_cast<Decoded*>(picture->owner);
  *picture = {};
}
