#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "record_editor/TrimSyncFile.h"

using namespace vellora;

/// Whatever lines are there: what is written of them says the same, and keeps their identities.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const auto trims = TrimSyncFile::parse(text).trims;
  for (const TrimElement& trim : trims) {
    if (!(trim.start >= 0 && trim.start < trim.end) || trim.id.isNull()) std::abort();
  }
  const QByteArray written = TrimSyncFile::serialize(trims);
  const auto again = TrimSyncFile::parse(written, trims).trims;
  if (again.size() != trims.size() || TrimSyncFile::serialize(again) != written) std::abort();
  for (const TrimElement& trim : again) {
    bool isKnown = false;
    for (const TrimElement& known : trims) isKnown = isKnown || known == trim;
    if (!isKnown) std::abort();
  }
  return 0;
}
