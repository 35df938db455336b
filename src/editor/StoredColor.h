#pragma once

#include <optional>

#include <QVariant>

#include "base/Color.h"

namespace vellora {

/// A colour as it is kept among the preferences: an array of red, green, blue, alpha.
QVariant storedColor(const ColorComponents& color);
/// Nothing when `stored` is no such array or a component lies outside 0 to 1.
std::optional<ColorComponents> colorFromStored(const QVariant& stored);

}  // namespace vellora
