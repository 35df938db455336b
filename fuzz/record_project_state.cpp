#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "record_editor/RecordProjectState.h"

using namespace vellora;

/// A state document that is taken is written in a form that says the same, wholly.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const auto decoded = RecordProjectState::decode(text);
  if (!decoded) return 0;
  const QByteArray written = decoded->state.encode();
  const auto again = RecordProjectState::decode(written);
  if (!again || again->skipped != 0 || again->state.encode() != written) std::abort();
  return 0;
}
