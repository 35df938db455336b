#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "base/Json.h"

using namespace vellora;

namespace {

/// Every reader over every value of a document.
void readAll(const Json& value) {
  (void)json::number(value);
  (void)json::integer(value);
  (void)json::boolean(value);
  (void)json::string(value);
  (void)json::point(value);
  (void)json::size(value);
  (void)json::rect(value);
  (void)json::color(value);
  if (const auto date = json::date(value)) (void)captureFileStem(*date, NamePrecision::Milliseconds);
  if (value.is_structured()) {
    for (const Json& item : value) readAll(item);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const auto document = json::parse(text);
  if (!document) return 0;
  readAll(*document);
  // What was read once is written in a form that reads as the same document.
  const auto again = json::parse(json::serialize(*document));
  if (!again || json::serialize(*again) != json::serialize(*document)) std::abort();
  return 0;
}
