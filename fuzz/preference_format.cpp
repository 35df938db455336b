#include "platform/linux/desktop/PreferenceFormat.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace vellora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const auto values = preferenceFormat::decode(text);
  // Writing and reading again loses nothing: neither a value nor a line that could not be read.
  const auto written = preferenceFormat::encode(values);
  const auto again = preferenceFormat::decode(written);
  if (again.size() != values.size() || preferenceFormat::encode(again).size() != written.size()) std::abort();
  for (auto it = values.begin(); it != values.end(); ++it) {
    if (it.key().startsWith(preferenceFormat::unreadableLineMark)) continue;
    if (again.value(it.key()) != it.value()) std::abort();
  }
  return 0;
}
