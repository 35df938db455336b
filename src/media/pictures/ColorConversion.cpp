#include "media/pictures/ColorConversion.h"

#include <lcms2.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <memory>
#include <type_traits>

namespace vellora {
namespace {

struct ProfileClosed {
  void operator()(void* profile) const { cmsCloseProfile(profile); }
};
struct TransformDeleted {
  void operator()(void* transform) const { cmsDeleteTransform(transform); }
};
struct CurveFreed {
  void operator()(cmsToneCurve* curve) const { cmsFreeToneCurve(curve); }
};
using Profile = std::unique_ptr<void, ProfileClosed>;
using Transform = std::unique_ptr<void, TransformDeleted>;
using ToneCurve = std::unique_ptr<cmsToneCurve, CurveFreed>;

constexpr int smallestProfile = 128;
constexpr double maximumProfileBytes = 16 << 20;

Profile openProfile(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < smallestProfile || static_cast<double>(bytes.size()) > maximumProfileBytes) return nullptr;
  return Profile(cmsOpenProfileFromMem(bytes.data(), static_cast<cmsUInt32Number>(bytes.size())));
}

Transform transformTo(const Profile& source, cmsUInt32Number sourceFormat, cmsUInt32Number targetFormat,
                      cmsUInt32Number flags = 0) {
  const Profile srgb(cmsCreate_sRGBProfile());
  if (!source || !srgb) return nullptr;
  return Transform(cmsCreateTransform(source.get(), sourceFormat, srgb.get(), targetFormat, INTENT_PERCEPTUAL,
                                      flags | cmsFLAGS_NOCACHE));
}

/// Whether a transform from RGB leaves everything where it is, as far as 8 bits can tell. Many profiles are sRGB under
/// another name.
bool isIdentity(const Profile& source) {
  const Transform transform = transformTo(source, TYPE_RGB_16, TYPE_RGB_16, cmsFLAGS_NOOPTIMIZE);
  if (!transform) return false;
  using Color = std::array<std::uint16_t, 3>;
  std::vector<Color> colors;
  for (unsigned int i = 0; i < 6 * 6 * 6; ++i) {
    const auto part = [](unsigned int step) { return static_cast<std::uint16_t>(step % 6 * (65535 / 5)); };
    colors.push_back({part(i), part(i / 6), part(i / 36)});
  }
  for (unsigned int i = 0; i < 256; i += 3) {
    const auto level = static_cast<std::uint16_t>(i * 257);
    colors.push_back({level, level, level});
  }
  std::vector<Color> converted(colors.size());
  cmsDoTransform(transform.get(), colors.data(), converted.data(), static_cast<cmsUInt32Number>(colors.size()));
  constexpr int tolerance = 257 * 3 / 4;
  for (std::size_t i = 0; i < colors.size(); ++i) {
    for (std::size_t part = 0; part < 3; ++part) {
      if (std::abs(int{colors[i][part]} - int{converted[i][part]}) > tolerance) return false;
    }
  }
  return true;
}

/// Converts grey through a table of every level there is.
template <class Sample>
void convertGrey(Raster& raster, const Profile& profile, bool profileIsGrey) {
  constexpr bool isDeep = std::is_same_v<Sample, std::uint16_t>;
  constexpr std::size_t levels = std::size_t{1} << (8 * sizeof(Sample));
  const Transform transform = transformTo(profile, profileIsGrey ? TYPE_GRAY_16 : TYPE_RGB_16, TYPE_RGB_16);
  if (!transform) return;
  const std::size_t samplesIn = profileIsGrey ? 1 : 3;
  std::vector<std::uint16_t> in(levels * samplesIn), out(levels * 3);
  for (std::size_t i = 0; i < in.size(); ++i) {
    in[i] = static_cast<std::uint16_t>(isDeep ? i / samplesIn : i / samplesIn * 257);
  }
  cmsDoTransform(transform.get(), in.data(), out.data(), static_cast<cmsUInt32Number>(levels));
  std::vector<Sample> table(levels);
  for (std::size_t i = 0; i < levels; ++i) {
    const unsigned int level = out[3 * i + 1];
    table[i] = static_cast<Sample>(isDeep ? level : (level + 128) / 257);
  }
  const auto step = static_cast<std::size_t>(samplesOf(raster.layout()));
  for (int y = 0; y < raster.height(); ++y) {
    auto* row = reinterpret_cast<Sample*>(raster.row(y));
    for (int x = 0; x < raster.width(); ++x, row += step) *row = table[*row];
  }
}

void convertColors(Raster& raster, const Profile& profile) {
  if (isIdentity(profile)) return;
  const bool isDeep = raster.bitsPerSample() == 16, withAlpha = hasAlpha(raster.layout());
  cmsUInt32Number format = TYPE_RGB_8, flags = 0;
  if (isDeep) {
    format = withAlpha ? TYPE_RGBA_16 : TYPE_RGB_16;
    flags = cmsFLAGS_HIGHRESPRECALC;
  } else if (withAlpha) {
    format = TYPE_RGBA_8;
  }
  // In place, alpha is not touched.
  const Transform transform = transformTo(profile, format, format, flags);
  if (!transform) return;
  for (int y = 0; y < raster.height(); ++y) {
    cmsDoTransform(transform.get(), raster.row(y), raster.row(y), static_cast<cmsUInt32Number>(raster.width()));
  }
}

template <class Sample>
void convertPlainCmyk(const Sample* cmyk, Sample* rgb, int pixels) {
  constexpr std::uint32_t full = Sample(-1);
  for (int x = 0; x < pixels; ++x, cmyk += 4, rgb += 3) {
    const std::uint32_t light = full - cmyk[3];
    for (int i = 0; i < 3; ++i) rgb[i] = static_cast<Sample>(((full - cmyk[i]) * light + full / 2) / full);
  }
}

}  // namespace

