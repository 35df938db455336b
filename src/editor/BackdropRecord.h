#pragma once

#include <optional>

#include "base/Json.h"
#include "editor/BackdropSettings.h"

namespace vellora {

/// The stored form of a backdrop, as it stands under "backdrop" in "session.json" and in the preferences: one key a
/// field, in their order, enumerations by raw value. A background is an object with a "kind":
/// - {"kind": "solid", "color": colour}
/// - {"kind": "gradient", "stops": [{"position": number, "color": colour}…], "angle": degrees}
/// - {"kind": "image", "path": text}
/// - {"kind": "builtInImage", "identifier": text}
/// A device frame is a text ("browserLight" and so on); the key is left out when there is none.
Json encodeBackdrop(const BackdropSettings& settings);

/// Reads a backdrop. A missing key has its default, and so have a background and a device frame that cannot be read: a
/// decoration is no reason to lose what it decorates. Nothing when `value` is no object, or a key holds a value of
/// another type or an unknown raw value. Numbers outside their limits are brought inside.
std::optional<BackdropSettings> decodeBackdrop(const Json& value);

Json encodeBackground(const BackdropBackground& background);
/// Nothing when the value has none of the forms above.
std::optional<BackdropBackground> decodeBackground(const Json& value);

/// "browserLight" and so on.
const char* deviceFrameName(DeviceFrame frame);
/// Nothing when the value is no such text.
std::optional<DeviceFrame> decodeDeviceFrame(const Json& value);

}  // namespace vellora
