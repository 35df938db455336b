#include "cli/compress/ProgressLine.h"

#include <unistd.h>

#include "cli/compress/CompressReport.h"

namespace vellora {

ProgressLine::ProgressLine(std::FILE* output) : output_(output), isTerminal_(::isatty(::fileno(output)) != 0) {}

void ProgressLine::show(const CompressionProgress& progress) {
  if (!isTerminal_) return;
  std::fprintf(output_, "\r%s\x1b[K", progressText(progress).c_str());
  std::fflush(output_);
  isShown_ = true;
}

void ProgressLine::clear() {
  if (!isShown_) return;
  std::fputs("\r\x1b[K", output_);
  std::fflush(output_);
  isShown_ = false;
}

}  // namespace vellora
