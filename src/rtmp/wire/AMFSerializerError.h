#pragma once

namespace vellora {

/// Why AMF could not be read.
enum class AMFSerializerError {
  outOfIndex,   ///< the data ends within a value
  deserialize,  ///< a marker that cannot be read, a reference to nothing, or a value beyond the limits
};

}  // namespace vellora
