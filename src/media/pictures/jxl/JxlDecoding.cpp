#include <jxl/decode.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#include "media/pictures/jxl/JxlCoding.h"

namespace vellora::jxl {
namespace {

constexpr std::size_t maximumBlockBytes = std::size_t{16} << 20;
constexpr int mostFrames = 100000;

using Decoder = std::unique_ptr<JxlDecoder, void (*)(JxlDecoder*)>;

PictureFailure damaged(const char* detail) {
  return {PictureError::Damaged, detail};
}

Decoder opened(FileBytes file, int events) {
  Decoder decoder(JxlDecoderCreate(nullptr), JxlDecoderDestroy);
  if (!decoder || JxlDecoderSubscribeEvents(decoder.get(), events) != JXL_DEC_SUCCESS) throw std::bad_alloc();
  JxlDecoderSetDecompressBoxes(decoder.get(), JXL_TRUE);
  JxlDecoderSetUnpremultiplyAlpha(decoder.get(), JXL_TRUE);
  JxlDecoderSetInput(decoder.get(), octets(file), file.size());
  return decoder;
}

/// What the header says; the decoder has just met it. Turned already: libjxl turns pixels by itself.
Result<PictureInfo, PictureFailure> infoFrom(JxlDecoder* decoder) {
  JxlBasicInfo basic;
  if (JxlDecoderGetBasicInfo(decoder, &basic) != JXL_DEC_SUCCESS) return failure(damaged("no header"));
  if (basic.xsize > Raster::maximumEdge || basic.ysize > Raster::maximumEdge) return refused(PictureError::TooLarge);
  PictureInfo info{.type = PictureType::JpegXL};
  info.width = static_cast<int>(basic.xsize);
  info.height = static_cast<int>(basic.ysize);
  info.isAnimated = basic.have_animation != 0;
  info.bitsPerSample = static_cast<int>(basic.bits_per_sample);
  if (basic.exponent_bits_per_sample > 0) info.bitsPerSample = 16;
  info.colors = basic.num_color_channels == 1 ? PictureColors::Grey : PictureColors::Rgb;
  info.hasAlpha = basic.alpha_bits > 0;
  for (std::size_t i = 0; i < basic.num_extra_channels; ++i) {
    JxlExtraChannelInfo extra;
    const bool isKnown = JxlDecoderGetExtraChannelInfo(decoder, i, &extra) == JXL_DEC_SUCCESS;
    if (isKnown && extra.type == JXL_CHANNEL_BLACK) return refused(PictureError::Unsupported, "CMYK in JPEG XL");
  }
  // libjxl calculates in floating point, with about two copies of what it works on.
  const std::size_t channels = basic.num_color_channels + basic.num_extra_channels;
  info.workingBytes = std::size_t{basic.xsize} * basic.ysize * channels * sizeof(float) * 2;
  return info;
}

/// The colors the pixels will be in: those of the file, or sRGB where libjxl cannot make them.
Result<std::vector<std::uint8_t>, PictureFailure> profileFrom(JxlDecoder* decoder, bool isGrey) {
  JxlColorEncoding colors;
  const auto original = JXL_COLOR_PROFILE_TARGET_ORIGINAL, data = JXL_COLOR_PROFILE_TARGET_DATA;
  if (JxlDecoderGetColorAsEncodedProfile(decoder, nullptr, original, &colors) == JXL_DEC_SUCCESS) {
    if (colors.transfer_function == JXL_TRANSFER_FUNCTION_PQ || colors.transfer_function == JXL_TRANSFER_FUNCTION_HLG) {
      return refused(PictureError::Unsupported, "high dynamic range");
    }
  } else {
    std::memset(&colors, 0, sizeof(colors));
    colors.color_space = isGrey ? JXL_COLOR_SPACE_GRAY : JXL_COLOR_SPACE_RGB;
    colors.white_point = JXL_WHITE_POINT_D65;
    colors.primaries = JXL_PRIMARIES_SRGB;
    colors.transfer_function = JXL_TRANSFER_FUNCTION_SRGB;
    colors.rendering_intent = JXL_RENDERING_INTENT_PERCEPTUAL;
    JxlDecoderSetPreferredColorProfile(decoder, &colors);  // counts only where libjxl chooses the colors
  }
  std::size_t bytes = 0;
  std::vector<std::uint8_t> profile;
  if (JxlDecoderGetICCProfileSize(decoder, nullptr, data, &bytes) != JXL_DEC_SUCCESS) return profile;
  if (bytes == 0 || bytes > maximumBlockBytes) return profile;
  profile.resize(bytes);
  if (JxlDecoderGetColorAsICCProfile(decoder, nullptr, data, profile.data(), bytes) != JXL_DEC_SUCCESS) profile.clear();
  return profile;
}

RasterLayout layoutOf(const PictureInfo& info) {
  if (info.colors == PictureColors::Grey) return info.hasAlpha ? RasterLayout::GreyAlpha : RasterLayout::Grey;
  return info.hasAlpha ? RasterLayout::Rgba : RasterLayout::Rgb;
}

/// The blocks of Exif and XMP that come by while the decoder works.
class BoxCollector {
 public:
  explicit BoxCollector(JxlDecoder* decoder) : decoder_(decoder) {}

