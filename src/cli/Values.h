#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/Geometry.h"
#include "platform/ScreenCaptureService.h"

namespace vellora::cli {

/// A whole number, decimal or with "0x".
std::optional<std::int64_t> parseInteger(const std::string& text);
/// "X,Y,W,H" in device pixels, W and H above 0.
std::optional<PixelRect> parseRegion(const std::string& text);
/// A window's number, as "vellora windows" lists it.
std::optional<WindowId> parseWindow(const std::string& text);

}  // namespace vellora::cli
