#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace vellora {

/// The kinds of picture files that are read, and most of them written.
enum class PictureType : std::uint8_t { Jpeg, Png, WebP, Tiff, Bmp, Gif, Heic, Avif, JpegXL };

inline constexpr std::array allPictureTypes{PictureType::Jpeg, PictureType::Png,  PictureType::WebP,
                                            PictureType::Tiff, PictureType::Bmp,  PictureType::Gif,
                                            PictureType::Heic, PictureType::Avif, PictureType::JpegXL};

/// Told from the first bytes of a file; its name does not matter.
std::optional<PictureType> pictureTypeOf(std::span<const std::byte> file);
/// "jpg", "png"…, without the dot.
std::string_view fileExtension(PictureType type);
/// "JPEG", "PNG"…
std::string_view nameOf(PictureType type);
/// Whether files named "x.`extension`" usually are of this type ("jpeg" for Jpeg, "tif" for Tiff; any case).
bool isExtensionOf(PictureType type, std::string_view extension);

/// Whether the libraries of this machine can write the type; asked of them once, at first use.
bool canWrite(PictureType type);
/// All of those, in the order of the enumeration.
const std::vector<PictureType>& writableTypes();
/// Whether quality means something for the type (JPEG, WebP, HEIC, AVIF, JPEG XL).
bool isLossy(PictureType type);

}  // namespace vellora