  void begin() {
    end();
    JxlBoxType type;
    if (JxlDecoderGetBoxType(decoder_, type, JXL_TRUE) != JXL_DEC_SUCCESS) return;
    const std::string_view name(type, sizeof(type));
    if (name == "Exif" && exif_.empty()) target_ = &exif_;
    if (name == "xml " && xmp_.empty()) target_ = &xmp_;
    if (target_ == nullptr) return;
    target_->resize(4096);
    JxlDecoderSetBoxBuffer(decoder_, target_->data(), target_->size());
  }

  /// False when a box is larger than any sensible one.
  bool grow() {
    if (target_ == nullptr) return false;
    const std::size_t used = target_->size() - JxlDecoderReleaseBoxBuffer(decoder_);
    if (target_->size() >= maximumBlockBytes) return false;
    target_->resize(target_->size() * 4);
    return JxlDecoderSetBoxBuffer(decoder_, target_->data() + used, target_->size() - used) == JXL_DEC_SUCCESS;
  }

  void end() {
    if (target_ != nullptr) target_->resize(target_->size() - JxlDecoderReleaseBoxBuffer(decoder_));
    target_ = nullptr;
  }

  void moveTo(PictureMetadata& metadata) {
    end();
    // The block begins with how many bytes are before the TIFF structure.
    if (exif_.size() > 4) {
      const std::size_t start = std::size_t{4} + big32(bytesOf(exif_), 0);
      if (start < exif_.size()) metadata.exif.assign(exif_.begin() + static_cast<std::ptrdiff_t>(start), exif_.end());
    }
    metadata.xmp = std::move(xmp_);
  }

