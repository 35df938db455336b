#pragma once

#include <string>

#include "media/movies/MovieWriter.h"

namespace vellora {

/// What a system call refused while writing; `error` is its errno.
MovieFailure writeFailure(int error, const std::string& file);
MovieFailure readFailure(int error, const std::string& file);

}  // namespace vellora
