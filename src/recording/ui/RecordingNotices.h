#pragma once

#include "recording/RecordingError.h"
#include "recording/RecordingPresenter.h"

class QScreen;

namespace vellora {

/// Tells a person of a notice, as a toast on `screen` or as an alert. Main thread.
void showNotice(RecordingNotice notice, QScreen* screen);

/// Tells why a recording did not begin.
void showStartFailure(RecordingError error);

}  // namespace vellora