 private:
  JxlDecoder* decoder_;
  std::vector<std::uint8_t>* target_ = nullptr;
  std::vector<std::uint8_t> exif_, xmp_;
};

}  // namespace

Result<PictureInfo, PictureFailure> inspect(FileBytes file) {
  const auto decoder = opened(file, JXL_DEC_BASIC_INFO | JXL_DEC_COLOR_ENCODING | JXL_DEC_FRAME | JXL_DEC_BOX);
  JxlDecoderCloseInput(decoder.get());
  PictureInfo info;
  int frames = 0;
  for (;;) {
    switch (JxlDecoderProcessInput(decoder.get())) {
      case JXL_DEC_BASIC_INFO: {
        const auto found = infoFrom(decoder.get());
        if (!found) return found;
        info = *found;
        break;
      }
      case JXL_DEC_COLOR_ENCODING: {
        const auto profile = profileFrom(decoder.get(), info.colors == PictureColors::Grey);
        if (!profile) return failure(profile.error());
        JxlColorEncoding colors;
        info.hasProfile = JxlDecoderGetColorAsEncodedProfile(decoder.get(), nullptr, JXL_COLOR_PROFILE_TARGET_ORIGINAL,
                                                             &colors) != JXL_DEC_SUCCESS ||
                          colors.primaries != JXL_PRIMARIES_SRGB;
        break;
      }
      case JXL_DEC_BOX: {
        JxlBoxType type;
        if (JxlDecoderGetBoxType(decoder.get(), type, JXL_TRUE) != JXL_DEC_SUCCESS) break;
        const std::string_view name(type, sizeof(type));
        info.hasMetadata = info.hasMetadata || name == "Exif" || name == "xml ";
        break;
      }
      case JXL_DEC_FRAME:
        if (++frames < mostFrames) break;
        [[fallthrough]];
      case JXL_DEC_SUCCESS:
        if (frames == 0) return failure(damaged("no pixels"));
        info.frames = info.isAnimated ? frames : 1;
        info.isAnimated = info.frames > 1;
        return info;
      case JXL_DEC_NEED_MORE_INPUT:
        return failure(damaged("the file is incomplete"));
      default:
        return failure(damaged("corrupt JPEG XL data"));
    }
  }
}

Result<DecodedPicture, PictureFailure> decode(FileBytes file, const DecodeOptions& options) {
  int events = JXL_DEC_BASIC_INFO | JXL_DEC_COLOR_ENCODING | JXL_DEC_FULL_IMAGE;
  if (options.keepsMetadata) events |= JXL_DEC_BOX;
  const auto decoder = opened(file, events);
  BoxCollector boxes(decoder.get());
  DecodedPicture picture;
  bool isWhole = false, isClosed = false;
  for (;;) {
    switch (JxlDecoderProcessInput(decoder.get())) {
      case JXL_DEC_BASIC_INFO: {
        const auto info = infoFrom(decoder.get());
        if (!info) return failure(info.error());
        picture.info = *info;
        break;
      }
      case JXL_DEC_COLOR_ENCODING: {
        auto profile = profileFrom(decoder.get(), picture.info.colors == PictureColors::Grey);
        if (!profile) return failure(profile.error());
        picture.metadata.profile = std::move(*profile);
        break;
      }
      case JXL_DEC_NEED_IMAGE_OUT_BUFFER: {
        if (isWhole) {  // the second frame of an animation
          boxes.moveTo(picture.metadata);
          return picture;
        }
        const bool isDeep = picture.info.bitsPerSample > 8;
        auto raster = Raster::create(picture.info.width, picture.info.height, layoutOf(picture.info), isDeep ? 16 : 8);
        if (!raster) return refused(PictureError::TooLarge);
        const JxlPixelFormat format{static_cast<std::uint32_t>(samplesOf(raster->layout())),
                                    isDeep ? JXL_TYPE_UINT16 : JXL_TYPE_UINT8, JXL_NATIVE_ENDIAN, 0};
        if (JxlDecoderSetImageOutBuffer(decoder.get(), &format, raster->row(0), raster->bytes()) != JXL_DEC_SUCCESS) {
          return failure(damaged("corrupt JPEG XL data"));
        }
        picture.raster = std::move(*raster);
        break;
      }
      case JXL_DEC_FULL_IMAGE:
        isWhole = true;
        break;
      case JXL_DEC_BOX:
        boxes.begin();
        break;
      case JXL_DEC_BOX_NEED_MORE_OUTPUT:
        if (!boxes.grow()) return refused(PictureError::TooLarge, "huge metadata");
        break;
      case JXL_DEC_SUCCESS:
        if (!isWhole) return failure(damaged("no pixels"));
        boxes.moveTo(picture.metadata);
        return picture;
      case JXL_DEC_NEED_MORE_INPUT:
        if (!isWhole || isClosed) return failure(damaged("the file is incomplete"));
        // A last box without a size is known to end only now.
        JxlDecoderCloseInput(decoder.get());
        isClosed = true;
        break;
      default:
        return failure(damaged(isClosed ? "the file is incomplete" : "corrupt JPEG XL data"));
    }
  }
}

}  // namespace vellora::jxl
