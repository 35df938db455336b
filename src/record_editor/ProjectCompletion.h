#pragma once

#include "record_editor/RecordProjectBundle.h"

namespace vellora::projectCompletion {

/// Writes what a bundle with its footage lacks to be a whole project: the state document and the guide. What is there
/// stays. Failures are logged: the footage is the project.
void complete(const RecordProjectBundle& bundle);

}  // namespace vellora::projectCompletion
