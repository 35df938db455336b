#pragma once

#include <cstddef>
#include <cstdint>

/// The border between the program and the module that reads HEIC and AVIF pictures. libheif and its decoders take
/// several megabytes; the module is loaded when such a picture is met, so that nobody else pays for them.
extern "C" {

enum VelloraHeifStatus : int {
  VelloraHeifDone = 0,
  VelloraHeifUnsupported,
  VelloraHeifTooLarge,
  VelloraHeifDamaged,
  VelloraHeifOutOfMemory,
};

enum VelloraHeifPrimaries : int {
  VelloraHeifPrimariesSrgb = 0,
  VelloraHeifPrimariesDisplayP3,
};

struct VelloraHeifPicture {
  int width;
  int height;
  int stride;             ///< bytes from row to row
  const uint8_t* pixels;  ///< red, green, blue, alpha
  int hasAlpha;
  int isPremultiplied;
  const uint8_t* profile;  ///< an ICC profile, or null
  size_t profileBytes;
  int primaries;  ///< VelloraHeifPrimaries, when there is no profile
  void* owner;    ///< for the release function
};

/// Decodes the primary picture, turned and mirrored as the file asks. `data` may go afterwards.
using VelloraHeifDecode = int (*)(const uint8_t* data, size_t size, size_t maximumPixels, int maximumEdge,
                                  VelloraHeifPicture* picture);
/// Gives a decoded picture's memory back.
using VelloraHeifRelease = void (*)(VelloraHeifPicture* picture);
}

inline constexpr char velloraHeifDecodeName[] = "vellora_heif_decode";
inline constexpr char velloraHeifReleaseName[] = "vellora_heif_release";
