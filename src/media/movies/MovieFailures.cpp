#include "media/movies/MovieFailures.h"

#include <cerrno>
#include <system_error>

namespace vellora {
namespace {

std::string reasonOf(int error) {
  return std::system_category().message(error);
}

}  // namespace

MovieFailure writeFailure(int error, const std::string& file) {
  if (error == ENOSPC || error == EDQUOT || error == EFBIG) {
    return {MovieError::diskFull, "No space is left for " + file + ": " + reasonOf(error)};
  }
  return {MovieError::writeFailed, "Cannot write " + file + ": " + reasonOf(error)};
}

MovieFailure readFailure(int error, const std::string& file) {
  return {MovieError::unreadable, "Cannot read " + file + ": " + reasonOf(error)};
}

}  // namespace vellora
