#include <cstddef>
#include <cstdint>

#include "AMFValues.h"
#include "rtmp/wire/AMF0Serializer.h"
#include "rtmp/wire/AMF3Serializer.h"

using namespace vellora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto values = fuzz::readAll<AMF0Serializer>({data, size});
  if (!values) return 0;
  fuzz::expectStable<AMF0Serializer>(*values);
  fuzz::expectStable<AMF3Serializer>(*values);
  return 0;
}
