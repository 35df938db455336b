#pragma once

#include <cstddef>
#include <memory>

namespace vellora {

/// Memory for the pixels of a picture, filled with zeros; null when there is none. Screen-sized pictures get a mapping
/// of their own: in huge pages where the kernel has them (filling 33 MB in pages of 4 kB costs 8000 page faults), and
/// given back to the system as soon as the last user lets go.
std::shared_ptr<std::byte[]> allocatePixels(std::size_t bytes);

}  // namespace vellora
