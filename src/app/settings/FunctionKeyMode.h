#pragma once

#include <QString>

namespace vellora {

/// Whether the keyboard driver gives the F-keys' media functions first, so that Fn may have to be held for F1 to F12.
/// Only one driver has such a mode; without it function keys are function keys. `modeFile` holds its setting: 1 media
/// first, 2 function keys first, 0 off, 3 as the keyboard's kind suggests, which counts as media first.
bool functionKeysNeedFn(const QString& modeFile = QStringLiteral("/sys/module/hid_apple/parameters/fnmode"));

}  // namespace vellora
