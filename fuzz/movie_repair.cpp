#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "media/movies/MovieRepair.h"

using namespace vellora;

namespace {

std::vector<std::uint8_t> contentOf(int descriptor) {
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(::lseek(descriptor, 0, SEEK_END)));
  if (::pread(descriptor, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) std::abort();
  return bytes;
}

void expect(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

/// What can be repaired is whole afterwards and stays so; what cannot is left as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const int file = ::memfd_create("movie", MFD_CLOEXEC);
  static const std::string path = "/proc/self/fd/" + std::to_string(file);
  expect(::ftruncate(file, 0) == 0 && ::pwrite(file, data, size, 0) == static_cast<ssize_t>(size));

  const auto repaired = MovieRepair::repair(path);
  const auto after = contentOf(file);
  if (!repaired || repaired->wasWhole) {
    expect(after == std::vector(data, data + size));
    return 0;
  }
  expect(repaired->bytes == after.size());
  const auto again = MovieRepair::repair(path);
  expect(again && again->wasWhole);
  expect(contentOf(file) == after);
  return 0;
}
