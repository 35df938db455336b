#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "capture/CaptureRequest.h"
#include "editor/SessionDocument.h"
#include "preferences/HotKeyBinding.h"

using namespace vellora;

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

/// Whatever one of the readers takes, it must take again in its own written form.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  if (const auto document = decodeSessionDocument(text)) {
    const QByteArray written = encode(*document);
    const auto again = decodeSessionDocument(written);
    require(again && again->pieces == document->pieces && encode(*again) == written);
  }
  if (const auto request = decodeCaptureRequest(text)) require(decodeCaptureRequest(encode(*request)) == request);
  if (const auto binding = decodeHotKeyBinding(text)) require(decodeHotKeyBinding(encode(*binding)) == binding);
  return 0;
}
