#pragma once

#include <QString>

namespace vellora {

/// "00:12", "59:59", "1:02:03": seconds as a clock shows them, rounded down.
QString elapsedText(double seconds);

}  // namespace vellora
