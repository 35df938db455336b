#pragma once

#include <cstdio>

#include "editor/compressor/CompressionRun.h"

namespace vellora {

/// How far a run has come: one line of a terminal that is written over, and nothing at all elsewhere.
class ProgressLine {
 public:
  explicit ProgressLine(std::FILE* output);

  void show(const CompressionProgress& progress);
  /// Takes the line away, so that something else can be said.
  void clear();

 private:
  std::FILE* output_;
  const bool isTerminal_;
  bool isShown_ = false;
};

}  // namespace vellora
