#pragma once

#include "media/loaded_movies/Movies.h"
#include "record_editor/RecordProjectBundle.h"
#include "recording/sound/AudioWaveform.h"

namespace vellora::projectWaveform {

/// How loud a project's sound is, by its first audio track; empty when it has none that can be read. Writes
/// "waveform.json" when it is missing; a failure of that is logged. An hour takes seconds: not on the main thread.
AudioWaveform::Envelope load(Movies& movies, const RecordProjectBundle& bundle,
                             const AudioWaveform::GoesOn& goesOn = {});

}  // namespace vellora::projectWaveform