void convertToSrgb(Raster& raster, std::span<const std::uint8_t> bytes) {
  const Profile profile = openProfile(bytes);
  if (!profile) return;
  const bool isGrey = samplesOf(raster.layout()) < 3;
  const bool profileIsGrey = cmsGetColorSpace(profile.get()) == cmsSigGrayData;
  if (!profileIsGrey && cmsGetColorSpace(profile.get()) != cmsSigRgbData) return;
  if (!isGrey) {
    if (!profileIsGrey) convertColors(raster, profile);
  } else if (raster.bitsPerSample() == 16) {
    convertGrey<std::uint16_t>(raster, profile, profileIsGrey);
  } else {
    convertGrey<std::uint8_t>(raster, profile, profileIsGrey);
  }
}

CmykConverter::CmykConverter(std::span<const std::uint8_t> bytes, int bitsPerSample) : bitsPerSample_(bitsPerSample) {
  const Profile profile = openProfile(bytes);
  if (!profile || cmsGetColorSpace(profile.get()) != cmsSigCmykData) return;
  transform_ = bitsPerSample == 16 ? transformTo(profile, TYPE_CMYK_16, TYPE_RGB_16).release()
                                   : transformTo(profile, TYPE_CMYK_8, TYPE_RGB_8).release();
}

CmykConverter::~CmykConverter() {
  if (transform_ != nullptr) cmsDeleteTransform(transform_);
}

void CmykConverter::convertRow(const std::uint8_t* cmyk, std::uint8_t* rgb, int pixels) const {
  if (transform_ != nullptr) {
    cmsDoTransform(transform_, cmyk, rgb, static_cast<cmsUInt32Number>(pixels));
  } else if (bitsPerSample_ == 16) {
    convertPlainCmyk(reinterpret_cast<const std::uint16_t*>(cmyk), reinterpret_cast<std::uint16_t*>(rgb), pixels);
  } else {
    convertPlainCmyk(cmyk, rgb, pixels);
  }
}

std::vector<std::uint8_t> profileOf(const ColorDescription& colors) {
  const cmsCIExyY white{colors.white.x, colors.white.y, 1};
  const cmsCIExyYTRIPLE primaries{
      {colors.red.x, colors.red.y, 1}, {colors.green.x, colors.green.y, 1}, {colors.blue.x, colors.blue.y, 1}};
  for (const auto& point : {colors.white, colors.red, colors.green, colors.blue}) {
    if (!(point.x >= 0 && point.x <= 1 && point.y > 0.001 && point.y <= 1)) return {};
  }
  // The curve of sRGB (IEC 61966-2-1).
  constexpr std::array<double, 5> srgbCurve{2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
  const ToneCurve curve(colors.gamma > 0 ? cmsBuildGamma(nullptr, colors.gamma)
                                         : cmsBuildParametricToneCurve(nullptr, 4, srgbCurve.data()));
  if (!curve) return {};
  std::array<cmsToneCurve*, 3> curves{curve.get(), curve.get(), curve.get()};
  const Profile profile(cmsCreateRGBProfile(&white, &primaries, curves.data()));
  if (!profile || isIdentity(profile)) return {};
  cmsUInt32Number size = 0;
  if (!cmsSaveProfileToMem(profile.get(), nullptr, &size)) return {};
  std::vector<std::uint8_t> bytes(size);
  if (!cmsSaveProfileToMem(profile.get(), bytes.data(), &size)) return {};
  return bytes;
}

std::vector<std::uint8_t> profileOfCodePoints(int primaries, int transfer) {
  ColorDescription colors;
  switch (primaries) {
    case 4:  // the first NTSC
      colors = {{0.310, 0.316}, {0.67, 0.33}, {0.21, 0.71}, {0.14, 0.08}};
      break;
    case 5:  // PAL
      colors = {colors.white, {0.64, 0.33}, {0.29, 0.60}, {0.15, 0.06}};
      break;
    case 6:
    case 7:  // SMPTE 170M and 240M
      colors = {colors.white, {0.630, 0.340}, {0.310, 0.595}, {0.155, 0.070}};
      break;
    case 9:  // BT.2020
      colors = {colors.white, {0.708, 0.292}, {0.170, 0.797}, {0.131, 0.046}};
      break;
    case 11:  // DCI P3
      colors = {{0.314, 0.351}, {0.680, 0.320}, {0.265, 0.690}, {0.150, 0.060}};
      break;
    case 12:  // Display P3
      colors = {colors.white, {0.680, 0.320}, {0.265, 0.690}, {0.150, 0.060}};
      break;
    default:
      break;
  }
  switch (transfer) {
    case 4:
      colors.gamma = 2.2;
      break;
    case 5:
      colors.gamma = 2.8;
      break;
    case 8:
      colors.gamma = 1;
      break;
    case 17:
      colors.gamma = 2.6;
      break;
    default:  // the curves of video (1, 6, 14, 15) are shown as that of sRGB
      break;
  }
  return profileOf(colors);
}

}  // namespace vellora
