#include "platform/linux/clipboard/UriList.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace vellora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto path = uriList::firstLocalPath({reinterpret_cast<const char*>(data), size});
  if (!path) return 0;
  if (!path->starts_with('/') || path->find('\0') != std::string::npos) std::abort();
  if (uriList::firstLocalPath(uriList::fileAddress(*path)) != path) std::abort();
  return 0;
}
