#include "cli/compress/CompressProgram.h"

int main(int argc, char** argv) {
  return vellora::runCompress(argc, argv);
}
